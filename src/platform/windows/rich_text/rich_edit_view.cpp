#include "platform/windows/rich_text/rich_edit_view.h"

#include <algorithm>
#include <array>

#include "platform/byte_text.h"
#include "platform/file_replacing.h"
#include "platform/windows/rich_text/line_ends.h"
#include "platform/windows/rich_text/rich_edit_stream.h"
#include "platform/windows/system/file_steps.h"
#include "platform/windows/system/text.h"
#include "view/page_rtf.h"
#include "view/rtf_in_black.h"

namespace tolvane::platform::windows {
namespace {

constexpr UINT kUtf16 = 1200;                     // code page number of the text messages
constexpr std::size_t kLargestFile = 256U << 20;  // bytes; what is larger was not written here

CHARFORMAT2W EmptyFormat() {
  CHARFORMAT2W format{};
  static_assert(sizeof(CHARFORMAT2W) >= 84);
  format.cbSize = sizeof(format);
  return format;
}

}  // namespace

/// A write of the program: shows its result once and tells once that the selection moved.
class RichEditView::Write {
 public:
  explicit Write(RichEditView& view) : view_(view), before_(view.Selection()) {
    if (view_.writing_++ > 0) return;
    view_.Send(WM_SETREDRAW, FALSE);
  }
  Write(const Write&) = delete;
  Write& operator=(const Write&) = delete;
  ~Write() {
    if (--view_.writing_ > 0) return;
    view_.Send(WM_SETREDRAW, TRUE);
    // With the frame: the scroll bars may have come or gone unseen.
    RedrawWindow(view_.window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
    const CHARRANGE now = view_.Selection();
    const bool changed = now.cpMin != before_.cpMin || now.cpMax != before_.cpMax;
    if (changed && view_.selection_changed_) view_.selection_changed_();
  }

 private:
  RichEditView& view_;
  CHARRANGE before_;
};

/// Lifts a lock that is meant for the user. What replaces the whole content passes it anyway; it
/// stays on there, so that nobody who looks on from outside sees an unlocked view during a run.
class RichEditView::Unlocked {
 public:
  explicit Unlocked(RichEditView& view) : view_(view) {
    if (view_.locked_) view_.Send(EM_SETREADONLY, FALSE);
  }
  Unlocked(const Unlocked&) = delete;
  Unlocked& operator=(const Unlocked&) = delete;
  ~Unlocked() {
    if (view_.locked_) view_.Send(EM_SETREADONLY, TRUE);
  }

 private:
  RichEditView& view_;
};

bool RichEditView::Create(HWND parent, int control, std::function<void()> selection_changed,
                          std::function<void(bool by_keyboard)> context_menu) {
  selection_changed_ = std::move(selection_changed);
  context_menu_ = std::move(context_menu);
  window_ = CreatePageControl(parent, control, true);
  if (window_ == nullptr) return false;
  surface_.Look(LookOf(window_));
  look_zoom_ = ZoomOf(window_);
  Send(EM_SETEVENTMASK, 0, ENM_SELCHANGE);
  return surface_.CreateOver(window_) &&
         SetWindowSubclass(window_, &RichEditView::Procedure, 1,
                           reinterpret_cast<DWORD_PTR>(this)) != FALSE;
}

void RichEditView::TabStop(bool stop) {
  const LONG_PTR style = GetWindowLongPtrW(window_, GWL_STYLE);
  SetWindowLongPtrW(window_, GWL_STYLE, stop ? style | WS_TABSTOP : style & ~LONG_PTR{WS_TABSTOP});
}

String RichEditView::ControlText() const {
  GETTEXTLENGTHEX wanted{GTL_NUMCHARS | GTL_PRECISE, kUtf16};
  const LRESULT length = Send(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&wanted));
  if (length <= 0) return {};
  String text(static_cast<std::size_t>(length) + 1, u'\0');
  GETTEXTEX room{static_cast<DWORD>(text.size() * sizeof(char16_t)), GT_DEFAULT, kUtf16, nullptr,
                 nullptr};
  const LRESULT copied =
      Send(EM_GETTEXTEX, reinterpret_cast<WPARAM>(&room), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(std::max<LRESULT>(copied, 0)));
  return text;
}

String RichEditView::Text() const { return live_ ? page_->text : WithPageLineEnds(ControlText()); }

void RichEditView::Text(StringView text) {
  if (locked_) {
    if (!live_) EnterPage();
    ShowPlain(text);
  } else {
    FillPlain(text);
  }
}

/// The control gets `text`, whichever face there was.
void RichEditView::FillPlain(StringView text) {
  LeavePage();
  const Write write(*this);
  SetPlainText(window_, text);
}

std::string RichEditView::ContentRtf() const {
  if (!live_) return StreamOut(window_, SF_RTF);
  std::string rtf;
  WritePageRtf(*page_, rtf);
  return rtf;
}

String RichEditView::TextRTF() const { return WideText(ContentRtf()); }

bool RichEditView::ReplaceOrKeep(std::string_view rtf) {
  // The control reads anything else as an empty text and reports no failure.
  if (!rtf.starts_with("{\\rtf")) return false;
  const std::string before = ContentRtf();
  const String text_before = Text();
  if (ReplaceContent(rtf)) return true;
  if (!ReplaceContent(before)) Text(text_before);  // the colours are lost then
  return false;
}

bool RichEditView::ReplaceContent(std::string_view rtf) {
  LeavePage();
  const Write write(*this);
  const bool taken = StreamIn(window_, RtfInBlack(rtf));
  Send(EM_EMPTYUNDOBUFFER);
  Select(0, 0);
  POINT top{0, 0};
  Send(EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&top));
  return taken;
}

