#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <unordered_map>
#include <vector>

#include "tools/log/info/common_return.h"
#include "tools/log/info/judged_identifier.h"
#include "tools/log/info/run_statistics.h"
#include "tools/log/info/silences.h"
#include "tools/log/info/undecided_pauses.h"

namespace tolvane::logtool {

/// Where frames seem to be missing.
struct Gap {
  enum class Edge : std::uint8_t { kNone, kBegin, kEnd };  // of the log

  const IdentifierStatistics* identifier;  // null for all of them
  Silence silence;
  /// Frames. At an edge of the log nobody knows how many there would have been, and of all those
  /// count that are in no gap of their own.
  std::optional<double> lost;
  Edge edge = Edge::kNone;
};

struct JudgedRun {
  std::vector<JudgedIdentifier> identifiers;  // by kind and number
  std::vector<Gap> gaps;                      // by the time from the first frame on
  /// Others that are not among these, of all identifiers or of one, as there are too many; no one
  /// is longer than those of its kind.
  std::uint64_t gaps_left_out = 0;
  bool is_judged = false;  // without a regular identifier nothing tells a gap from a silence
};

/// Finds the gaps of a run whose statistics are complete, for which its frames come once more: how
/// long a silence has to be is known only then.
///
/// A gap is a silence longer than `multiple` times the cycle of a regular identifier, or of its
/// slower rate; what was lost is reckoned by that too. With fewer than five cycles it has none at
/// the edges of the log, where three frames that happen to be evenly apart would have two.
///
/// A silence of the bus is a gap of all where it is that long for one of the identifiers, of five
/// cycles or more, that were sending up to it, and the first frame behind it of any of these is
/// overdue, later than one and a half of its cycles or than a smaller `multiple`; at the end of the
/// log, where all of them are. If one comes at its time, it was a pause, and whoever else is
/// missing is so by itself; but not where several are overdue and most of these come within one of
/// their cycles and a thousand frames behind it: a slow one may be just due. Frames of others may
/// part it, as long as the bus is silent for nine tenths of the time up to the first that comes
/// back, or to the end of the last part where none does; so may those of one that begins in it. An
/// identifier of fewer than five cycles that was not there ahead of the silence is one of these
/// others: three frames that stray into it may be evenly apart.
///
/// One of all is told once. One of an identifier is its own where it is still that long without
/// those of all within it that are longer than its cycle: in a shorter one it was not due. What was
/// lost in it counts there, and else in the longest of all within it, so nothing counts twice.
/// There counts too what those have lost for which it was no gap, but no more than it had room for.
class GapFinder {
 public:
  // Gaps that are kept; all are counted.
  static constexpr std::size_t kCommon_MAX = 256;
  static constexpr std::size_t kOwn_MAX = 64;  // of each identifier
  // Frames behind a pause within which those that are missing have to be back.
  static constexpr std::size_t kHeld_MAX = 1000;

  GapFinder(const RunStatistics& run, double multiple);
  GapFinder(const GapFinder&) = delete;
  GapFinder& operator=(const GapFinder&) = delete;

  /// As RunStatistics::Add.
  void Add(const LogFrame& frame, double ahead);
  /// To be called once, behind the last frame.
  [[nodiscard]] JudgedRun Result();

 private:
  /// A regular identifier on its way through the run.
  struct Follower {
    JudgedIdentifier* judged;
    double limit;                        // ms; a longer silence is a gap
    double overdue;                      // ms; a frame behind a longer one is
    bool is_known;                       // from cycles enough
    Moment last;                         // frame; at first the run's begin
    double common = 0.0;                 // ms of gaps of all since that are longer than its cycle
    double every_common = 0.0;           // ms of all since
    Silence longest_common = {};         // of these
    Gap::Edge edge = Gap::Edge::kBegin;  // at which the silence is that goes on
    bool is_listed = false;              // in sending_
    LongestSilences gaps{kOwn_MAX};
  };

  struct Seen {
    std::uint64_t key;
    Moment moment;
  };
  /// Ended by one that came at its time, while several are missing.
  struct Doubt {
    std::vector<Pause> pauses;
    CommonReturn back;
  };

  void Take(const Seen& seen);
  /// By what is known, and takes what was held, up to the next doubt.
  void Settle();

  /// Whether it was, up to this moment, and has not sent since.
  [[nodiscard]] static bool WasSending(const Follower& follower, const Moment& moment);
  /// The place of the first undecided pause in the silence of one that was sending up to it; all
  /// from there on are in it. Behind the last one where there is none.
  [[nodiscard]] std::size_t FirstPauseOf(const Follower& follower) const;
  /// The place of the first of these that it was sending up to and whose silence lasts.
  [[nodiscard]] std::size_t FirstLastingOf(const Follower& follower, const Moment& moment,
                                           double another = 0.0) const;
  /// Whether it has not sent since a silence that lasts, up to this moment.
  [[nodiscard]] bool IsInASilence(const Follower& follower, const Moment& moment,
                                  double another = 0.0) const;
  /// The least limit of those that were sending up to a pause, or are in a silence with it, and for
  /// whom it is too long; empty where it is for none.
  [[nodiscard]] std::optional<double> LimitOfOneThatMissesIn(const Pause& pause);
  /// One of few cycles only on silences that began behind its last frame, where no older one lasts.
  [[nodiscard]] bool MayDecide(const Follower& follower, const Moment& moment) const;
  [[nodiscard]] static bool IsOverdue(const Follower& follower, const Moment& moment);
  void List(Follower& follower);
  void AddPause(const Pause& pause, bool is_to_a_stray);
  void Decide(const Follower& follower, const Moment& moment);
  [[nodiscard]] CommonReturn ReturnOfTheMissing(const Moment& since) const;
  void DecideAtTheEnd();
  void DecideAtTheEndBetween(std::size_t first, std::size_t end);
  void AddCommon(const std::vector<Pause>& pauses);
  void AddOneOfAll(const Pause& pause);
  void Follow(Follower& follower, const Moment& moment);

  const RunStatistics& run_;
  JudgedRun result_;
  Moment last_;
  UndecidedPauses pauses_;  // none that was sending up to them has come since, but with few cycles
  std::optional<Doubt> doubt_;
  std::deque<Seen> held_;  // none without a doubt
  LongestSilences common_gaps_{kCommon_MAX};
  std::vector<Follower> followers_;  // by their cycles
  // By limit. Those who have stopped are here up to the next pause that is too long for them and in
  // no silence of theirs that lasts.
  std::vector<Follower*> sending_;
  std::unordered_map<std::uint64_t, std::size_t> places_;  // of them, by their keys
};

}  // namespace tolvane::logtool
