#include "platform/windows/main_window/form1_layout.h"

#include <iterator>

// Last, see there.
#include "platform/windows/resources/resource.h"

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
constexpr int kLabel = 64;
constexpr int kLabel1 = kMargin;
constexpr int kBox1 = kLabel1 + kLabel + 4;
constexpr int kBox1Width = 208;
constexpr int kLabel2 = kBox1 + kBox1Width + 12;
constexpr int kBox2 = kLabel2 + kLabel + 4;
constexpr int kButtonWidth = 112;
constexpr int kButtonHeight = 36;
constexpr int kButtonStep = kRow3 + kRow - kButtonHeight - kRow1;
constexpr int kPicture = 48;
constexpr int kView = kRow3 + kRow + kMargin;
// Distances of left edges from the right end of the client area.
constexpr int kPictureFromRight = kPicture + kMargin;
constexpr int kButton2FromRight = kPictureFromRight + kMargin + kButtonWidth;
constexpr int kButton1FromRight = kButton2FromRight + 6 + kButtonWidth;
constexpr int kBoxesEndFromRight = kButton1FromRight + 12;

// Room of the opened list below the box; the control takes both as its height.
constexpr int kDropDown = 240;

enum class Anchor { kLeft, kStretch, kRight, kFill };

struct Place {
  int id;
  Anchor anchor;
  int left;  // from the right end with kRight
  int top;
  int right;  // width; with kStretch the distance of the right edge from the right end
  int height;
};

constexpr Place kPlaces[] = {
    {Lb_Serect_Device, Anchor::kLeft, kLabel1, kRow1, kLabel, kRow},
    {Cmb_Serect_Device, Anchor::kLeft, kBox1, kRow1, kBox1Width, kDropDown},
    {Lb_ODB_Hard_Version, Anchor::kLeft, kLabel2, kRow1, kLabel, kRow},
    {TB_ODB_Hard_Version, Anchor::kStretch, kBox2, kRow1, kBoxesEndFromRight, kRow},
    {Lb_Protocol, Anchor::kLeft, kLabel1, kRow2, kLabel, kRow},
    {TB_Protocol, Anchor::kLeft, kBox1, kRow2, kBox1Width, kRow},
    {Lb_Status, Anchor::kLeft, kLabel2, kRow2, kLabel, kRow},
    {TB_Status, Anchor::kStretch, kBox2, kRow2, kBoxesEndFromRight, kRow},
    {Lb_LogComment, Anchor::kLeft, kLabel1, kRow3, kLabel, kRow},
    {TB_LogComment, Anchor::kStretch, kBox1, kRow3, kBoxesEndFromRight, kRow},
    {Bt_Connect, Anchor::kRight, kButton1FromRight, kRow1, kButtonWidth, kButtonHeight},
    {Bt_Disconnect, Anchor::kRight, kButton2FromRight, kRow1, kButtonWidth, kButtonHeight},
    {Bt_SaveFile, Anchor::kRight, kButton1FromRight, kRow1 + kButtonStep, kButtonWidth,
     kButtonHeight},
    {Bt_ViewClear, Anchor::kRight, kButton2FromRight, kRow1 + kButtonStep, kButtonWidth,
     kButtonHeight},
    {Pic_Caution, Anchor::kRight, kPictureFromRight, kRow1 + 15, kPicture, kPicture},
    {RTB_MainView, Anchor::kFill, kMargin, kView, kMargin, kMargin},
};

RECT PixelPlace(const Place& place, const Dpi& dpi, SIZE client) {
  const int left = dpi.Pixels(place.left);
  const int top = dpi.Pixels(place.top);
  const int right = dpi.Pixels(place.right);
  const int height = dpi.Pixels(place.height);
  switch (place.anchor) {
    case Anchor::kLeft:
      return {left, top, left + right, top + height};
    case Anchor::kStretch:
      return {left, top, client.cx - right, top + height};
    case Anchor::kRight:
      return {client.cx - left, top, client.cx - left + right, top + height};
    case Anchor::kFill:
      break;
  }
  return {left, top, client.cx - right, client.cy - height};
}

}  // namespace

void LayOutForm1(HWND window, const Dpi& dpi, SIZE client) {
  // Painted anew: what a control showed may be covered by one that moved before it.
  HDWP moves = BeginDeferWindowPos(static_cast<int>(std::size(kPlaces)));
  for (const Place& place : kPlaces) {
    const RECT bounds = PixelPlace(place, dpi, client);
    if (moves == nullptr) return;
    moves = DeferWindowPos(moves, GetDlgItem(window, place.id), nullptr, bounds.left, bounds.top,
                           bounds.right - bounds.left, bounds.bottom - bounds.top,
                           SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
  }
  if (moves != nullptr) EndDeferWindowPos(moves);
}

}  // namespace tolvane::platform::windows
