#include "platform/memory/main_window/controls.h"

namespace tolvane::platform::memory {

void ComboBox::ListIndex(std::int32_t index) {
  journal_.Assign(name_, "ListIndex", static_cast<double>(index));
  selected_ = HasLine(index) ? index : -1;
  if (selected_ >= 0 && on_click_) on_click_();
}

String ComboBox::Text() const {
  return HasLine(selected_) ? lines_[static_cast<std::size_t>(selected_)] : String();
}

}  // namespace tolvane::platform::memory
