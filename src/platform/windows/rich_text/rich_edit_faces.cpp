// Which of its two faces holds the content of RTB_MainView, and the control's messages, which ask
// for it.
#include <algorithm>

#include "platform/windows/rich_text/rich_edit_view.h"

namespace tolvane::platform::windows {
namespace {

/// Whether the control needs its content for `message`: to read it, to change it, to show it.
/// All messages of edit controls do, but for those named here.
constexpr bool NeedsContent(UINT message) {
  switch (message) {
    case EM_CANUNDO:  // never: EnterPage has emptied the buffer
    case EM_SETREADONLY:
      return false;
    case WM_CUT:
    case WM_COPY:
    case WM_PASTE:
    case WM_CLEAR:
    case WM_UNDO:
    case WM_PRINT:
    case WM_PRINTCLIENT:
      return true;
    default:
      return (message >= EM_GETSEL && message <= EM_GETIMESTATUS) ||
             (message >= WM_USER && message < WM_APP);
  }
}

/// Of those, the ones that only ask: for text, selection, places, looks, the object behind them, or
/// a picture. Programs that read the screen send them, some many times a second, and ask again
/// later, so a page of a second before is no loss to them. What is not named here may be a command,
/// such as a copy or a selection, and always finds the content: nobody repeats a command. So does
/// EM_STREAMOUT, which hands out all there is.
constexpr bool OnlyAsks(UINT message) {
  switch (message) {
    case EM_GETSEL:
    case EM_GETRECT:
    case EM_GETMODIFY:
    case EM_GETLINECOUNT:
    case EM_LINEINDEX:
    case EM_GETTHUMB:
    case EM_LINELENGTH:
    case EM_GETLINE:
    case EM_LINEFROMCHAR:
    case EM_GETFIRSTVISIBLELINE:
    case EM_GETPASSWORDCHAR:
    case EM_GETWORDBREAKPROC:
    case EM_GETMARGINS:
    case EM_GETLIMITTEXT:
    case EM_POSFROMCHAR:
    case EM_CHARFROMPOS:
    case EM_GETIMESTATUS:
    case EM_CANPASTE:
    case EM_CANREDO:
    case EM_EXGETSEL:
    case EM_EXLINEFROMCHAR:
    case EM_FINDTEXT:
    case EM_FINDTEXTEX:
    case EM_FINDTEXTW:
    case EM_FINDTEXTEXW:
    case EM_FINDWORDBREAK:
    case EM_GETCHARFORMAT:
    case EM_GETPARAFORMAT:
    case EM_GETEVENTMASK:
    case EM_GETLANGOPTIONS:
    case EM_GETOLEINTERFACE:
    case EM_GETOPTIONS:
    case EM_GETSCROLLPOS:
    case EM_GETSELTEXT:
    case EM_GETTEXTEX:
    case EM_GETTEXTLENGTHEX:
    case EM_GETTEXTMODE:
    case EM_GETTEXTRANGE:
    case EM_GETZOOM:
    case EM_SELECTIONTYPE:
    case WM_PRINT:  // of the main window too; the surface is in the picture in any case
    case WM_PRINTCLIENT:
      return true;
    default:
      return false;
  }
}

constexpr ULONGLONG kReadersPause = 1000;  // ms between two fillings for screen readers

constexpr LONG kUiaRootObject = -25;  // UiaRootObjectId, whose header brings all of COM along

/// Whether the object that accessibility asks for shows the text. What else it asks for (the
/// frame, the bars, the caret, the class) is asked often, by programs that read nothing.
constexpr bool ShowsText(LPARAM object) {
  // The upper half of a 64-bit number can hold anything.
  const auto asked = static_cast<LONG>(object);
  return asked == OBJID_CLIENT || asked == OBJID_NATIVEOM || asked == kUiaRootObject;
}

}  // namespace

void RichEditView::SwapPage(std::unique_ptr<RichTextPage>& page) {
  if (!live_) EnterPage();
  page_.swap(page);
  surface_.Show(*page_);
  if (!locked_) FillControl();
}

/// The control keeps what it holds: emptying it of a full page takes seconds, in which reception
/// would stand. Until it is filled, no message that needs its content reaches it.
void RichEditView::EnterPage() {
  TakeLook();
  DropSelectionAndUndo();
  live_ = true;
}

/// Takes what the first live page needs, ahead of a run's frames.
void RichEditView::PrepareLivePages() {
  if (live_) return;  // the page that the control could not take
  TakeLook();
  page_->TakeMemory();
  surface_.TakeMemory();
}

/// Has the surface look as the control does, which the user can zoom.
void RichEditView::TakeLook() {
  const Zoom zoom = ZoomOf(window_);
  if (zoom == look_zoom_) return;
  const std::optional<PageLook> look = LookBeside(window_, zoom);
  if (!look) return;
  surface_.Look(*look);
  look_zoom_ = zoom;
}

/// A text that replaces the page in a run becomes the live page, so that the control need not be
/// emptied for it either.
void RichEditView::ShowPlain(StringView text) {
  page_->text = text;
  page_->colours.Clear();
  page_->backgrounds.Clear();
  surface_.Show(*page_);
}

void RichEditView::LeavePage() {
  if (!live_) return;
  live_ = false;
  surface_.Hide();
}

/// A control that cannot take the page is emptied, and the page stays the face. The control is then
/// locked also when the view is not, as nobody would see what is typed there.
void RichEditView::FillControl() {
  if (!live_) return;
  const std::string rtf = ContentRtf();
  live_ = false;  // what follows is for the control
  if (!ReplaceContent(rtf)) {
    FillPlain({});
    live_ = true;
    return;
  }
  POINT scroll = surface_.ScrollPosition();
  surface_.Hide();
  Send(EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&scroll));
  if (!locked_) Send(EM_SETREADONLY, FALSE);
}

