// The company name: a text of the user's own, on printed pages and at the top of a window that is large enough.
#pragma once

namespace pixorra {

struct MainForm;

// Asks for the name, starting from the present one. Blanks clear it; cancelling changes nothing.
void CompanyNameMenuItem_Click(MainForm& main);

}  // namespace pixorra
