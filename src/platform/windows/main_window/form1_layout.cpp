// The controls of the main window: what each is and where it stands.
#include "platform/windows/main_window/form1_layout.h"

#include <algorithm>
#include <iterator>

#include <tolvane_control_ids.h>

namespace tolvane::platform::windows {
namespace {

// The grid, in units of 96 dpi: three rows of labelled boxes in two columns, two tall rows of
// buttons beside them, the caution picture at the right end, the view below all.
constexpr int kMargin = 8;
constexpr int kRow = 22;
constexpr int kRowStep = 28;
constexpr int kRow1 = kMargin;
constexpr int kRow2 = kRow1 + kRowStep;
constexpr int kRow3 = kRow2 + kRowStep;
constexpr int kLabelWidth = 64;
constexpr int kLabel1 = kMargin;
constexpr int kBox1 = kLabel1 + kLabelWidth + 4;
constexpr int kBox1Width = 208;
constexpr int kLabel2 = kBox1 + kBox1Width + 12;
constexpr int kBox2 = kLabel2 + kLabelWidth + 4;
constexpr int kButtonWidth = 112;
constexpr int kButtonHeight = 36;
constexpr int kButtonStep = kRow3 + kRow - kButtonHeight - kRow1;
constexpr int kViewTop = kRow3 + kRow + kMargin;
// Distances of left edges from the right end of the client area.
constexpr int kPictureFromRight = id::ICON_CAUTION_SIZE + kMargin;
constexpr int kButton2FromRight = kPictureFromRight + kMargin + kButtonWidth;
constexpr int kButton1FromRight = kButton2FromRight + 6 + kButtonWidth;
constexpr int kBoxesEndFromRight = kButton1FromRight + 12;

// Room of the opened list below the box; the control takes both as its height.
constexpr int kDropDown = 240;

struct Kind {
  const wchar_t* class_name;
  DWORD style;
  DWORD extended_style = 0;
};
constexpr Kind kLabel{WC_STATICW, SS_NOPREFIX | SS_CENTERIMAGE | SS_NOTIFY};
constexpr Kind kList{WC_COMBOBOXW, WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST};
// The sunken edge is drawn by the visual style where there is one.
constexpr Kind kEdited{WC_EDITW, WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE};
constexpr Kind kShown{WC_EDITW, WS_TABSTOP | ES_AUTOHSCROLL | ES_READONLY, WS_EX_CLIENTEDGE};
constexpr Kind kButton{WC_BUTTONW, WS_TABSTOP | BS_PUSHBUTTON};
constexpr Kind kButtonAfterStart{WC_BUTTONW, WS_TABSTOP | BS_PUSHBUTTON | WS_DISABLED};
constexpr Kind kPicture{WC_STATICW, SS_ICON | SS_REALSIZECONTROL | SS_NOTIFY};
constexpr Kind kView{nullptr, 0};  // makes itself

enum class Anchor { kLeft, kStretch, kRight, kFill };
using enum Anchor;

struct Form1Control {
  int control;
  Kind kind;
  const wchar_t* text;
  Anchor anchor;
  int left;  // from the right end with kRight
  int top;
  int right;  // width; with kStretch the distance of the right edge from the right end
  int height;
};

// In reading order, which is the tab order.
constexpr Form1Control kControls[] = {
    {id::Lb_Serect_Device, kLabel, L"機器No.", kLeft, kLabel1, kRow1, kLabelWidth, kRow},
    {id::Cmb_Serect_Device, kList, L"", kLeft, kBox1, kRow1, kBox1Width, kDropDown},
    {id::Lb_ODB_Hard_Version, kLabel, L"機器情報", kLeft, kLabel2, kRow1, kLabelWidth, kRow},
    {id::TB_ODB_Hard_Version, kShown, L"Nothing", kStretch, kBox2, kRow1, kBoxesEndFromRight, kRow},
    {id::Bt_Connect, kButtonAfterStart, L"接続", kRight, kButton1FromRight, kRow1, kButtonWidth,
     kButtonHeight},
    {id::Bt_Disconnect, kButtonAfterStart, L"切断", kRight, kButton2FromRight, kRow1, kButtonWidth,
     kButtonHeight},
    {id::Lb_Protocol, kLabel, L"通信モード", kLeft, kLabel1, kRow2, kLabelWidth, kRow},
    {id::TB_Protocol, kShown, L"---", kLeft, kBox1, kRow2, kBox1Width, kRow},
    {id::Lb_Status, kLabel, L"ステータス", kLeft, kLabel2, kRow2, kLabelWidth, kRow},
    {id::TB_Status, kShown, L"", kStretch, kBox2, kRow2, kBoxesEndFromRight, kRow},
    {id::Lb_LogComment, kLabel, L"コメント", kLeft, kLabel1, kRow3, kLabelWidth, kRow},
    {id::TB_LogComment, kEdited, L"", kStretch, kBox1, kRow3, kBoxesEndFromRight, kRow},
    {id::Bt_SaveFile, kButton, L"スナップショット", kRight, kButton1FromRight, kRow1 + kButtonStep,
     kButtonWidth, kButtonHeight},
    {id::Bt_ViewClear, kButton, L"画面クリア", kRight, kButton2FromRight, kRow1 + kButtonStep,
     kButtonWidth, kButtonHeight},
    {id::Pic_Caution, kPicture, L"", kRight, kPictureFromRight, kRow1 + 15, id::ICON_CAUTION_SIZE,
     id::ICON_CAUTION_SIZE},
    {id::RTB_MainView, kView, L"", kFill, kMargin, kViewTop, kMargin, kMargin},
};

RECT PixelPlace(const Form1Control& row, const Dpi& dpi, SIZE client) {
  const int left = dpi.Pixels(row.left);
  const int top = dpi.Pixels(row.top);
  const int right = dpi.Pixels(row.right);
  const int height = dpi.Pixels(row.height);
  switch (row.anchor) {
    case kLeft:
      return {left, top, left + right, top + height};
    case kStretch:
      return {left, top, client.cx - right, top + height};
    case kRight:
      return {client.cx - left, top, client.cx - left + right, top + height};
    case kFill:
      break;
  }
  return {left, top, client.cx - right, client.cy - height};
}

}  // namespace

bool AddForm1Controls(HWND window, HFONT font) {
  return std::ranges::all_of(kControls, [=](const Form1Control& row) {
    const auto& [class_name, style, extended_style] = row.kind;
    if (class_name == nullptr) return true;
    const HWND child =
        CreateWindowExW(extended_style, class_name, row.text, WS_CHILD | WS_VISIBLE | style, 0, 0,
                        0, 0, window, reinterpret_cast<HMENU>(static_cast<INT_PTR>(row.control)),
                        GetModuleHandleW(nullptr), nullptr);
    SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    return child != nullptr;
  });
}

void LayOutForm1(HWND window, const Dpi& dpi, SIZE client) {
  // Repainted: what a control showed may be covered by one that moved before it.
  HDWP moves = BeginDeferWindowPos(static_cast<int>(std::size(kControls)));
  for (const Form1Control& row : kControls) {
    const RECT bounds = PixelPlace(row, dpi, client);
    if (moves == nullptr) return;
    moves = DeferWindowPos(moves, GetDlgItem(window, row.control), nullptr, bounds.left, bounds.top,
                           bounds.right - bounds.left, bounds.bottom - bounds.top,
                           SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
  }
  if (moves != nullptr) EndDeferWindowPos(moves);
}

}  // namespace tolvane::platform::windows
