// Removing the folder of the film strip when its photos have gone.
#pragma once

namespace pixorra {

class AskedFolder;
struct MainForm;

// Removes the folder if nothing is in it any more; otherwise a message says what is. The camera's folder, the Trashcan
// and every protected folder stay, without a message. Lets events run.
void DeleteFilmStripLocation(MainForm& main, const AskedFolder& location);

}  // namespace pixorra
