#include "tests/soak/expected_log.h"

#include <algorithm>

namespace tolvane::soak {
namespace {

std::string Shown(std::string_view line) {
  constexpr std::size_t kShownOfLine = 100;
  line = line.substr(0, line.find_first_of("\r\n"));
  // Thousands of stray zeros may come first.
  if (line.size() <= kShownOfLine) return std::string(line);
  return "..." + std::string(line.substr(line.size() - kShownOfLine));
}

/// The line in which `position` is, and what is behind it.
std::string_view FromLineOf(std::string_view text, std::size_t position) {
  const std::size_t start = position == 0 ? 0 : text.rfind('\n', position - 1) + 1;
  return text.substr(start);
}

}  // namespace

std::size_t HeaderSize(std::string_view file) {
  std::size_t end = 0;
  for (int line = 0; line < ExpectedLog::kHeaderLines; ++line) {
    end = file.find('\n', end);
    if (end == std::string_view::npos) return file.size();
    ++end;
  }
  return end;
}

ExpectedLog::ExpectedLog(const simulator::LoadPlan& plan, const AdapterTime& time, bool ids29)
    : bus_(plan), time_(time), text_(time_, ids29), frames_(plan.frames) {}

std::string ExpectedLog::NextFile() {
  std::string records = text_.BeginFile();
  simulator::BusFrame frame;
  for (std::int64_t i = 0; i < kRecordsPerFile && bus_.Next(frame); ++i) {
    text_.Append(frame, records);
  }
  return records;
}

std::string Difference(std::int64_t record, std::string_view found, std::string_view expected) {
  return "record " + std::to_string(record) + ": \"" + Shown(found) + "\", expected \"" +
         Shown(expected) + "\"";
}

std::string FirstDifference(const std::string& file, const std::string& records) {
  const std::string_view found = std::string_view(file).substr(HeaderSize(file));
  if (found == records) return {};
  const auto position =
      static_cast<std::size_t>(std::ranges::mismatch(found, records).in1 - found.begin());
  const auto record = std::ranges::count(found.substr(0, position), '\n');
  return Difference(record + 1, FromLineOf(found, position), FromLineOf(records, position));
}

}  // namespace tolvane::soak
