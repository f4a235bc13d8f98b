#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "config/dialogs/dialog_controls.h"
#include "platform/string.h"

namespace tolvane {

// A dialog has one list of its controls and their settings, which is gone through in either way:
// to show the settings and to take what the controls hold. The rule of a pair knows both ways.

inline constexpr auto kShow = [](auto& control, const auto& setting, const auto& rule) {
  rule.Show(setting, control);
};
inline constexpr auto kTake = [](const auto& control, auto& setting, const auto& rule) {
  rule.Take(control, setting);
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

/// A check box, which `on` alone checks.
struct CheckValues {
  std::int32_t on = 1;
  std::int32_t off = 0;

  void Show(std::int32_t setting, Choice& box) const { box.checked = setting == on; }
  void Take(const Choice& box, std::int32_t& setting) const { setting = box.checked ? on : off; }
};

/// A whole number from `low` to `high`, of which the setting holds `scale` times as much. Anything
/// else that is typed leaves the setting.
struct WholeNumber {
  std::int32_t low;
  std::int32_t high;
  std::int32_t scale = 1;

  void Show(std::int32_t setting, TextControl& box) const;
  void Take(const TextControl& box, std::int32_t& setting) const;
};

/// A number from `low` to `high`. Anything else that is typed leaves the setting.
struct DecimalNumber {
  double low;
  double high;

  void Show(double setting, TextControl& box) const;
  void Take(const TextControl& box, double& setting) const;
};

/// A text or a colour, without any check.
struct AsItStands {
  static void Show(const String& setting, TextControl& box) { box.text = setting; }
  static void Take(const TextControl& box, String& setting) { setting = box.text; }
  static void Show(std::int32_t setting, ColourButton& button) { button.back_colour = setting; }
  static void Take(const ColourButton& button, std::int32_t& setting) {
    setting = button.back_colour;
  }
};

}  // namespace tolvane
