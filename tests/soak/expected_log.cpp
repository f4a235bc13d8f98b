#include "tests/soak/expected_log.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace tolvane::soak {
namespace {

constexpr std::size_t kShownOfLine = 100;
constexpr std::size_t kDigits29 = 8;
constexpr std::uint32_t kSevenDigitId = 0xFFFFFFF;  // the one that gets no zero in front

template <typename... Values>
void AppendPrinted(std::string& text, const char* format, Values... values) {
  std::array<char, 32> piece;
  const int length = std::snprintf(piece.data(), piece.size(), format, values...);
  text.append(piece.data(), static_cast<std::size_t>(length));
}

std::size_t HeaderSize(const std::string& file) {
  std::size_t end = 0;
  for (int line = 0; line < ExpectedLog::kHeaderLines; ++line) {
    end = file.find('\n', end);
    if (end == std::string::npos) return file.size();
    ++end;
  }
  return end;
}

std::string LineAt(const std::string& text, std::size_t position) {
  const std::size_t start = position == 0 ? 0 : text.rfind('\n', position - 1) + 1;
  const std::string line = text.substr(start, text.find('\r', start) - start);
  // Thousands of stray zeros may come first.
  return line.size() <= kShownOfLine ? line : "..." + line.substr(line.size() - kShownOfLine);
}

}  // namespace

ExpectedLog::ExpectedLog(const simulator::LoadPlan& plan, const AdapterTime& time, bool ids29)
    : bus_(plan), time_(time), frames_(plan.frames), ids29_(ids29) {}

std::string ExpectedLog::NextFile() {
  const bool first_channel = files_++ % 2 == 0;
  std::string records = first_channel ? std::exchange(stray_zeros_, {}) : std::string();
  simulator::BusFrame frame;
  for (std::int64_t i = 0; i < kRecordsPerFile && bus_.Next(frame); ++i) {
    AppendRecord(frame, first_channel, records);
  }
  return records;
}

/// The adapter's stamps count up to a range and start over. Behind the first wrap the line jumps,
/// once, by the first stamp.
std::int64_t ExpectedLog::TimeOf(const simulator::BusFrame& frame) {
  const std::int64_t wrap = time_.stamps.range / time_.ticks_per_ms;
  const std::int64_t stamp =
      simulator::Stamp(time_.stamps, time_.faults, frame.time_us) / time_.ticks_per_ms;
  if (!std::exchange(started_, true)) origin_ = stamp;
  const std::int64_t elapsed = stamp - origin_;
  const bool wrapped = elapsed < elapsed_;
  line_ += elapsed - elapsed_ + (wrapped ? wrap : 0);
  elapsed_ = elapsed;
  if (wrapped) origin_ = 0;
  return line_;
}

void ExpectedLog::AppendRecord(const simulator::BusFrame& frame, bool first_channel,
                               std::string& records) {
  AppendPrinted(records, "%10lld , ", static_cast<long long>(TimeOf(frame)));
  if (ids29_) {
    records += frame.extended ? "* , " : "  , ";
    std::string digits;
    AppendPrinted(digits, "%X", frame.id);
    const std::size_t zeros = frame.id == kSevenDigitId ? 0 : kDigits29 - digits.size();
    (first_channel ? records : stray_zeros_).append(zeros, '0');
    records += digits;
  } else {
    AppendPrinted(records, "%03X", frame.id);
  }
  AppendPrinted(records, " , %d", frame.dlc);
  for (std::size_t i = 0; i < frame.dlc; ++i) {
    AppendPrinted(records, i == 0 ? " ,  %02X" : ",%02X", frame.data[i]);
  }
  records += "\r\n";
}

std::string FirstDifference(const std::string& file, const std::string& records) {
  const std::string found = file.substr(HeaderSize(file));
  if (found == records) return {};
  const auto position =
      static_cast<std::size_t>(std::ranges::mismatch(found, records).in1 - found.begin());
  const auto record =
      std::count(found.begin(), found.begin() + static_cast<std::ptrdiff_t>(position), '\n');
  return "record " + std::to_string(record + 1) + ": \"" + LineAt(found, position) +
         "\", expected \"" + LineAt(records, position) + "\"";
}

}  // namespace tolvane::soak
