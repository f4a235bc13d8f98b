#pragma once

#include <map>

#include "platform/help_window.h"
#include "platform/memory/system/journal.h"

namespace tolvane::platform::memory {

class HelpWindow final : public platform::HelpWindow {
 public:
  explicit HelpWindow(Journal& journal) : journal_(journal) {}

  void Show() override {
    journal_.Note("FormHelp.Show()");
    visible_ = true;
  }
  void Hide() override {
    journal_.Note("FormHelp.Hide()");
    visible_ = false;
  }
  [[nodiscard]] bool Visible() const override { return visible_; }
  void TB_View(StringView text) override { journal_.Assign("FormHelp", "TB_View", text); }

 private:
  Journal& journal_;
  bool visible_ = false;
};

class StringResources final : public platform::StringResources {
 public:
  [[nodiscard]] String LoadText(std::int32_t number) override {
    const auto text = texts_.find(number);
    return text == texts_.end() ? String() : text->second;
  }
  void Put(std::int32_t number, StringView text) { texts_[number] = String(text); }

 private:
  std::map<std::int32_t, String> texts_;
};

}  // namespace tolvane::platform::memory
