#pragma once

#include <deque>
#include <vector>

#include "platform/folder_dialog.h"

namespace tolvane::platform::memory {

/// Answers each opening from a script, and cancels when the script is at its end.
class FolderDialog final : public platform::FolderDialog {
 public:
  [[nodiscard]] std::optional<String> ShowFolder(StringView start) override {
    starts_.emplace_back(start);
    if (answers_.empty()) return std::nullopt;
    String answer = std::move(answers_.front());
    answers_.pop_front();
    return answer;
  }
  void Answer(StringView folder) { answers_.emplace_back(folder); }
  /// Where each opening was to begin.
  [[nodiscard]] const std::vector<String>& Starts() const { return starts_; }

 private:
  std::deque<String> answers_;
  std::vector<String> starts_;
};

}  // namespace tolvane::platform::memory
