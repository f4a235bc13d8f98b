#include "tools/log/runs/stamp_turn.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

#include "platform/utf8.h"
#include "run/adapter_kind.h"
#include "run/number_text.h"
#include "tools/log/runs/clock_jump.h"

namespace tolvane::logtool {

namespace {

constexpr double kHighestReading = std::numeric_limits<std::int32_t>::max() / 1000;  // ms, whole
constexpr double kWord = (std::int64_t{1} << 32) / 1000;
constexpr double kWrap = AdapterTraitsOf(AdapterKind::kInterface).timer_wrap;
// A bus that is silent for longer over the turn hides it: a board that is reset steps back too.
constexpr double kSilence_MAX = 60'000;  // ms

std::string MsText(double ms) { return ToUtf8(DecimalText(ms)) + " ms"; }

}  // namespace

double StampTurn::StepBack() { return kWord - kWrap; }

bool StampTurn::Look(double time) {
  const bool has_turned = found_.has_value();
  const double step = has_last_ ? time - last_ : 0.0;
  const double distance = step + StepBack();
  if (origin_most_ > 0.0) {
    TakeJump(step);
  } else if (step < 0.0 && distance >= 0.0 && distance <= kSilence_MAX) {
    TakeStep(distance);
  }
  has_last_ = true;
  last_ = time;
  return !has_turned && found_;
}

void StampTurn::TakeStep(double distance) {
  ahead_ -= StepBack();
  if (found_) {
    ++found_->steps;
    return;
  }
  found_ = {.at = last_};
  origin_most_ = std::max(0.0, kHighestReading - last_);
  origin_distance_ = distance;
}

void StampTurn::TakeJump(double step) {
  const double most = std::min(origin_most_, step);
  const double least = std::max(0.0, origin_most_ - origin_distance_);
  origin_most_ = 0.0;
  if (most < least) return;  // no line of the program's
  const double doubt = (most - least) / 2.0;
  found_->jump = least + std::floor(doubt);
  found_->doubt = std::ceil(doubt);
  ahead_ += found_->jump;
}

std::string TextOf(const StampTurn::Found& turn, bool is_mended) {
  std::string text = "behind " + MsText(turn.at) + " the time steps back by " +
                     MsText(StampTurn::StepBack()) + ", as the board's stamps turn negative there";
  if (turn.jump > 0.0) {
    text += "; at the frame behind it jumps ahead by " + MsText(turn.jump) + ", right to " +
            MsText(turn.doubt);
  }
  if (turn.steps > 1) text += "; it steps back " + std::to_string(turn.steps) + " times in all";
  return text + (is_mended ? "; this is taken out of the times" : "; see --mend-clock");
}

bool HasSignedStamps(const LogHead& head) {
  return AdapterOf(head) == &AdapterTraitsOf(AdapterKind::kInterface);
}

}  // namespace tolvane::logtool
