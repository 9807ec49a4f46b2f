// Where the photos of a card are: a camera puts them into folders of its own, below the card's DCIM folder.
#pragma once

#include <string>

namespace pixorra {

struct Host;

struct PhotosOfCard {
  std::string Folder;  // the one that has the photos; of several, the DCIM folder that they are in
  bool AreInSeveral = false;
};

// For a folder that may be a card's root. One that has photos of its own, and one that has none below DCIM either, is
// the answer itself. Looks at no photo. Where a folder below DCIM cannot be read, or does not answer in a few seconds,
// photos may be in several. Events run meanwhile.
PhotosOfCard FindPhotosOfCard(Host& host, const std::string& folder);

}  // namespace pixorra
