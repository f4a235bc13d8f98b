#pragma once

#include <cstdint>

#include "platform/colour_dialog.h"
#include "platform/string.h"

namespace tolvane {

// The controls of a settings dialog as plain values. A dialog's rules work on these; the window
// that shows them is bound to them, both ways, by the Windows side. Setting one raises no event.

/// A check box or one option button of a group.
struct Choice {
  bool checked = false;
  bool enabled = true;
};

/// A text box or a status text.
struct TextControl {
  String text;
  bool enabled = true;
  std::int32_t colour = 0;  // of the text, 0x00BBGGRR
};

/// A push button whose back colour is the setting.
struct ColourButton {
  std::int32_t back_colour = 0;

  /// Takes the colour that the user chooses; a cancelled dialog changes nothing.
  void Ask(platform::ColourDialog& dialog) {
    if (const auto colour = dialog.ShowColor()) back_colour = *colour;
  }
};

struct GroupBox {
  bool enabled = true;
};

}  // namespace tolvane
