// What is known of the photo of a marked slot.
#pragma once

namespace pixorra {

struct MainForm;

// The slot's photo has been changed since it was marked, or that cannot be known: what it is now may have no copy. Of a
// slot that is not marked it says nothing.
bool IsChangedSinceMarked(MainForm& main, int slot);

}  // namespace pixorra
