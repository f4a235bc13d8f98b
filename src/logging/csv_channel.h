#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "logging/csv_line.h"
#include "logging/log_table.h"
#include "platform/file_services.h"
#include "view/tables/stringbuilder.h"

namespace tolvane {

/// The csv text of one channel. Text that a flush could not write is kept before the lines that
/// follow, in separate pieces: copying it into longer storage would hold up reception, and would
/// need a single block of memory that the x86 program may not have.
class CsvChannel {
 public:
  CsvChannel() = default;
  explicit CsvChannel(String text) : unwritten_length_(text.size()) {
    unwritten_.push_back(std::move(text));
  }

  /// Room for `length` characters after the text; null when the text would then be longer than
  /// `most` or there is no memory. Take adds what was written there to the text.
  [[nodiscard]] char16_t* Reserve(std::size_t length, std::size_t most) {
    return Length() + length <= most ? builder_.Reserve(length) : nullptr;
  }
  void Take(std::size_t length) { builder_.Take(length); }

  /// Takes the memory of a whole channel, ahead of the lines.
  void TakeMemory() { builder_.TakeMemory(); }

  /// True when there is at least one line. The stray zeros of 29-bit mode alone are not a line.
  [[nodiscard]] bool HasLines() const;
  [[nodiscard]] bool WriteTo(platform::TextStream& stream) const;
  /// After a flush that did not write the text.
  void KeepForTheNextFlush();
  /// Keeps the builder's storage for the next text.
  void AllClear();

 private:
  /// Characters of the longest lines that there can be.
  static constexpr std::int32_t kWholeChannel =
      (LogTable::kRow_MAX + 1) * static_cast<std::int32_t>(kCsvLine_MAX);

  [[nodiscard]] std::size_t Length() const {
    return unwritten_length_ + static_cast<std::size_t>(builder_.mTextLength);
  }

  std::vector<String> unwritten_;  // in order
  std::size_t unwritten_length_ = 0;
  StringBuilder builder_{kWholeChannel};
};

}  // namespace tolvane
