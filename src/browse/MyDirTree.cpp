#include "browse/MyDirTree.h"

#include <iterator>
#include <unordered_set>
#include <utility>

#include "base/Definition.h"
#include "base/Host.h"
#include "base/Routines.h"
#include "base/VolumePaths.h"
#include "browse/TreePlaces.h"
#include "platform/controls/Toolkit.h"
#include "platform/runtime/Text.h"
#include "platform/services/Clock.h"
#include "platform/services/Files.h"

namespace pixorra {

namespace {

constexpr int WatchInterval = 1000;  // milliseconds
constexpr int FillingInterval = 1;
constexpr int IconSize = 16;  // pixels
constexpr const char* Late = " (not answering)";
constexpr int RefreshKey = key::F1 + 4;

}  // namespace

MyDirTree::MyDirTree(Host& host, PictureBox& hostControl)
    : host_(host),
      hostControl_(hostControl),
      tree_(hostControl, "DirTree"),
      watch_(hostControl, "DirTreeWatch", WatchInterval),
      filling_(hostControl, "DirTreeFilling", FillingInterval) {
  tree_.SetAccessibleName("Folders");
  tree_.SetFiller([this](TreeView&, Node& node) { Ask(node); });
  Connect(tree_.On().Change, [this](Control&) { Selected(); });
  Connect(tree_.On().KeyDown, [this](Control&, int& code, int) {
    if (code != RefreshKey) return;
    code = 0;
    if (Node* node = tree_.Selected()) ReadAgain(*node);
  });
  Connect(watch_.On().Timer, [this](Control&) { Tick(); });
  Connect(filling_.On().Timer, [this](Control&) { FillOn(); });
}

void MyDirTree::MyDirTree_Create() {
  MyDirTree_Destroy();
  running_ = true;
  FitToHost();
  volumesSeen_ = host_.volumes.Stamp();
  RefreshTop();
  // A card that has been put in is seen at once.
  if (Node* computer = tree_.Find(ComputerKey)) tree_.Expand(*computer);
  watch_.SetEnabled(true);
}

void MyDirTree::MyDirTree_Destroy() {
  running_ = false;
  watch_.SetEnabled(false);
  filling_.SetEnabled(false);
  reads_.clear();
  toCome_.clear();
  extras_.clear();
  alive_.reset();
  EndWalk();
  tree_.Clear();
}

void MyDirTree::FitToHost() {
  tree_.Move(0, 0, hostControl_.ScaleWidth(), hostControl_.ScaleHeight());
}

// --- what the tree holds ---------------------------------------------------------------------------------------------

void MyDirTree::RefreshTop() {
  volumes_ = host_.volumes.List();
  const bool hadSelection = tree_.Selected() != nullptr;
  // The volumes first: one that has gone gives the selection to its parent, and not to nothing.
  if (Node* computer = tree_.Find(ComputerKey)) tree_.Fill(*computer, VolumeEntries(host_, volumes_));
  if (Node* network = tree_.Find(NetworkKey)) tree_.Fill(*network, ShareEntries(host_, volumes_));
  const bool first = tree_.Root().Children().empty();
  tree_.Fill(tree_.Root(), TopEntries(host_, volumes_));
  if (first) {
    tree_.Fill(*tree_.Find(ComputerKey), VolumeEntries(host_, volumes_));
    tree_.Fill(*tree_.Find(NetworkKey), ShareEntries(host_, volumes_));
  }
  // A bookmark on a volume that has gone had nothing above it.
  if (hadSelection && tree_.Selected() == nullptr) tree_.Select(tree_.FirstShown());
}

void MyDirTree::ReadAgain(Node& node) {
  tree_.Ask(node);
}

void MyDirTree::Ask(Node& node) {
  const std::string key = node.Key();
  const std::string path = PathOfKey(key);
  if (path.empty()) {
    RefreshTop();
    return;
  }
  Read& read = reads_[key];
  if (!read.Late) read.Text = node.Text();
  read.Since = host_.clock.Seconds();
  read.Going = host_.folderReader.Read(path, attribute::Normal,
                                       [this, key](const FolderReader::Answer& answer) { Answered(key, answer); });
}

void MyDirTree::Answered(const std::string& key, const FolderReader::Answer& answer) {
  const auto found = reads_.find(key);
  const Read read = std::move(found->second);
  reads_.erase(found);
  Node* node = tree_.Find(key);
  if (node == nullptr) return;
  if (read.Late) tree_.SetText(*node, read.Text);
  const bool ofTop = node->Parent() == &tree_.Root() || PathOfKey(node->Parent()->Key()).empty();
  if (answer.Error == error::PathNotFound && !ofTop) {
    extras_.erase(key);
    tree_.Remove(*node);
    WalkOn();
    return;
  }
  if (answer.Error != error::None && answer.Error != error::PathNotFound) {
    tree_.GiveUp(*node);
    // A folder that may not be listed may still be passed through.
    const bool onTheWay = at_ == key && PathOfKey(key).size() < goal_.size() && !toCome_.contains(key);
    if (onTheWay) at_ = NextOnTheWay(*node)->Key();
    WalkOn();
    return;
  }
  toCome_.erase(key);
  // A node that has children already is brought up to date at once: those that stay cost little.
  if (answer.Names.size() > MostInATurn && node->Children().empty()) {
    FillSlowly(*node, answer.Names);
  } else {
    tree_.Fill(*node, EntriesOf(*node, answer.Names));
  }
  WalkOn();
}

Picture MyDirTree::FolderIcon() const {
  return Drawing(host_, "desktop:folder", IconSize, IconSize);
}

Picture MyDirTree::OpenFolderIcon() const {
  return Drawing(host_, "desktop:folder-open", IconSize, IconSize);
}

std::vector<TreeEntry> MyDirTree::EntriesOf(const Node& node, const std::vector<std::string>& names) {
  std::vector<TreeEntry> entries;
  entries.reserve(names.size());
  const Picture icon = FolderIcon();
  const Picture openIcon = OpenFolderIcon();
  std::unordered_set<std::string> listed;
  for (const std::string& name : names) {
    TreeEntry entry = FolderEntry(host_, node.Key(), name);
    // A folder that changes while it is listed may give a name twice.
    if (!listed.insert(entry.Key).second) continue;
    extras_.erase(entry.Key);
    entries.push_back(std::move(entry));
    entries.back().Icon = icon;
    entries.back().OpenIcon = openIcon;
  }
  for (const auto& child : node.Children()) {
    if (!extras_.contains(child->Key())) continue;
    entries.push_back({child->Key(), child->Text(), true, icon, openIcon, {}});
  }
  return entries;
}

// The names wait as they are: nothing is made of one before its turn.
void MyDirTree::FillSlowly(Node& node, const std::vector<std::string>& names) {
  const auto rest = names.begin() + static_cast<std::ptrdiff_t>(MostInATurn);
  toCome_[node.Key()].assign(std::make_reverse_iterator(names.end()), std::make_reverse_iterator(rest));
  filling_.SetEnabled(true);
  tree_.Fill(node, EntriesOf(node, std::vector<std::string>(names.begin(), rest)));
}

void MyDirTree::FillOn() {
  filling_.SetEnabled(!toCome_.empty());
  if (toCome_.empty()) return;
  const auto next = toCome_.begin();
  Node* node = tree_.Find(next->first);
  std::vector<std::string>& rest = next->second;
  const Picture icon = FolderIcon();
  const Picture openIcon = OpenFolderIcon();
  for (std::size_t i = 0; node != nullptr && i < MostInATurn && !rest.empty(); ++i) {
    TreeEntry entry = FolderEntry(host_, node->Key(), rest.back());
    rest.pop_back();
    extras_.erase(entry.Key);
    if (tree_.Find(entry.Key) != nullptr) continue;
    entry.Icon = icon;
    entry.OpenIcon = openIcon;
    tree_.Add(*node, std::move(entry));
  }
  if (node != nullptr && !rest.empty()) return;
  toCome_.erase(next);
  WalkOn();
}

// --- the way down to a path ------------------------------------------------------------------------------------------

void MyDirTree::MyDirTree_SetPath(const std::string& path) {
  if (!running_) return;
  EndWalk();
  tree_.SetFocus();
  Find(path);
}

void MyDirTree::Find(const std::string& path) {
  finding_ = host_.folderReader.FindFolder(path, [this, path](const FolderReader::Answer& answer) {
    const auto found = std::move(finding_);
    if (answer.Error == error::None) {
      WalkTo(answer.Path);
    } else if (const std::string above = ParentPathOf(path); !IsRootPath(path) && !above.empty()) {
      Find(IsRootPath(above) ? above : StripTrailingBackslash(above));
    }
  });
}

// From the top node that lies nearest to it.
void MyDirTree::WalkTo(const std::string& path) {
  const Node* nearest = nullptr;
  const auto consider = [&](const Node& node) {
    const std::string place = PathOfKey(node.Key());
    if (place.empty() || !IsWithin(path, place)) return;
    if (nearest == nullptr || place.size() > PathOfKey(nearest->Key()).size()) nearest = &node;
  };
  for (const auto& top : tree_.Root().Children()) {
    consider(*top);
    if (!PathOfKey(top->Key()).empty()) continue;
    for (const auto& volume : top->Children()) consider(*volume);
  }
  if (nearest == nullptr) return;
  goal_ = path;
  at_ = nearest->Key();
  WalkOn();
}

// As far as what is known goes; an answer that comes walks on.
void MyDirTree::WalkOn() {
  if (goal_.empty() || walking_) return;
  walking_ = true;
  while (!goal_.empty()) {
    Node* node = tree_.Find(at_);
    if (node == nullptr) {
      goal_.clear();
      break;
    }
    if (PathOfKey(at_).size() >= goal_.size()) {
      goal_.clear();
      if (tree_.Selected() == node) tree_.EnsureVisible(*node);
      tree_.Select(node);
      break;
    }
    if (toCome_.contains(at_)) break;
    if (!node->Known()) {
      // Opening it asks; a folder that is open or closed and has been asked answers some time.
      if (!node->Asked()) tree_.Ask(*node);
      break;
    }
    at_ = NextOnTheWay(*node)->Key();
  }
  walking_ = false;
}

MyDirTree::Node* MyDirTree::NextOnTheWay(Node& node) {
  const std::string start = StripTrailingBackslash(PathOfKey(node.Key()));
  const std::size_t end = goal_.find('\\', start.size() + 1);
  const std::string name = goal_.substr(start.size() + 1, end == std::string::npos ? end : end - start.size() - 1);
  TreeEntry entry = FolderEntry(host_, node.Key(), name);
  if (Node* known = tree_.Find(entry.Key)) return known;
  // Hidden, or made since: it was asked for by its name.
  entry.Icon = FolderIcon();
  extras_.insert(entry.Key);
  return &tree_.Add(node, std::move(entry));
}

void MyDirTree::EndWalk() {
  goal_.clear();
  finding_.reset();
}

// --- the selection ---------------------------------------------------------------------------------------------------

void MyDirTree::Selected() {
  if (!running_) return;
  if (!walking_) EndWalk();
  alive_.reset();
  const Node* node = tree_.Selected();
  if (MyDirTree_SelectedPathChanged) MyDirTree_SelectedPathChanged(node != nullptr ? PathOfKey(node->Key()) : "");
}

void MyDirTree::Tick() {
  if (const std::uint64_t stamp = host_.volumes.Stamp(); stamp != volumesSeen_) {
    volumesSeen_ = stamp;
    RefreshTop();
  }
  TellOfLateOnes();
  LookAfterSelection();
}

void MyDirTree::TellOfLateOnes() {
  const double now = host_.clock.Seconds();
  for (auto& [key, read] : reads_) {
    Node* node = tree_.Find(key);
    if (node == nullptr || read.Late || now - read.Since < NotAnsweringAfter) continue;
    read.Late = true;
    tree_.SetText(*node, read.Text + Late);
  }
}

// A device and a share are seen to go by their volumes; a look would keep them from their work.
void MyDirTree::LookAfterSelection() {
  const Node* node = tree_.Selected();
  const std::string path = node != nullptr ? PathOfKey(node->Key()) : std::string();
  if (path.empty() || alive_ != nullptr) return;
  const PlaceOfVolume* volume = VolumeOf(volumes_, path);
  if (volume == nullptr || volume->Kind == VolumeKind::Camera || volume->Kind == VolumeKind::Share) return;
  alive_ = host_.folderReader.FindFolder(path, [this, key = node->Key()](const FolderReader::Answer& answer) {
    const auto looked = std::move(alive_);
    if (answer.Error != error::None) MakeSureItHasGone(key);
  });
}

// A folder that may not be entered is not found either, but it is there. Listing it tells the one from the other.
void MyDirTree::MakeSureItHasGone(const std::string& key) {
  alive_ = host_.folderReader.Read(PathOfKey(key), attribute::Normal, [this, key](const FolderReader::Answer& answer) {
    const auto looked = std::move(alive_);
    if (answer.Error == error::PathNotFound) SelectionHasGone(key);
  });
}

void MyDirTree::SelectionHasGone(const std::string& key) {
  Node* node = tree_.Find(key);
  if (node == nullptr || PathOfKey(key).empty() || node->Parent() == &tree_.Root()) return;
  if (PathOfKey(node->Parent()->Key()).empty()) return;
  extras_.erase(key);
  tree_.Remove(*node);
  // The one above may have gone as well.
  LookAfterSelection();
}

}  // namespace pixorra
