#pragma once

#include <cstdint>

#include "platform/string.h"

namespace tolvane::platform {

// What the logic reads and writes of the main window's controls. Assigning a property raises no
// event of the control unless its comment says so.

class Button {
 public:
  virtual ~Button() = default;
  virtual void Enabled(bool enabled) = 0;
};

class MenuItem {
 public:
  virtual ~MenuItem() = default;
  virtual void Enabled(bool enabled) = 0;
};

class Picture {
 public:
  virtual ~Picture() = default;
  virtual void Visible(bool visible) = 0;
};

class TextBox {
 public:
  virtual ~TextBox() = default;
  [[nodiscard]] virtual String Text() const = 0;
  virtual void Text(StringView text) = 0;
  /// True while the user cannot edit the text; the program always can.
  virtual void Locked(bool locked) = 0;
  virtual void SetFocus() = 0;
};

/// A drop-down list without an edit field.
class ComboBox {
 public:
  virtual ~ComboBox() = default;
  virtual void Enabled(bool enabled) = 0;
  virtual void AddItem(StringView text) = 0;
  /// Zero-based line of the selection, -1 for none.
  [[nodiscard]] virtual std::int32_t ListIndex() const = 0;
  /// Selecting a line in code raises the list's click handler, also for the line that is selected
  /// already.
  virtual void ListIndex(std::int32_t index) = 0;
  /// Text of the selected line, empty for none.
  [[nodiscard]] virtual String Text() const = 0;
};

}  // namespace tolvane::platform
