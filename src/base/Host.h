// The services that one run of the program has, and the toolkit that its forms live on.
#pragma once

namespace pixorra {

class Artwork;
class Clipboard;
class Clock;
class Dialogs;
class Files;
class FolderReader;
class JpegCodec;
class Memory;
class Pictures;
class Places;
class Printing;
class ReadAhead;
class Registry;
class Settings;
class Shell;
class Shipped;
class Toolkit;
class Volumes;

struct Host {
  Toolkit& toolkit;
  Files& files;
  Places& places;
  Clock& clock;
  Pictures& pictures;
  Artwork& artwork;
  JpegCodec& jpeg;
  Dialogs& dialogs;
  Printing& printing;
  Clipboard& clipboard;
  Shell& shell;
  Registry& registry;
  Settings& settings;
  ReadAhead& readAhead;
  Shipped& shipped;
  FolderReader& folderReader;
  Volumes& volumes;
  Memory& memory;
};

}  // namespace pixorra
