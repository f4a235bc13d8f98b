#pragma once

#include <cstddef>
#include <vector>

#include "tools/log/info/silences.h"

namespace tolvane::logtool {

/// Of the bus, from one frame to the next.
struct Pause {
  Moment begin;
  Moment end;

  [[nodiscard]] double Length() const { return begin.To(end); }  // ms
};

/// Pauses that are too long for somebody, in the order of time, while nobody has told yet whether
/// the bus was silent in them. A place among them is a number from 0.
///
/// With each a silence of the bus begins, of which those pauses behind it that are too long as well
/// are further parts, while it lasts. It lasts as long as its parts are nine tenths of the time
/// since its begin.
class UndecidedPauses {
 public:
  /// Of more one goes whose silence is over, the shortest, as least is missing in it; only where
  /// none is over, the shortest of those that last.
  static constexpr std::size_t kPauses_MAX = 32;
  /// Of more parts the bus is one on which others send, and none of it is a silence.
  static constexpr std::size_t kParts_MAX = 16;

  [[nodiscard]] std::size_t Count() const { return undecided_.size(); }
  [[nodiscard]] const Pause& At(std::size_t place) const { return undecided_[place].parts.front(); }
  /// From a place on, to another one.
  [[nodiscard]] std::vector<Pause> Between(std::size_t first, std::size_t end) const;
  /// Those of them that are parts of the silence that begins with the first.
  [[nodiscard]] std::vector<Pause> PartsBetween(std::size_t first, std::size_t end) const;
  /// The place of the first that begins at this moment or later; Count() without one.
  [[nodiscard]] std::size_t FirstFrom(const Moment& moment) const;

  /// Whether the silence lasts up to this moment, at which another part of so many ms may end.
  [[nodiscard]] bool Lasts(std::size_t place, const Moment& moment, double another = 0.0) const {
    return undecided_[place].Lasts(moment, another);
  }
  /// Whether it does up to the end of its last part.
  [[nodiscard]] bool LastsThroughItsParts(std::size_t place) const;
  /// To be called with each pause of the bus, ahead of Part and Add: whether a silence that was
  /// over lasts again with it, since more of the time is silent again.
  [[nodiscard]] bool OneLastsAgainWith(const Pause& pause);
  /// One that is to a stray alone, in which nobody is missing, is a part of a silence that is over
  /// too: that may last again behind it.
  void Part(const Pause& pause, bool is_to_a_stray_alone);
  /// With the least limit, in ms, of those for whom it is too long.
  void Add(const Pause& pause, double limit);
  /// From a place on, to another one. In silences ahead of them they stay parts.
  void Drop(std::size_t first, std::size_t end);
  /// Takes pauses, which are dropped already, out of the silences of which they are further parts.
  void AreNoSilence(const std::vector<Pause>& pauses);
  /// Drops what begins behind this moment, to which the time has stepped back: it would stand ahead
  /// of what comes now.
  void StepBackTo(const Moment& moment);

 private:
  /// With the silence that begins with it.
  struct Undecided {
    double limit;              // ms
    double silent;             // ms; of all parts
    std::vector<Pause> parts;  // the pause itself, and those behind it
    bool lasted = true;        // at the last pause that is long enough for a part

    [[nodiscard]] bool Lasts(const Moment& moment, double another) const;
    /// Takes out those for which `is_out` holds, never the first.
    template <typename IsOut>
    void TakeOut(IsOut is_out);
  };

  std::vector<Undecided> undecided_;
};

}  // namespace tolvane::logtool
