#include "logging/csv_channel.h"

#include <algorithm>
#include <new>

namespace tolvane {

bool CsvChannel::MakeRoom() {
  SetAside();
  if (block_ == nullptr) block_.reset(new (std::nothrow) char[kBlock]);
  return block_ != nullptr && length_ == 0;
}

void CsvChannel::TakeMemory() {
  if (block_ == nullptr && MakeRoom()) std::fill_n(block_.get(), kBlock, '\0');
}

bool CsvChannel::HasLines() const {
  const auto has_end = [](std::string_view text) { return text.find('\n') != text.npos; };
  return std::ranges::any_of(unwritten_, has_end) || has_end(Block());
}

bool CsvChannel::WriteTo(platform::TextStream& stream) const {
  const auto write = [&stream](std::string_view text) { return stream.WriteAscii(text); };
  return std::ranges::all_of(unwritten_, write) && write(Block());
}

void CsvChannel::SetAside() {
  if (length_ == 0) return;
  try {
    unwritten_.emplace_back(Block());
  } catch (const std::bad_alloc&) {
    return;
  }
  unwritten_length_ += length_;
  length_ = 0;
}

void CsvChannel::AllClear() {
  unwritten_ = {};
  unwritten_length_ = 0;
  length_ = 0;
}

}  // namespace tolvane
