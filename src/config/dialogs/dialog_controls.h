#pragma once

#include <array>
#include <cstddef>
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

/// Ties the buttons of an option group to the values of a setting, by place. A setting that holds
/// none of the values selects no button, and with no button selected nothing is written.
template <std::size_t N>
struct OptionValues {
  std::array<std::int32_t, N> values;

  void Show(std::int32_t setting, std::array<Choice, N>& buttons) const {
    for (std::size_t i = 0; i < N; ++i) buttons[i].checked = setting == values[i];
  }
  void Take(const std::array<Choice, N>& buttons, std::int32_t& setting) const {
    for (std::size_t i = 0; i < N; ++i) {
      if (buttons[i].checked) setting = values[i];
    }
  }
};

}  // namespace tolvane
