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
  /// than a whole block only what fits is kept.
  void Append(StringView AppendString) {
    const auto end = static_cast<std::size_t>(mTextLength) + AppendString.size();
    if (end > mBuffer.size()) {
      AppendGrown(AppendString);
      return;
    }
    AppendString.copy(mBuffer.data() + mTextLength, AppendString.size());
    mTextLength = static_cast<std::int32_t>(end);
  }

  /// Room for `length` characters behind the text, at most mGrowStep, for text that is made in
  /// place; Take counts in what was written there. Valid until the next change.
  [[nodiscard]] char16_t* Reserve(std::size_t length) {
    if (static_cast<std::size_t>(mTextLength) + length > mBuffer.size()) Grow();
    return mBuffer.data() + mTextLength;
  }
  void Take(std::size_t length) { mTextLength += static_cast<std::int32_t>(length); }

  /// The first mTextLength characters. Valid until the next change.
  [[nodiscard]] StringView Text() const {
    return StringView(mBuffer).substr(0, static_cast<std::size_t>(mTextLength));
  }

  /// Empties the text. The storage is kept for the next one, which is what a new buffer would be
  /// filled with anyway.
  void AllClear() { mTextLength = 0; }

  std::int32_t mTextLength = 0;  // characters in use

 private:
  void Grow();
  void AppendGrown(StringView AppendString);

  String mBuffer;
  std::int32_t mGrowStep = 1'200'000;  // characters
};

}  // namespace tolvane
