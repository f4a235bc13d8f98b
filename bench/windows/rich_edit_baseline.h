#pragma once

#include <vector>

#include "platform/windows/rich_text/rich_edit_view.h"

namespace tolvane::bench {

/// The baseline, not a part of the program: a tick on two rich edit controls. The page's text is
/// set in a hidden one, each region is selected and coloured there, and its rich text is then
/// copied to the visible one. Both are set up like the program's control.
///
/// The controls are new for each tick: emptying them of the last page takes longer than the tick
/// itself, and is left out in the baseline's favour.
class RichEditBaseline {
 public:
  explicit RichEditBaseline(platform::CodePage& code_page);
  RichEditBaseline(const RichEditBaseline&) = delete;
  RichEditBaseline& operator=(const RichEditBaseline&) = delete;
  ~RichEditBaseline();

  /// Makes a window as large as `like`. False when the system has no rich edit control.
  [[nodiscard]] bool Create(HWND like);
  /// What the tick shows; the positions are counted as the control does, beforehand.
  void Prepare(const platform::RichTextPage& page);
  void Tick();
  /// Whether the visible control now has the text of `page`.
  [[nodiscard]] bool Shows(const platform::RichTextPage& page) const;

 private:
  void PaintRegion(const platform::ColourRun& run) const;

  platform::windows::RichEditView hidden_;
  platform::windows::RichEditView visible_;
  HWND window_ = nullptr;
  String text_;
  std::vector<platform::ColourRun> regions_;
};

}  // namespace tolvane::bench
