#pragma once

#include <functional>

#include "platform/code_page.h"
#include "platform/rich_text_view.h"
#include "platform/windows/rich_text/live_surface.h"
#include "platform/windows/rich_text/page_control.h"
#include "platform/windows/system/handle.h"

namespace tolvane::platform::windows {

/// RTB_MainView on a rich edit control. The control counts a line end as one character; nobody
/// outside this class sees that.
///
/// While the view is locked, what the program writes, a swapped page or a text, is *live*: a
/// surface laid over the control shows it, and the control keeps what it held before. The control
/// gets the page when the lock is taken off or when something needs the control itself; from then
/// to the next page or text the control holds the content. Every message to the control, the
/// program's own included, passes HandleMessage, which answers for its text and fills it before a
/// message that needs the content.
///
/// What the program writes raises no notification of the control at once: a change of the selection
/// that it causes is told afterwards through `selection_changed`, which must not call back into the
/// view before the writer has returned.
class RichEditView final : public RichTextView {
 public:
  explicit RichEditView(CodePage& code_page) : code_page_(code_page) {}

  /// Makes the control as child number `control` of `parent`. False when the system has no rich
  /// edit.
  [[nodiscard]] bool Create(HWND parent, int control, std::function<void()> selection_changed,
                            std::function<void(bool by_keyboard)> context_menu);
  [[nodiscard]] HWND Hwnd() const { return window_; }
  /// Whether Tab comes to the view.
  void TabStop(bool stop);
  /// For the parent: whether EN_SELCHANGE now comes from the user.
  [[nodiscard]] bool Writing() const { return writing_ > 0; }

  [[nodiscard]] String Text() const override;
  void Text(StringView text) override;
  [[nodiscard]] String TextRTF() const override;
  void SwapPage(std::unique_ptr<RichTextPage>& page) override;
  void SelStart(std::int32_t position) override;
  [[nodiscard]] std::int32_t SelLength() const override;
  void SelLength(std::int32_t length) override;
  void SelColor(std::int32_t colour) override;
  void SelBackColor(std::int32_t colour) override;
  [[nodiscard]] String SelText() const override;
  void SelText(StringView text) override;
  [[nodiscard]] String SelRTF() const override;
  [[nodiscard]] bool Locked() const override { return locked_; }
  void Locked(bool locked) override;
  void Refresh() override;
  void ScrollToEnd() override;
  void PlainCompositionColours() override;
  [[nodiscard]] bool CanUndo() const override;
  void Undo() override;
  [[nodiscard]] bool SaveFile(StringView path, FileFormat format) override;
  [[nodiscard]] bool LoadFile(StringView path) override;

 private:
  class Write;
  class Unlocked;

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam,
                                    UINT_PTR subclass, DWORD_PTR object) noexcept;
  LRESULT HandleMessage(UINT message, WPARAM wparam, LPARAM lparam);

  // rich_edit_faces.cpp
  LRESULT Send(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) const;
  [[nodiscard]] bool FromReader(UINT message) const;
  LRESULT HandleLiveMessage(UINT message, WPARAM wparam, LPARAM lparam);
  LRESULT CopyPageText(WPARAM room, LPARAM target) const;
  [[nodiscard]] bool KeyOnPage(WPARAM key);
  void PrepareLivePages();
  void TakeLook();
  void EnterPage();
  void FillPlain(StringView text);
  void ShowPlain(StringView text);
  void LeavePage();
  void FillControl();
  void FillForReader();

  [[nodiscard]] String ControlText() const;
  [[nodiscard]] CHARRANGE Selection() const;
  void Select(std::size_t start, std::size_t end);
  void DropSelectionAndUndo();
  [[nodiscard]] std::string ContentRtf() const;
  /// False when the control cannot take it; what it then holds is anything.
  [[nodiscard]] bool ReplaceContent(std::string_view rtf);
  /// The same, but what stood there stays then.
  [[nodiscard]] bool ReplaceOrKeep(std::string_view rtf);
  void FormatSelection(CHARFORMAT2W format);

  CodePage& code_page_;
  std::function<void()> selection_changed_;
  std::function<void(bool)> context_menu_;
  LiveSurface surface_;
  // As last swapped, or a text that came while the view was locked.
  std::unique_ptr<RichTextPage> page_ = std::make_unique<RichTextPage>();
  HWND window_ = nullptr;
  Zoom look_zoom_;                   // of the control when the surface took its look
  bool live_ = false;                // the content is `page_`, whatever the control holds
  ULONGLONG filled_for_reader_ = 0;  // ms of the system's uptime
  int writing_ = 0;
  mutable int sending_ = 0;  // messages of the view's own that are on their way
  bool locked_ = false;
};

}  // namespace tolvane::platform::windows
