#include "tests/faults/written_logs.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "platform/utf8.h"

namespace tolvane::faults {
namespace {

constexpr std::string_view kEndOfHead = ",DLC,  D1,D2,D3,D4,D5,D6,D7,D8\r\n";
constexpr std::string_view kBytes = "00,11,22,33,44,55,66,77";  // of a record's end

/// Marks the frames whose records stand in a csv log behind its head.
void FindRecords(std::string_view log, std::vector<bool>& found) {
  const std::size_t head = log.rfind(kEndOfHead);
  if (head == std::string_view::npos) return;
  log.remove_prefix(head + kEndOfHead.size());
  for (std::size_t end; (end = log.find("\r\n")) != std::string_view::npos;) {
    const std::string_view record = log.substr(0, end);
    log.remove_prefix(end + 2);
    if (record.size() < kBytes.size()) continue;
    const FrameNumber frame = WrittenLogs::NumberOf(record.substr(record.size() - kBytes.size()));
    if (frame >= 0 && static_cast<std::size_t>(frame) < found.size()) {
      found[static_cast<std::size_t>(frame)] = true;
    }
  }
}

}  // namespace

FrameNumber WrittenLogs::NumberOf(std::string_view bytes) {
  if (bytes.size() != kBytes.size()) return -1;
  FrameNumber frame = 0;
  for (std::size_t at = bytes.size() + 1; at > 0;) {
    at -= 3;
    std::uint8_t byte = 0;
    const char* const end = bytes.data() + at + 2;
    if (std::from_chars(bytes.data() + at, end, byte, 16).ptr != end || frame > 0xFFFF) return -1;
    frame = frame * 0x100 + byte;
  }
  return frame;
}

void WrittenLogs::BeginRun(Form form) {
  form_ = form;
  accepted_ = 0;
  channels_ = {};
  current_ = row_ = 0;
  due_.clear();
  in_books_.clear();
  of_run_.clear();
}

void WrittenLogs::Accepted(FrameNumber frame) {
  accepted_ = std::max(accepted_, frame + 1);
  if (form_ == Form::kNone) return;
  auto& channel = channels_[current_];
  if (form_ == Form::kWorkbook && row_ < channel.size()) {
    channel[row_] = frame;
  } else {
    channel.push_back(frame);
  }
  ++row_;
}

void WrittenLogs::BeginFile() {
  flushed_ = current_;
  current_ = 1 - current_;
  row_ = 0;
}

void WrittenLogs::MoveToFiles(std::vector<FrameNumber>& channel) {
  due_.insert(due_.end(), channel.begin(), channel.end());
}

void WrittenLogs::Written(StringView path) {
  Keep(path);
  if (form_ == Form::kNone || !path.ends_with(u".csv")) return;
  of_run_.emplace_back(path);
  MoveToFiles(channels_[flushed_]);
  channels_[flushed_].clear();
}

void WrittenLogs::Saved(StringView path, const std::vector<FrameNumber>& frames) {
  Keep(path);
  of_run_.emplace_back(path);
  in_books_.insert(in_books_.end(), frames.begin(), frames.end());
  MoveToFiles(channels_[flushed_]);
}

void WrittenLogs::ClosedWorkbook() { channels_[flushed_].clear(); }

std::vector<bool> WrittenLogs::Found() const {
  std::vector<bool> found(static_cast<std::size_t>(accepted_));
  for (const FrameNumber frame : in_books_) found[static_cast<std::size_t>(frame)] = true;
  for (const String& path : of_run_) {
    if (path.ends_with(u".csv")) FindRecords(files_.Bytes(path).value_or(""), found);
  }
  return found;
}

std::vector<std::string> WrittenLogs::Complaints(bool may_hold_back) const {
  std::vector<std::string> complaints;
  const std::vector<bool> found = Found();
  const auto missing = [&found](FrameNumber frame) {
    return !found[static_cast<std::size_t>(frame)];
  };
  if (const auto count = std::ranges::count_if(due_, missing); count > 0) {
    complaints.push_back(std::to_string(count) + " of " + std::to_string(due_.size()) +
                         " frames are missing from the log, the first is " +
                         std::to_string(*std::ranges::find_if(due_, missing)));
  }
  if (form_ != Form::kNone && row_ > 0) complaints.emplace_back("the last frames got no file");
  if (form_ != Form::kNone && !may_hold_back && std::ranges::count(found, false) > 0) {
    complaints.emplace_back("no file failed, and frames are missing");
  }
  for (const auto& [path, bytes] : bytes_) {
    if (files_.Bytes(path) != bytes) complaints.push_back(ToUtf8(path) + " was written over");
  }
  return complaints;
}

}  // namespace tolvane::faults
