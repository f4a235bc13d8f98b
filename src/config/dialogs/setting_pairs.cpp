#include "config/dialogs/setting_pairs.h"

#include "config/dialogs/number_input.h"
#include "run/number_text.h"

namespace tolvane {

void WholeNumber::Show(std::int32_t setting, TextControl& box) const {
  box.text = String(DecimalText(static_cast<double>(setting) / scale));
}

void WholeNumber::Take(const TextControl& box, std::int32_t& setting) const {
  if (const auto value = WholeNumberInput(box.text, low, high)) setting = *value * scale;
}

void DecimalNumber::Show(double setting, TextControl& box) const {
  box.text = String(DecimalText(setting));
}

void DecimalNumber::Take(const TextControl& box, double& setting) const {
  const auto value = DecimalInput(box.text);
  if (value && *value >= low && *value <= high) setting = *value;
}

}  // namespace tolvane