CHARRANGE RichEditView::Selection() const {
  CHARRANGE range{};
  Send(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
  return range;
}

void RichEditView::Select(std::size_t start, std::size_t end) {
  CHARRANGE range{static_cast<LONG>(start), static_cast<LONG>(end)};
  Send(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
}

void RichEditView::DropSelectionAndUndo() {
  const Write write(*this);
  Select(0, 0);
  Send(EM_EMPTYUNDOBUFFER);
}

void RichEditView::SelStart(std::int32_t position) {
  const Write write(*this);
  const auto page_position = static_cast<std::size_t>(std::max(position, 0));
  const std::size_t start = ControlPosition(ControlText(), page_position);
  Select(start, start);
}

std::int32_t RichEditView::SelLength() const {
  if (live_) return 0;
  const CHARRANGE range = Selection();
  if (range.cpMin == range.cpMax) return 0;
  const String text = ControlText();
  return static_cast<std::int32_t>(PagePosition(text, static_cast<std::size_t>(range.cpMax)) -
                                   PagePosition(text, static_cast<std::size_t>(range.cpMin)));
}

void RichEditView::SelLength(std::int32_t length) {
  const Write write(*this);
  const String text = ControlText();
  const auto start = static_cast<std::size_t>(Selection().cpMin);
  const std::size_t page_end =
      PagePosition(text, start) + static_cast<std::size_t>(std::max(length, 0));
  Select(start, ControlPosition(text, page_end));
}

void RichEditView::FormatSelection(CHARFORMAT2W format) {
  const Write write(*this);
  const Unlocked unlocked(*this);
  Send(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
}

void RichEditView::SelColor(std::int32_t colour) {
  CHARFORMAT2W format = EmptyFormat();
  format.dwMask = CFM_COLOR;
  format.crTextColor = static_cast<COLORREF>(colour);
  FormatSelection(format);
}

void RichEditView::SelBackColor(std::int32_t colour) {
  CHARFORMAT2W format = EmptyFormat();
  Send(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  format.dwMask = CFM_BACKCOLOR;
  format.dwEffects = 0;
  format.crBackColor = static_cast<COLORREF>(colour);
  FormatSelection(format);
}

String RichEditView::SelText() const {
  const CHARRANGE range = Selection();
  String text(static_cast<std::size_t>(range.cpMax - range.cpMin) + 1, u'\0');
  const LRESULT copied = Send(EM_GETSELTEXT, 0, reinterpret_cast<LPARAM>(text.data()));
  text.resize(std::min(text.size() - 1, static_cast<std::size_t>(std::max<LRESULT>(copied, 0))));
  return WithPageLineEnds(text);
}

void RichEditView::SelText(StringView text) {
  const Write write(*this);
  const Unlocked unlocked(*this);
  const String replacement(text);
  Send(EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(Wide(replacement)));
}

String RichEditView::SelRTF() const { return WideText(StreamOut(window_, SF_RTF | SFF_SELECTION)); }

void RichEditView::Locked(bool locked) {
  // A lock begins a run, whose pages are live.
  locked ? PrepareLivePages() : FillControl();
  locked_ = locked;
  Send(EM_SETREADONLY, locked || live_);
}

void RichEditView::Refresh() { UpdateWindow(live_ ? surface_.Hwnd() : window_); }

void RichEditView::ScrollToEnd() { Send(WM_VSCROLL, SB_BOTTOM); }

/// Controls since version 4 let the input method draw its own colours: they answer 0, or take the
/// set without effect.
void RichEditView::PlainCompositionColours() {
  std::array<COMPCOLOR, 4> colours{};
  const auto address = reinterpret_cast<LPARAM>(colours.data());
  if (Send(EM_GETIMECOLOR, 0, address) == 0) return;
  colours[1].crText = RGB(0, 0, 0);
  colours[1].crBackground = RGB(255, 255, 255);
  Send(EM_SETIMECOLOR, 0, address);
}

bool RichEditView::CanUndo() const { return Send(EM_CANUNDO) == TRUE; }

void RichEditView::Undo() {
  const Write write(*this);
  const Unlocked unlocked(*this);
  Send(EM_UNDO);
}

bool RichEditView::SaveFile(StringView path, FileFormat format) {
  std::string bytes;
  if (format == FileFormat::kRichText) {
    bytes = ContentRtf();
  } else {
    code_page_.Encode(Text(), bytes);
  }
  WindowsFileSteps steps;
  return ReplaceWhole(steps, path, std::as_bytes(std::span(bytes)));
}

bool RichEditView::LoadFile(StringView path) {
  WindowsFileSteps steps;
  const std::optional<BinaryRead> file = ReadReplaced(steps, path, kLargestFile);
  if (!file) return false;
  return ReplaceOrKeep({reinterpret_cast<const char*>(file->bytes.data()), file->bytes.size()});
}

}  // namespace tolvane::platform::windows
