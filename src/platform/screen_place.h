#pragma once

#include <cstdint>

namespace tolvane::platform {

// Where windows stand on a screen, all in the same unit. `area` is the part of the screen that
// windows may cover, without the task bar.

struct Extent {
  std::int32_t width;
  std::int32_t height;

  friend bool operator==(const Extent&, const Extent&) = default;
};

struct ScreenPlace {
  std::int32_t left;
  std::int32_t top;
  std::int32_t width;
  std::int32_t height;

  friend bool operator==(const ScreenPlace&, const ScreenPlace&) = default;
};

/// `wanted`, or where it is larger than the area, the area.
[[nodiscard]] Extent CutTo(const ScreenPlace& area, Extent wanted);

/// A window of `wanted` size with its upper left corner as near to (left, top) as it can be with
/// all of it in the area; one that is larger is cut to the area.
[[nodiscard]] ScreenPlace Inside(const ScreenPlace& area, std::int32_t left, std::int32_t top,
                                 Extent wanted);

/// A window of `size` in the middle of `around`, moved into the area; one that is larger than the
/// area keeps its size and shows its upper left corner.
[[nodiscard]] ScreenPlace InMiddle(const ScreenPlace& around, Extent size, const ScreenPlace& area);

/// The resolution nearest to `dpi` at which a layout of `client` units of 96 dpi and a frame of
/// `frame` pixels around it fit into `area`.
[[nodiscard]] std::int32_t FittingDpi(std::int32_t dpi, Extent client, Extent frame, Extent area);

}  // namespace tolvane::platform
