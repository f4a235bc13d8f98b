#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/string.h"

namespace tolvane {

/// A text buffer that appends into one block sized in advance. The positions of a page's coloured
/// regions are taken from mTextLength.
class StringBuilder {
 public:
  /// `grow_step`: characters in a block.
  explicit StringBuilder(std::int32_t grow_step = 1'200'000) : mGrowStep(grow_step) {}

  /// Adds text; an empty string does nothing. When the buffer is too short, one block of mGrowStep
  /// NUL characters is added first, only one: if the text is longer than a block, only the part
  /// that fits is kept, but mTextLength grows by the full length.
  void Append(StringView AppendString) {
    const auto start = static_cast<std::size_t>(mTextLength);
    const std::size_t end = start + AppendString.size();
    if (end > size_) {
      AppendGrown(AppendString);
      return;
    }
    AppendString.copy(mBuffer.data() + start, AppendString.size());
    mTextLength = static_cast<std::int32_t>(end);
  }

  /// Room for `length` characters after the text, to be written in place; Take then adds them to
  /// the text. Valid until the next change. Grows by blocks; null, with the text unchanged, when
  /// there is no memory for them.
  [[nodiscard]] char16_t* Reserve(std::size_t length) {
    const bool fits = static_cast<std::size_t>(mTextLength) + length <= size_;
    return fits || GrowFor(length) ? mBuffer.data() + mTextLength : nullptr;
  }
  void Take(std::size_t length) { mTextLength += static_cast<std::int32_t>(length); }

  /// Has the first block in memory already: pages that are new to the process would cost the first
  /// text milliseconds. Where memory has run out, the first text tries again.
  void TakeMemory() { static_cast<void>(Reserve(1)); }

  /// The first mTextLength characters. Valid until the next change.
  [[nodiscard]] StringView Text() const {
    return StringView(mBuffer).substr(0, size_).substr(0, static_cast<std::size_t>(mTextLength));
  }

  /// Empties the text. The storage is kept for the next text.
  void AllClear() {
    mTextLength = 0;
    size_ = 0;
  }

  std::int32_t mTextLength = 0;  // characters in use

 private:
  void Grow();
  [[nodiscard]] bool GrowFor(std::size_t length);
  void AppendGrown(StringView AppendString);

  String mBuffer;         // storage, never given back
  std::size_t size_ = 0;  // the buffer's length, a multiple of mGrowStep
  std::int32_t mGrowStep;
};

}  // namespace tolvane
