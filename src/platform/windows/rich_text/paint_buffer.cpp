#include "platform/windows/rich_text/paint_buffer.h"

#include <algorithm>

namespace tolvane::platform::windows {

HDC PaintBuffer::Prepare(HDC target, SIZE size) {
  if (!context_) context_ = MemoryDcHandle(CreateCompatibleDC(target));
  if (size.cx > size_.cx || size.cy > size_.cy) {
    const SIZE larger{std::max(size.cx, size_.cx), std::max(size.cy, size_.cy)};
    BitmapHandle bitmap(CreateCompatibleBitmap(target, larger.cx, larger.cy));
    if (!context_ || !bitmap) return target;
    SelectObject(context_.Get(), bitmap.Get());
    bitmap_ = std::move(bitmap);
    size_ = larger;
  }
  return context_.Get();
}

void PaintBuffer::Deliver(HDC target, SIZE size) const {
  BitBlt(target, 0, 0, size.cx, size.cy, context_.Get(), 0, 0, SRCCOPY);
}

}  // namespace tolvane::platform::windows
