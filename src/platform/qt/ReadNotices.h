// Descriptors of the host that are waited for in the loop.
#pragma once

#include <functional>

class QObject;

namespace pixorra {

class QtBackend;

// Runs the function in the loop, for as long as `owner` lives, whenever the descriptor can be read; it must then read
// it. A descriptor below 0 never can. Once the program's end has been asked for it is not waited for any more: what
// nobody reads then would keep the loop from its sleep.
void NoticeWhenReadable(QtBackend& backend, QObject& owner, int descriptor, std::function<void()> function);

}  // namespace pixorra
