#include "view/back_page.h"

#include <algorithm>

namespace tolvane {

void BackPage::Text(StringView text) {
  page_->text.assign(text);
  page_->colours.Clear();
  page_->backgrounds.Clear();
  sel_start_ = 0;
  sel_length_ = 0;
}

void BackPage::Paint(platform::ColourRuns& runs, std::int32_t colour) {
  const auto length = static_cast<std::int64_t>(page_->text.size());
  const std::int64_t start = std::max(sel_start_, 0);
  const std::int64_t end = std::min(start + sel_length_, length);
  if (end <= start) return;
  runs.Paint(static_cast<std::int32_t>(start), static_cast<std::int32_t>(end), colour);
}

}  // namespace tolvane
