#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "platform/file_services.h"
#include "view/tables/stringbuilder.h"

namespace tolvane {

/// The csv text of one channel. What a flush could not write stays ahead of the lines that follow,
/// in pieces of its own: moving it to longer storage would hold up the reception, and take a block
/// of memory that the x86 program does not have in one piece.
class CsvChannel {
 public:
  CsvChannel() = default;
  explicit CsvChannel(String text) : unwritten_length_(text.size()) {
    unwritten_.push_back(std::move(text));
  }

  /// Room for `length` characters behind the text, null when the whole would pass `most` or there
  /// is no memory. Take counts in what was written there.
  [[nodiscard]] char16_t* Reserve(std::size_t length, std::size_t most) {
    return Length() + length <= most ? builder_.Reserve(length) : nullptr;
  }
  void Take(std::size_t length) { builder_.Take(length); }

  /// Whether there is a line at all: the zeros that 29-bit mode strays into a channel make none.
  [[nodiscard]] bool HasLines() const;
  [[nodiscard]] bool WriteTo(platform::TextStream& stream) const;
  /// After a flush that did not write the text.
  void KeepForTheNextFlush();
  /// Storage of the size of a usual channel stays for the next text.
  void AllClear();

 private:
  [[nodiscard]] std::size_t Length() const {
    return unwritten_length_ + static_cast<std::size_t>(builder_.mTextLength);
  }

  std::vector<String> unwritten_;  // in order
  std::size_t unwritten_length_ = 0;
  StringBuilder builder_;
};

}  // namespace tolvane
