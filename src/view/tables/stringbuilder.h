#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/string.h"

namespace tolvane {

/// Text buffer that appends into one pre-sized block. mTextLength is the position counter that
/// every coloured region of a page is derived from.
class StringBuilder {
 public:
  /// Adds text; an empty string does nothing. When the buffer is too short, one block of mGrowStep
  /// NUL characters is added first: once, whatever the new length, so that of an append longer
  /// than a whole block only what fits is kept, while mTextLength grows by all of it.
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

  /// Room for `length` characters behind the text, for text that is made in place; Take counts in
  /// what was written there. Valid until the next change. Grows by whole blocks; null, with the
  /// text as it was, when there is no memory for them.
  [[nodiscard]] char16_t* Reserve(std::size_t length) {
    const bool fits = static_cast<std::size_t>(mTextLength) + length <= size_;
    return fits || GrowFor(length) ? mBuffer.data() + mTextLength : nullptr;
  }
  void Take(std::size_t length) { mTextLength += static_cast<std::int32_t>(length); }

  /// The first mTextLength characters. Valid until the next change.
  [[nodiscard]] StringView Text() const {
    return StringView(mBuffer).substr(0, size_).substr(0, static_cast<std::size_t>(mTextLength));
  }

  /// Empties text and buffer. The storage stays for the next text, which sees nothing of the last.
  void AllClear() {
    mTextLength = 0;
    size_ = 0;
  }

  std::int32_t mTextLength = 0;  // characters in use

 private:
  void Grow();
  [[nodiscard]] bool GrowFor(std::size_t length);
  void AppendGrown(StringView AppendString);

  String mBuffer;                      // storage, never given back
  std::size_t size_ = 0;               // the buffer's length: a number of whole blocks
  std::int32_t mGrowStep = 1'200'000;  // characters
};

}  // namespace tolvane
