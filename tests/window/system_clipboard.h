#pragma once

#include <windows.h>

#include <string>
#include <string_view>
// After windows.h, which it needs.
#include <richedit.h>

namespace tolvane::window {

/// The clipboard, held open as long as the object lives, so that the driven program is refused it.
/// Its content stays there afterwards.
class HeldClipboard {
 public:
  /// Waits until nobody else holds it.
  HeldClipboard();
  ~HeldClipboard();
  HeldClipboard(const HeldClipboard&) = delete;
  HeldClipboard& operator=(const HeldClipboard&) = delete;

  /// Empties it and puts texts there; of an empty one nothing.
  void Put(const std::wstring& plain, std::string_view rich = {});

  /// Empty when there is none.
  [[nodiscard]] std::wstring Plain() const;
  [[nodiscard]] std::string Rich() const;

 private:
  HWND owner_;
};

/// Waits until other programs, of which some look at each change, have left the clipboard alone for
/// a while.
void WaitForQuietClipboard();

/// Rich text read by a control of this process.
class RichTextReader {
 public:
  explicit RichTextReader(const std::string& rich);
  ~RichTextReader();
  RichTextReader(const RichTextReader&) = delete;
  RichTextReader& operator=(const RichTextReader&) = delete;

  [[nodiscard]] std::wstring Text() const;
  /// Format of the character at a position of the control, from 0.
  [[nodiscard]] CHARFORMAT2W FormatAt(int position) const;

 private:
  HMODULE library_;
  HWND control_;
};

}  // namespace tolvane::window
