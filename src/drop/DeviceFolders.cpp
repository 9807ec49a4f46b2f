#include "drop/DeviceFolders.h"

#include "base/VolumePaths.h"
#include "platform/services/Dialogs.h"
#include "platform/services/Files.h"
#include "platform/services/Volumes.h"
#include "window/DropState.h"
#include "window/MainForm.h"

namespace pixorra {

void TellOfDeviceFolderOnce(MainForm& main, const std::string& folder) {
  // A folder's place is looked up once: the list of volumes must not be read for each photo.
  if (!main.drop.KnownFolders.insert(folder).second) return;
  const std::vector<PlaceOfVolume> volumes = main.host.volumes.List();
  const PlaceOfVolume* volume = VolumeOf(volumes, folder);
  if (volume == nullptr || volume->Kind != VolumeKind::Camera) return;
  main.host.dialogs.MsgBox(
      main.host.files.ShownPath(folder) +
          "\n\nThis folder is on a camera or phone, which does not say\nwhether a photo has really "
          "been stored. Keep the photos\nof the film strip until you have looked at the copies.",
      BoxIcon::Information, BoxButtons::Ok, "Pixorra - Folder on a Camera or Phone");
}

}  // namespace pixorra
