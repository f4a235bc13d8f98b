#include "view/tables/stringbuilder.h"

#include <algorithm>
#include <new>

namespace tolvane {

void StringBuilder::Grow() {
  const std::size_t old_size = size_;
  const auto start = static_cast<std::size_t>(mTextLength);
  const std::size_t grown = old_size + static_cast<std::size_t>(mGrowStep);
  if (mBuffer.size() < grown) mBuffer.resize(grown);
  size_ = grown;
  if (start > old_size) {
    // An append longer than a block left a gap, which may hold characters of an earlier text.
    std::fill_n(mBuffer.begin() + static_cast<std::ptrdiff_t>(old_size),
                std::min(start, size_) - old_size, u'\0');
  }
}

void StringBuilder::TakeMemory() {
  if (size_ > 0) return;
  try {
    Grow();
  } catch (const std::bad_alloc&) {
    return;
  }
}

void StringBuilder::AppendGrown(StringView AppendString) {
  if (AppendString.empty()) return;
  Grow();
  const auto start = static_cast<std::size_t>(mTextLength);
  if (start < size_) AppendString.copy(mBuffer.data() + start, size_ - start);
  mTextLength += static_cast<std::int32_t>(AppendString.size());
}

}  // namespace tolvane
