#include "tests/soak/log_text.h"

#include <array>
#include <cstdio>
#include <utility>

namespace tolvane::soak {
namespace {

constexpr std::size_t kDigits29 = 8;
constexpr std::uint32_t kSevenDigitId = 0xFFFFFFF;  // the one that gets no zero in front

template <typename... Values>
void AppendPrinted(std::string& text, const char* format, Values... values) {
  std::array<char, 32> piece;
  const int length = std::snprintf(piece.data(), piece.size(), format, values...);
  text.append(piece.data(), static_cast<std::size_t>(length));
}

}  // namespace

std::string LogText::BeginFile() {
  first_channel_ = !first_channel_;
  return std::string(first_channel_ ? std::exchange(stray_zeros_, 0) : 0, '0');
}

/// The adapter's stamps count up to a range and start over. Behind the first wrap the line jumps,
/// once, by the first stamp.
std::int64_t LogText::TimeOf(const simulator::BusFrame& frame) {
  const std::int64_t wrap = time_->stamps.range / time_->ticks_per_ms;
  const std::int64_t stamp =
      simulator::Stamp(time_->stamps, time_->faults, frame.time_us) / time_->ticks_per_ms;
  if (!std::exchange(started_, true)) origin_ = stamp;
  const std::int64_t elapsed = stamp - origin_;
  const bool wrapped = elapsed < elapsed_;
  line_ += elapsed - elapsed_ + (wrapped ? wrap : 0);
  elapsed_ = elapsed;
  if (wrapped) origin_ = 0;
  return line_;
}

void LogText::Append(const simulator::BusFrame& frame, std::string& text) {
  AppendPrinted(text, "%10lld , ", static_cast<long long>(TimeOf(frame)));
  if (ids29_) {
    text += frame.extended ? "* , " : "  , ";
    std::string digits;
    AppendPrinted(digits, "%X", frame.id);
    const std::size_t zeros = frame.id == kSevenDigitId ? 0 : kDigits29 - digits.size();
    if (first_channel_) {
      text.append(zeros, '0');
    } else {
      stray_zeros_ += zeros;
    }
    text += digits;
  } else {
    AppendPrinted(text, "%03X", frame.id);
  }
  AppendPrinted(text, " , %d", frame.dlc);
  for (std::size_t i = 0; i < frame.dlc; ++i) {
    AppendPrinted(text, i == 0 ? " ,  %02X" : ",%02X", frame.data[i]);
  }
  text += "\r\n";
}

}  // namespace tolvane::soak
