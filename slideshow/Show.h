// The order and the clock of a show: which photo is shown, which one fades in, and which is made ready next. It knows
// no window and no disk: whoever runs it fulfils its wishes, brings it the time, and shows what it says. Times are
// seconds by one clock that never runs backwards.
//
// It holds three photos at most: the one that is shown, the one that fades in, and one that is ready or being made.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/services/Files.h"
#include "platform/services/PhotoFrames.h"

namespace pixorra {

struct Slide {
  std::string Path;
  int Number = 0;  // in the folder, from 1
  int Count = 0;   // of the folder's photos
  PhotoFrame Frame;
};

class Show {
 public:
  struct Pace {
    double Stand = 3;   // from when a photo is fully shown
    double Fade = 0.3;  // 0 for none
  };
  enum class State {
    Starting,  // no photo is ready yet
    Running,
    NoPhotos,  // none that can be shown is in the folder
    NoFolder,  // it cannot be read
    NoMemory,  // for anything at all
  };
  // A folder without photos is looked at again after so long.
  static constexpr double Rest = 10;
  // Photos that could not be shown are tried again after so long for each of them, and not before Rest.
  static constexpr double RestForEach = 0.005;
  // After so many names in a row that are not there any more the folder is listed anew, once in a round.
  static constexpr int MostMissing = 8;
  // While a photo fades in, it is to be painted this often at the most.
  static constexpr double FadeStep = 1.0 / 60;

  explicit Show(Pace pace) : pace_(pace) {}

  // --- its wishes; each is given out once
  // The folder's photos are to be listed, and given to Listed or ListingFailed.
  bool TakeListingWish();
  struct FrameWish {
    std::string Path;
    PhotoFrame Known;  // what is there of this path; a stamp alone is that of a file that could not be shown
  };
  // The photo is to be made ready, and given to Framed.
  std::optional<FrameWish> TakeFrameWish();

  // --- what it is given
  // Names by the order of NameLess, in a folder whose path ends with a backslash.
  void Listed(const std::string& folder, std::vector<std::string> names, double now);
  // Where a round is over, the next one has the same photos.
  void ListingFailed(double now);
  // What was wished for cannot even be tried now.
  void RanOutOfMemory(double now);
  void Framed(const PhotoFrame& frame, double now);
  // The screen has another size: frames are to be made anew. One that is being made is not wanted any more.
  void ScreenChanged(double now);
  // Looks at the clock. To be called at NextMoment; more often does no harm.
  void Tick(double now);

  // --- what is to be seen
  State Now() const { return state_; }
  // Null while there is none.
  const Slide* Shown() const { return shown_ ? &*shown_ : nullptr; }
  const Slide* Coming() const { return coming_ ? &*coming_ : nullptr; }
  // How much of the coming one is seen, 0 to 1.
  double Share(double now) const;
  // When something changes by itself; nothing where it waits for what it wished for.
  std::optional<double> NextMoment(double now) const;

 private:
  enum class Wish { None, Wanted, Asked };

  void BeginRound(double now);
  void Plan();
  void Pass(double now);
  void SkipDamaged();
  void KeepDamaged();
  void BeginFade(double now);
  void EndFade(double now);
  void RestFrom(State why, double now);
  bool Rests() const { return state_ != State::Starting && state_ != State::Running; }
  const Slide* KnownAt(const std::string& path) const;

  Pace pace_;
  State state_ = State::Starting;
  std::string folder_;
  std::vector<std::string> names_;                      // of the present round
  bool isListed_ = false;                               // for it, and not for one before
  std::size_t at_ = 0;                                  // the next of them
  bool found_ = false;                                  // one of this round could be shown
  int missing_ = 0;                                     // in a row
  bool listedAgain_ = false;                            // in this round
  std::string goOnAfter_;                               // this name, where the folder is being listed again; else empty
  std::unordered_map<std::string, FileStamp> damaged_;  // by their names
  bool skipsDamaged_ = false;                           // in this round
  double tryDamagedAt_ = 0;
  Wish listing_ = Wish::Wanted;
  Wish frame_ = Wish::None;
  bool remake_ = false;  // the frame is that of the photo that is shown, for another screen
  std::optional<Slide> shown_;
  std::optional<Slide> before_;  // the one that was shown before, until it is known whether it is the next one as well
  std::optional<Slide> coming_;
  std::optional<Slide> next_;  // ready, in its turn
  double fadeBegan_ = 0;
  double due_ = 0;     // when the time of the shown one is over
  double lookAt_ = 0;  // the folder again, while it rests
};

}  // namespace pixorra
