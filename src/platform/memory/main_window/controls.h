#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/controls.h"
#include "platform/memory/system/journal.h"
#include "platform/utf8.h"

namespace tolvane::platform::memory {

/// A control whose only property is Enabled: a push button or a menu item.
template <typename Base>
class EnabledControl final : public Base {
 public:
  EnabledControl(Journal& journal, std::string name, bool enabled)
      : journal_(journal), name_(std::move(name)), enabled_(enabled) {}

  [[nodiscard]] bool Enabled() const { return enabled_; }
  void Enabled(bool enabled) override {
    enabled_ = enabled;
    journal_.Assign(name_, "Enabled", enabled);
  }

 private:
  Journal& journal_;
  std::string name_;
  bool enabled_;
};

using Button = EnabledControl<platform::Button>;
using MenuItem = EnabledControl<platform::MenuItem>;

class Picture final : public platform::Picture {
 public:
  Picture(Journal& journal, std::string name) : journal_(journal), name_(std::move(name)) {}

  [[nodiscard]] bool Visible() const { return visible_; }
  void Visible(bool visible) override {
    visible_ = visible;
    journal_.Assign(name_, "Visible", visible);
  }

 private:
  Journal& journal_;
  std::string name_;
  bool visible_ = false;
};

class TextBox final : public platform::TextBox {
 public:
  TextBox(Journal& journal, std::string name, String text)
      : journal_(journal), name_(std::move(name)), text_(std::move(text)) {}

  [[nodiscard]] String Text() const override { return text_; }
  void Text(StringView text) override {
    text_ = text;
    journal_.Assign(name_, "Text", text);
  }
  [[nodiscard]] bool Locked() const { return locked_; }
  void Locked(bool locked) override {
    locked_ = locked;
    journal_.Assign(name_, "Locked", locked);
  }
  void SetFocus() override { journal_.Note(name_ + ".SetFocus()"); }

  /// What the user types, whatever stood there before; nothing while the box is locked.
  void Type(StringView text) {
    if (!locked_) text_ = text;
  }

 private:
  Journal& journal_;
  std::string name_;
  String text_;
  bool locked_ = false;
};

class ComboBox final : public platform::ComboBox {
 public:
  ComboBox(Journal& journal, std::string name) : journal_(journal), name_(std::move(name)) {}

  [[nodiscard]] bool Enabled() const { return enabled_; }
  void Enabled(bool enabled) override {
    enabled_ = enabled;
    journal_.Assign(name_, "Enabled", enabled);
  }
  void AddItem(StringView text) override {
    lines_.emplace_back(text);
    journal_.Note(name_ + ".AddItem(\"" + ToUtf8(text) + "\")");
  }
  [[nodiscard]] std::int32_t ListIndex() const override { return selected_; }
  /// Raises the click handler. An index outside the list selects nothing and raises nothing.
  void ListIndex(std::int32_t index) override;
  [[nodiscard]] String Text() const override;

  /// The handler of a selection, in code or by the user.
  void OnClick(std::function<void()> handler) { on_click_ = std::move(handler); }
  [[nodiscard]] const std::vector<String>& Lines() const { return lines_; }

 private:
  [[nodiscard]] bool HasLine(std::int32_t index) const {
    return index >= 0 && static_cast<std::size_t>(index) < lines_.size();
  }

  Journal& journal_;
  std::string name_;
  std::vector<String> lines_;
  std::int32_t selected_ = -1;
  bool enabled_ = true;
  std::function<void()> on_click_;
};

}  // namespace tolvane::platform::memory
