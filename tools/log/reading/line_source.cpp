#include "tools/log/reading/line_source.h"

#include <cstring>
#include <span>

namespace tolvane::logtool {

LineSource::Outcome LineSource::Next(std::string_view& line) {
  if (const void* const found = std::memchr(room_.data() + begin_, '\n', end_ - begin_);
      found != nullptr && !skips_) {
    Take(static_cast<std::size_t>(static_cast<const char*>(found) - room_.data()), line);
    return Outcome::kLine;
  }
  return NextOfRefilled(line);
}

LineSource::Outcome LineSource::NextOfRefilled(std::string_view& line) {
  std::size_t looked = skips_ ? begin_ : end_;
  for (;;) {
    const std::string_view room(room_.data(), end_);
    if (const std::size_t found = room.find('\n', looked); found != std::string_view::npos) {
      const bool was_skipped = skips_;
      skips_ = false;
      Take(found, line);
      if (!was_skipped) return Outcome::kLine;
      return Next(line);
    }
    if (skips_) begin_ = end_;
    if (at_end_) {
      if (begin_ == end_) return Outcome::kEnd;
      Take(end_, line);
      return Outcome::kLine;
    }
    if (end_ - begin_ == kLine_MAX) {
      begin_ = end_;
      skips_ = true;
      return Outcome::kTooLong;
    }
    if (end_ - begin_ == room_.size()) room_.resize(room_.size() * 2);
    const std::size_t left = end_ - begin_;
    if (!Refill()) return Outcome::kUnreadable;
    looked = left;
  }
}

bool LineSource::Refill() {
  std::memmove(room_.data(), room_.data() + begin_, end_ - begin_);
  end_ -= begin_;
  begin_ = 0;
  const auto read = bytes_.Read(std::span(room_).subspan(end_));
  if (!read) return false;
  end_ += *read;
  at_end_ = *read == 0;
  return true;
}

void LineSource::Take(std::size_t end, std::string_view& line) {
  std::size_t length = end - begin_;
  if (length > 0 && room_[end - 1] == '\r') --length;
  line = {room_.data() + begin_, length};
  begin_ = end < end_ ? end + 1 : end;
}

}  // namespace tolvane::logtool
