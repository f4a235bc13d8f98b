#include "logging/csv_channel.h"

#include <algorithm>
#include <new>

namespace tolvane {

bool CsvChannel::HasLines() const {
  const auto has_end = [](StringView text) { return text.find(u'\n') != StringView::npos; };
  return std::ranges::any_of(unwritten_, has_end) || has_end(builder_.Text());
}

bool CsvChannel::WriteTo(platform::TextStream& stream) const {
  return std::ranges::all_of(unwritten_, [&](const String& text) { return stream.Write(text); }) &&
         stream.Write(builder_.Text());
}

void CsvChannel::KeepForTheNextFlush() {
  if (builder_.mTextLength == 0) return;
  try {
    unwritten_.emplace_back(builder_.Text());
  } catch (const std::bad_alloc&) {
    return;  // it stays where it is, and further lines are appended while there is room
  }
  unwritten_length_ += unwritten_.back().size();
  builder_.AllClear();
}

void CsvChannel::AllClear() {
  unwritten_ = {};
  unwritten_length_ = 0;
  builder_.AllClear();
}

}  // namespace tolvane
