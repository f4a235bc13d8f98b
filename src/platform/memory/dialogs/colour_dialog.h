#pragma once

#include <deque>

#include "platform/colour_dialog.h"

namespace tolvane::platform::memory {

/// Answers each opening from a script, and cancels when the script is at its end.
class ColourDialog final : public platform::ColourDialog {
 public:
  [[nodiscard]] std::optional<std::int32_t> ShowColor() override {
    if (answers_.empty()) return std::nullopt;
    const auto answer = answers_.front();
    answers_.pop_front();
    return answer;
  }
  void Answer(std::int32_t colour) { answers_.push_back(colour); }

 private:
  std::deque<std::int32_t> answers_;
};

}  // namespace tolvane::platform::memory
