#include "utility/HelpPages.h"

#include "platform/services/Dialogs.h"
#include "window/MainForm.h"

namespace pixorra {

namespace {

constexpr const char* GeneralPages[] = {
    "Pixorra sorts the photos of a digital still camera into\n"
    "folders.\n"
    "\n"
    "1. Select the camera, or browse for a folder of photos. Its\n"
    "    photos become the film strip across the top.\n"
    "2. Show the folders to sort into. Up to 8 folders and the\n"
    "    Trashcan are on the Desktop.\n"
    "3. Drag a photo from the film strip onto a folder. It is\n"
    "    copied there, and shaded in the film strip.\n"
    "\n"
    "A drop never moves a photo: what is in the film strip stays\n"
    "where it is.",

    "'Display Film Strip' tells which photos are shown:\n"
    "    All: every photo, the dragged ones shaded\n"
    "    Remaining: only the photos that have not been dragged\n"
    "    Auto: all, and the strip scrolls past the dragged ones\n"
    "\n"
    "Click on a photo to preview it. Click on a folder to open it\n"
    "beside the Desktop. Right-Click on a folder for its menu.",

    "'Drag All Remaining Photos' is a button that is dragged onto\n"
    "a folder like a photo. Press Esc to stop it. The keys 1 to 8\n"
    "drop the selected photo into that folder, 9 into the Trashcan.\n"
    "'Undo Last' deletes the copy that the last drop, or the last\n"
    "'PASTE from Clipboard', has made, and no other file. It\n"
    "stays where the photo that was dropped has gone since.\n"
    "\n"
    "'Manual' in the 'Help' menu opens pages on all of this, with\n"
    "pictures, in your web browser.",
};

constexpr const char* SelectFilmStripPages[] = {
    "Select an existing source folder/location/path. This will\n"
    "be openned as the 'Film-Strip'. Photos can be dragged from\n"
    "the film-strip down into one of the destination folders",
};

constexpr const char* ShowFolderPages[] = {
    "Select an existing folder. It will be shown on the Desktop,\n"
    "where photos can be dropped into it. Up to 8 folders can be\n"
    "shown at a time.\n"
    "\n"
    "'Create New Folder' makes a folder inside of the selected\n"
    "one, shows it, and lets you type its name.\n"
    "\n"
    "'Hide the Open Folder' takes a folder off the Desktop. The\n"
    "folder and its photos stay on the disk.",
};

constexpr const char* SetCameraLocationPages[] = {
    "Select the location where the photos of your camera, or of\n"
    "its memory card, show up on this computer.\n"
    "\n"
    "The Camera button then opens that location as the film strip.\n"
    "While the camera is not there the mouse pointer shows so over\n"
    "the button.",
};

constexpr const char* PreferencesPages[] = {
    "Rename dragged photo\n"
    "\n"
    "Always: each photo gets a new name with the next number of\n"
    "the folder, as PXR00001.\n"
    "\n"
    "Auto, if name exists: a photo keeps its name. If the folder\n"
    "has a photo of that name already, a number is added to it.\n"
    "\n"
    "Ask before renaming: if the folder has a photo of that name\n"
    "already, you are asked for another name.",

    "Duplicate Photos\n"
    "\n"
    "A dropped photo is compared with all photos of the folder. A\n"
    "duplicate is the same to the last byte.\n"
    "\n"
    "Auto Resolve: the new duplicate is deleted from the folder.\n"
    "Ask when dropped into a folder: you decide which of the two\n"
    "is deleted.\n"
    "Allow duplicates: photos are not compared.",

    "On Program Exit\n"
    "\n"
    "Remember Film Strip, Remember Folders: the next start brings\n"
    "back the film strip, and the folders on the Desktop.\n"
    "\n"
    "Empty Trashcan: the photos in the Trashcan are deleted when\n"
    "you exit. Untick it to keep them.",

    "More Things\n"
    "\n"
    "Keep original date of dragged photo: the copy in the folder\n"
    "has the date of the photo, not that of its copying.\n"
    "\n"
    "Auto Preview Film Strip photo on Click: a photo of the film\n"
    "strip is previewed as soon as the mouse button is pressed on\n"
    "it. Without it, a photo is previewed when the button is let go.\n"
    "\n"
    "Add 'SlideShow' shortcut: your file manager has 'SlideShow by\n"
    "Pixorra' in its menu of each folder, from the click on.",

    "Types of Picture Files\n"
    "\n"
    "Jpeg, Bitmap, GIF: only files of the ticked types are shown\n"
    "in the film strip and in folders.\n"
    "\n"
    "If none is ticked, all files are shown.",
};

constexpr const char* RenamePages[] = {
    "A photo of this name is already in the folder. Select one of\n"
    "the two names below, or change it first.\n"
    "\n"
    "The upper name has the next number of the folder. The lower\n"
    "one is the photo's own name with a number. The type of the\n"
    "file, as .jpg, is added by itself.\n"
    "\n"
    "'Cancel' leaves the photo where it is, and copies nothing.\n"
    "\n"
    "Preferences has other ways to name photos.",
};

constexpr const char* DuplicatePages[] = {
    "The folder has a photo that is the same to the last byte as\n"
    "the one just dropped.\n"
    "\n"
    "Delete Original: the older file is deleted, the new one stays.\n"
    "Delete Duplicate: the new file is deleted, the older one\n"
    "stays.\n"
    "Ignore: both files stay.\n"
    "\n"
    "The photo in the film strip is not touched. Preferences can\n"
    "resolve duplicates without asking, or allow them.",
};

constexpr const char* DeletePages[] = {
    "Delete Selected Photo: the photo that is selected in the film\n"
    "strip. 'Delete' in the 'Selected Photo' menu deletes it too,\n"
    "and one that is selected in the open folder.\n"
    "\n"
    "Delete all Dragged: the photos that have been dragged. The\n"
    "copy of each was safe on its disk before it was shaded.\n"
    "\n"
    "Delete All Photos in Film Strip: dragged or not. The location\n"
    "goes too if nothing else is in it; the camera's stays.\n"
    "\n"
    "All of this is final: nothing goes to the Trashcan. If many\n"
    "photos cannot be deleted, press Esc in a message to stop.",
};

constexpr const char* PrintingPages[] = {
    "'Print' in the 'File' menu, and the printer below the film\n"
    "strip. A click on that one prints the selected photo; a right\n"
    "click offers the rest.\n"
    "\n"
    "Batch Print: all photos of the film strip or the open folder,\n"
    "each on a page of its own.\n"
    "Proof Sheet: 4 to 36 small photos on a page, with their names.\n"
    "\n"
    "Pages are landscape. A click on the notice that counts the\n"
    "photos asks whether to stop: what is ready by then is printed.",

    "Adjust the zoom, or select how many inches wide a landscape\n"
    "photo is to be. What is beyond the page's edge is not printed.\n"
    "\n"
    "Photo info and border outline need some room around the photo.\n"
    "Below it stands the name that is set by 'Company Name' in the\n"
    "'File' menu.\n"
    "\n"
    "Printer Setup: selects the printer and its paper. There is\n"
    "always one that makes a PDF file; it asks for the file's name.",
};

constexpr const char* SlideShowPages[] = {
    "Play: the photos of the film strip, or of the open folder,\n"
    "are shown on the whole screen, over and over. Any key, a\n"
    "mouse button or a move of the mouse ends the show.\n"
    "Speed: 1 second for each photo, 3 or 7.\n"
    "Title and Counter: each photo with its name and number.\n"
    "Use as ScreenSaver: leaves the folder that was played last,\n"
    "and the speed, for your screen saver. Select it there.\n"
    "\n"
    "'SlideShow by Pixorra' in your file manager's menu of a folder\n"
    "plays that folder, at 2 seconds. 'Preferences' removes it from\n"
    "the menu and adds it again.",
};

struct Topic {
  const char* Name;  // as titles begin
  std::span<const char* const> Pages;
};

// Deliberate: three titles spell the word as they do.
Topic DescriptionOf(HelpTopic topic) {
  switch (topic) {
    case HelpTopic::General:
      return {"HELP - General", GeneralPages};
    case HelpTopic::SelectFilmStrip:
      return {"Help - Select a Film Strip", SelectFilmStripPages};
    case HelpTopic::ShowFolder:
      return {"Help - Show a Folder", ShowFolderPages};
    case HelpTopic::SetCameraLocation:
      return {"Help - Set Camera Location", SetCameraLocationPages};
    case HelpTopic::Preferences:
      return {"HELP - Preferences", PreferencesPages};
    case HelpTopic::Rename:
      return {"HELP - Rename", RenamePages};
    case HelpTopic::Duplicate:
      return {"HELP - Duplicate Photos", DuplicatePages};
    case HelpTopic::Delete:
      return {"HELP - Delete Photos in Film Strip", DeletePages};
    case HelpTopic::Printing:
      return {"HELP - Printing", PrintingPages};
    case HelpTopic::SlideShow:
      break;
  }
  return {"HELP - Slide Show", SlideShowPages};
}

}  // namespace

std::span<const char* const> PagesOf(HelpTopic topic) {
  return DescriptionOf(topic).Pages;
}

std::string TitleOf(HelpTopic topic, int page) {
  const Topic described = DescriptionOf(topic);
  return std::string(described.Name) + "     [" + std::to_string(page) + " of " +
         std::to_string(described.Pages.size()) + "]";
}

void ShowHelp(MainForm& main, HelpTopic topic) {
  int page = 0;
  for (const char* text : PagesOf(topic))
    main.host.dialogs.MsgBox(text, BoxIcon::Information, BoxButtons::Ok, TitleOf(topic, ++page));
}

}  // namespace pixorra
