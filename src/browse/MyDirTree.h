// The folder tree of the browser: the user's places at its top, each folder read when it is first opened, away from the
// program's thread.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/controls/PictureBox.h"
#include "platform/controls/Timer.h"
#include "platform/controls/TreeView.h"
#include "platform/services/FolderReader.h"
#include "platform/services/Volumes.h"

namespace pixorra {

struct Host;

class MyDirTree {
 public:
  // A folder that has not answered for so long says so, seconds.
  static constexpr double NotAnsweringAfter = 5;

  // A folder of more folders than this comes in several turns of the loop, so that none of them takes long.
  static constexpr std::size_t MostInATurn = 2000;

  // The tree fills the host control, which must outlive it.
  MyDirTree(Host& host, PictureBox& hostControl);
  MyDirTree(const MyDirTree&) = delete;
  MyDirTree& operator=(const MyDirTree&) = delete;

  // Fills the tree with its top. Deliberate: it returns at once, as the forms of this toolkit need no loop of the
  // tree's own; the tree lives until MyDirTree_Destroy.
  void MyDirTree_Create();
  // Opens the way down to the folder, selects it, scrolls it into view and gives the tree the focus. A folder that is
  // not there gives way to the nearest one above it that is. Before MyDirTree_Create nothing happens. A person who
  // selects something else meanwhile is left there.
  void MyDirTree_SetPath(const std::string& path);
  // What is being read is given up.
  void MyDirTree_Destroy();
  // Called with the path of each new selection; empty for a node that is no folder.
  std::function<void(const std::string& path)> MyDirTree_SelectedPathChanged;

  // The host control has another size.
  void FitToHost();
  // Reads the node again.
  void ReadAgain(TreeView::Node& node);

 private:
  using Node = TreeView::Node;
  struct Read {
    std::unique_ptr<FolderReader::Reading> Going;
    double Since = 0;
    std::string Text;  // of the node, before it was said not to answer
    bool Late = false;
  };

  void RefreshTop();
  void Ask(Node& node);
  void Answered(const std::string& key, const FolderReader::Answer& answer);
  std::vector<TreeEntry> EntriesOf(const Node& node, const std::vector<std::string>& names);
  Picture FolderIcon() const;
  Picture OpenFolderIcon() const;
  void FillSlowly(Node& node, const std::vector<std::string>& names);
  void FillOn();
  void Find(const std::string& path);
  void WalkTo(const std::string& path);
  void WalkOn();
  Node* NextOnTheWay(Node& node);
  void EndWalk();
  void Selected();
  void Tick();
  void TellOfLateOnes();
  void LookAfterSelection();
  void MakeSureItHasGone(const std::string& key);
  void SelectionHasGone(const std::string& key);

  Host& host_;
  PictureBox& hostControl_;
  TreeView tree_;
  Timer watch_;
  Timer filling_;
  bool running_ = false;
  std::uint64_t volumesSeen_ = 0;
  std::vector<PlaceOfVolume> volumes_;
  std::map<std::string, Read> reads_;  // by the node's key
  // The names of what is still to come below a node, by its key, the last one first.
  std::map<std::string, std::vector<std::string>> toCome_;
  // Nodes that were asked for by name and that no listing has named yet: hidden folders, and those made since.
  std::set<std::string> extras_;
  std::unique_ptr<FolderReader::Reading> finding_;
  std::string goal_;  // the path that is being walked to
  std::string at_;    // the key of the node that the walk has come to
  bool walking_ = false;
  std::unique_ptr<FolderReader::Reading> alive_;  // a look whether the selected folder is still there
};

}  // namespace pixorra
