#include "view/stringbuilder.h"

namespace tolvane {

void StringBuilder::Grow() { mBuffer.resize(mBuffer.size() + static_cast<std::size_t>(mGrowStep)); }

void StringBuilder::AppendGrown(StringView AppendString) {
  if (AppendString.empty()) return;
  Grow();
  const auto start = static_cast<std::size_t>(mTextLength);
  if (start < mBuffer.size()) AppendString.copy(mBuffer.data() + start, mBuffer.size() - start);
  mTextLength += static_cast<std::int32_t>(AppendString.size());
}

}  // namespace tolvane
