#include "platform/screen_place.h"

#include <algorithm>

namespace tolvane::platform {
namespace {

constexpr std::int32_t kLayoutDpi = 96;

std::int32_t MovedInto(std::int32_t low, std::int32_t length, std::int32_t wanted,
                       std::int32_t size) {
  return std::max(low, std::min(wanted, low + length - size));
}

std::int32_t Middle(std::int32_t start, std::int32_t length, std::int32_t size) {
  return start + (length - size) / 2;
}

}  // namespace

Extent CutTo(const ScreenPlace& area, Extent wanted) {
  return {std::min(wanted.width, area.width), std::min(wanted.height, area.height)};
}

ScreenPlace Inside(const ScreenPlace& area, std::int32_t left, std::int32_t top, Extent wanted) {
  const Extent size = CutTo(area, wanted);
  return {MovedInto(area.left, area.width, left, size.width),
          MovedInto(area.top, area.height, top, size.height), size.width, size.height};
}

ScreenPlace InMiddle(const ScreenPlace& around, Extent size, const ScreenPlace& area) {
  const std::int32_t left = Middle(around.left, around.width, size.width);
  const std::int32_t top = Middle(around.top, around.height, size.height);
  return {MovedInto(area.left, area.width, left, size.width),
          MovedInto(area.top, area.height, top, size.height), size.width, size.height};
}

std::int32_t FittingDpi(std::int32_t dpi, Extent client, Extent frame, Extent area) {
  const std::int32_t by_width = (area.width - frame.width) * kLayoutDpi / client.width;
  const std::int32_t by_height = (area.height - frame.height) * kLayoutDpi / client.height;
  return std::max(1, std::min({dpi, by_width, by_height}));
}

}  // namespace tolvane::platform
