#include "simulator/live_source.h"

#include <algorithm>
#include <utility>

#include "simulator/candump_log.h"
#include "simulator/values.h"

namespace tolvane::simulator {

LiveSource::LiveSource(std::unique_ptr<GrowingText> text, bool within_line, AtEnd at_end)
    : text_(std::move(text)),
      at_end_(std::move(at_end)),
      bytes_(kBytes_MAX),
      skips_line_(within_line) {}

LiveSource::~LiveSource() {
  if (at_end_ != nullptr) at_end_(counts_);
}

void LiveSource::Reach(std::int64_t bus_us) {
  now_us_ = bus_us;
  std::copy(bytes_.begin() + static_cast<std::ptrdiff_t>(first_),
            bytes_.begin() + static_cast<std::ptrdiff_t>(end_), bytes_.begin());
  end_ -= first_;
  first_ = 0;
  if (end_ == bytes_.size()) {  // no line is so long
    if (!std::exchange(skips_line_, true)) ++counts_.refused_lines;
    end_ = 0;
  }
  end_ += text_->Read(bytes_.data() + end_, bytes_.size() - end_);
}

bool LiveSource::TakeLine(std::string_view& line) {
  const std::string_view rest(bytes_.data() + first_, end_ - first_);
  const std::size_t length = rest.find('\n');
  if (length == std::string_view::npos) return false;
  line = Trim(rest.substr(0, length));
  first_ += length + 1;
  return true;
}

bool LiveSource::Next(BusFrame& frame) {
  for (std::string_view line; TakeLine(line);) {
    if (std::exchange(skips_line_, false) || line.empty()) continue;
    if (ParseCandumpLine(line, frame)) {
      frame.time_us = Stamp(frame.time_us);
      ++counts_.frames;
      return true;
    }
    ++counts_.refused_lines;
  }
  return false;
}

std::int64_t LiveSource::Stamp(std::int64_t line_us) {
  const std::int64_t at_once = now_us_ - line_us;
  const bool begins = last_line_us_ == INT64_MAX || line_us < last_line_us_ - kOutOfOrderUs_MAX;
  shift_us_ = begins ? at_once : std::min(shift_us_, at_once);
  last_line_us_ = line_us;
  last_us_ = std::max(line_us + shift_us_, last_us_);
  return last_us_;
}

}  // namespace tolvane::simulator
