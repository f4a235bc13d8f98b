#pragma once

#include <cstdint>

#include "platform/string.h"

namespace tolvane::platform {

/// qxt100.dll, the program's own support library: the clock and the colour fade.
class SupportLibrary {
 public:
  static constexpr StringView kFileInFolder = u"\\qxt100.dll";

  virtual ~SupportLibrary() = default;

  /// Makes the two exports callable. False when the file is missing from the program's folder, is
  /// no library of this program's bitness, or lacks an export; nothing else may be called then.
  [[nodiscard]] virtual bool Load() = 0;

  /// Milliseconds of the computer's clock: whole numbers, never going back during a run, sharper
  /// than 1 ms at the source.
  [[nodiscard]] virtual double qx_timeGetTime() = 0;

  /// `colour` (0x00BBGGRR) faded to the view's black text: `colour` itself at `remaining` equal to
  /// `total`, black at 0, each channel falling steadily between. `remaining` above `total` counts
  /// as `total`, and with a `total` of 0 or less the colour stands unfaded while anything remains.
  [[nodiscard]] virtual std::int32_t ColorAttenuation(std::int32_t colour, std::int32_t remaining,
                                                      std::int32_t total) = 0;
};

}  // namespace tolvane::platform
