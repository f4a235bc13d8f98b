#pragma once

#include <cstdint>
#include <optional>

namespace tolvane::platform {

/// The system's dialog for choosing a colour: CommonDialog1 of the settings dialogs.
class ColourDialog {
 public:
  virtual ~ColourDialog() = default;
  /// The chosen colour, red in the low byte; empty when the user cancelled. Modal over the settings
  /// dialog that asks; pumps messages meanwhile.
  [[nodiscard]] virtual std::optional<std::int32_t> ShowColor() = 0;
};

}  // namespace tolvane::platform
