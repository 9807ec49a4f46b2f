// The files that ship with the program, put into the program's folder.
#pragma once

namespace pixorra {

class Files;
class Places;
class Shipped;

// Writes those that are absent, each whole or not at all. What has such a name already stays as it is, whatever it is.
// Failures are ignored: the program does without.
void SeedShippedFiles(Files& files, Places& places, Shipped& shipped);

}  // namespace pixorra
