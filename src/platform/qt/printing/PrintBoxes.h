// What the printers tell and ask a person.
#pragma once

#include <QString>

namespace pixorra {

class QtBackend;

void TellOfPrinting(QtBackend& backend, const QString& text);
// No unless it is answered by Yes.
bool AskAboutPrinting(QtBackend& backend, const QString& question);

}  // namespace pixorra
