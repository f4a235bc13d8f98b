#pragma once

#include "platform/windows/system/handle.h"

namespace tolvane::platform::windows {

/// A memory bitmap for painting without flicker, kept from one painting to the next.
class PaintBuffer {
 public:
  /// Where to paint `size` pixels meant for `target`; `target` itself when memory is short.
  [[nodiscard]] HDC Prepare(HDC target, SIZE size);
  /// Brings what was painted there to `target`.
  void Deliver(HDC target, SIZE size) const;

 private:
  BitmapHandle bitmap_;
  MemoryDcHandle context_;
  SIZE size_{0, 0};  // of the bitmap; it only grows
};

}  // namespace tolvane::platform::windows