/// A filling with a full page costs seconds, in which reception stands. A program that asks more
/// often than once a second finds the control as it is.
void RichEditView::FillForReader() {
  if (GetTickCount64() - filled_for_reader_ < kReadersPause) return;
  FillControl();
  filled_for_reader_ = GetTickCount64();  // the end of the filling: reception has its second
}

LRESULT CALLBACK RichEditView::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam,
                                         UINT_PTR /*id*/, DWORD_PTR object) noexcept {
  auto* view = reinterpret_cast<RichEditView*>(object);
  if (message == WM_NCDESTROY) {
    view->window_ = nullptr;
    RemoveWindowSubclass(window, &RichEditView::Procedure, 1);
    return DefSubclassProc(window, message, wparam, lparam);
  }
  return view->HandleMessage(message, wparam, lparam);
}

LRESULT RichEditView::HandleMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_GETDLGCODE: {
      // Tab leaves the view, Ctrl+Tab writes one. The control is not asked: it would take its
      // parent for a dialog and close it on Escape.
      const auto* key = reinterpret_cast<const MSG*>(lparam);
      const bool is_tab = key != nullptr && key->message == WM_KEYDOWN && key->wParam == VK_TAB &&
                          GetKeyState(VK_CONTROL) >= 0;
      // Coming by Tab selects everything, but not a page that the next tick replaces.
      return (live_ ? 0 : DLGC_HASSETSEL) | DLGC_WANTARROWS | DLGC_WANTCHARS |
             (is_tab ? 0 : DLGC_WANTALLKEYS);
    }
    case WM_RBUTTONUP:
      context_menu_(false);
      return 0;
    case WM_CONTEXTMENU:
      // The menu key and Shift+F10; of the mouse, the button itself has been taken already.
      if (lparam == -1) context_menu_(true);
      return 0;
    case WM_WINDOWPOSCHANGED: {
      const LRESULT result = DefSubclassProc(window_, message, wparam, lparam);
      surface_.FollowBeneath();
      return result;
    }
    default:
      return live_ ? HandleLiveMessage(message, wparam, lparam)
                   : DefSubclassProc(window_, message, wparam, lparam);
  }
}

LRESULT RichEditView::HandleLiveMessage(UINT message, WPARAM wparam, LPARAM lparam) {
  switch (message) {
    case WM_GETTEXTLENGTH:
      return static_cast<LRESULT>(page_->text.size());
    case WM_GETTEXT:
      return CopyPageText(wparam, lparam);
    case WM_VSCROLL:
    case WM_HSCROLL:
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
      return SendMessageW(surface_.Hwnd(), message, wparam, lparam);
    case WM_KEYDOWN:
      if (KeyOnPage(wparam)) return 0;
      break;
    case WM_SETTEXT:
      LeavePage();  // which is not shown again
      break;
    case WM_GETOBJECT:
      if (ShowsText(lparam)) FillForReader();
      break;
    default:
      if (!NeedsContent(message)) break;
      FromReader(message) ? FillForReader() : FillControl();
  }
  return DefSubclassProc(window_, message, wparam, lparam);
}

/// Whether a program that reads the screen sent `message`. The program's own messages are none,
/// also in a command that another program has sent.
bool RichEditView::FromReader(UINT message) const {
  return sending_ == 0 && InSendMessage() && OnlyAsks(message);
}

LRESULT RichEditView::Send(UINT message, WPARAM wparam, LPARAM lparam) const {
  ++sending_;
  const LRESULT result = SendMessageW(window_, message, wparam, lparam);
  --sending_;
  return result;
}

/// WM_GETTEXT: as much of the page as `room` units, the NUL among them, can take.
LRESULT RichEditView::CopyPageText(WPARAM room, LPARAM target) const {
  if (room == 0) return 0;
  const StringView text = StringView(page_->text).substr(0, room - 1);
  auto* const end = std::ranges::copy(text, reinterpret_cast<char16_t*>(target)).out;
  *end = u'\0';
  return static_cast<LRESULT>(text.size());
}

/// True for a key that scrolls the page. Selecting and copying are the control's: a key with Shift
/// or Ctrl fills it.
bool RichEditView::KeyOnPage(WPARAM key) {
  const bool chord = GetKeyState(VK_SHIFT) < 0 || GetKeyState(VK_CONTROL) < 0;
  if (!chord) return surface_.ScrollByKey(key);
  if (key != VK_SHIFT && key != VK_CONTROL) FillControl();
  return false;
}

}  // namespace tolvane::platform::windows
