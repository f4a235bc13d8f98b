#pragma once

#include <cstdint>
#include <memory>

#include "platform/rich_text_page.h"
#include "platform/rich_text_view.h"
#include "platform/string.h"

namespace tolvane {

/// RTB_MainView_Back, the page under construction. It is coloured like a rich text control: select,
/// then set the colour. Positions count characters of the text from 0; a line end counts two.
/// The part of a selection outside the page is not painted; a length of 0 or less paints nothing.
class BackPage {
 public:
  /// Has a page's storage in memory ahead of the first one, and leaves no page.
  void TakeMemory() { page_->TakeMemory(); }

  /// Replaces the text and removes all colours.
  void Text(StringView text);

  void SelStart(std::int32_t position) { sel_start_ = position; }
  /// To be called after SelStart.
  void SelLength(std::int32_t length) { sel_length_ = length; }
  /// Colours are 0x00BBGGRR.
  void SelColor(std::int32_t colour) { Paint(page_->colours, colour); }
  void Back_Set_Char_Effect(std::int32_t colour) { Paint(page_->backgrounds, colour); }

  /// Hands the finished page to `view`. What this object holds then is stale until Text is called.
  void SwapInto(platform::RichTextView& view) { view.SwapPage(page_); }

 private:
  void Paint(platform::ColourRuns& runs, std::int32_t colour);

  std::unique_ptr<platform::RichTextPage> page_ = std::make_unique<platform::RichTextPage>();
  std::int32_t sel_start_ = 0;
  std::int32_t sel_length_ = 0;
};

}  // namespace tolvane
