#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "logging/csv_line.h"
#include "logging/log_table.h"
#include "platform/file_services.h"

namespace tolvane {

/// The csv text of one channel. Lines go into one block, which has room for a channel of the
/// longest. Text that a flush could not write is kept before the lines that follow, in separate
/// pieces: copying it into longer storage would hold up reception, and would need a single block of
/// memory that the x86 program may not have.
class CsvChannel {
 public:
  CsvChannel() = default;
  explicit CsvChannel(std::string text) : unwritten_length_(text.size()) {
    unwritten_.push_back(std::move(text));
  }

  /// Room for a line after the text, kCsvLine_MAX bytes; null when the text would be longer than
  /// `most` bytes with the longest line, or there is no memory. Take adds what was written there to
  /// the text.
  [[nodiscard]] char* ReserveLine(std::size_t most) {
    if (unwritten_length_ + length_ + kCsvLine_MAX > most) return nullptr;
    const bool fits = block_ != nullptr && length_ + kCsvLine_MAX <= kBlock;
    return fits || MakeRoom() ? block_.get() + length_ : nullptr;
  }
  void Take(std::size_t length) { length_ += length; }

  /// Takes the memory of a whole channel, ahead of the lines.
  void TakeMemory();

  /// True when there is at least one line. The stray zeros of 29-bit mode alone are not a line.
  [[nodiscard]] bool HasLines() const;
  [[nodiscard]] bool WriteTo(platform::TextStream& stream) const;
  /// After a flush that did not write the text: keeps it for the next one. Without memory for that
  /// it stays in the block, and lines are appended while there is room.
  void SetAside();
  /// Keeps the block for the next text.
  void AllClear();

 private:
  static constexpr std::size_t kBlock = (LogTable::kRow_MAX + 1) * kCsvLine_MAX;

  /// An empty block, the text of a full one set aside; false without memory.
  [[nodiscard]] bool MakeRoom();
  [[nodiscard]] std::string_view Block() const { return {block_.get(), length_}; }

  std::vector<std::string> unwritten_;  // in order
  std::size_t unwritten_length_ = 0;
  std::unique_ptr<char[]> block_;  // from the first line on; not filled
  std::size_t length_ = 0;         // of the text in the block
};

}  // namespace tolvane
