#include "platform/windows/dialogs/formoption1_window.h"

#include <tolvane_control_ids.h>

namespace tolvane::platform::windows {
namespace {

using enum PartKind;

// Two groups side by side whose lines stand at the same heights; units of 96 dpi.
constexpr int kTop = 12;
constexpr int kInside = 12;
constexpr int kHeading = kTop + 24;
constexpr int kFirstLine = kHeading + kLine;
constexpr int kStep = 27;
constexpr int kRows = static_cast<int>(FormOption1::kRows);
constexpr int kBelowLines = kFirstLine + kRows * kStep + 4;
constexpr int kGroupHeight = kBelowLines + kLine + 12 - kTop;
constexpr int kIdWidth = 84;
constexpr int kToWidth = 22;  // of the mark between the ends of a range
constexpr int kByteWidth = 40;
constexpr int kColourWidth = 44;

constexpr int kRanges = 12;
constexpr int kRangesWidth = 248;
constexpr int kRangeCheck = kRanges + kInside;
constexpr int kRangeStart = kRangeCheck + 26;
constexpr int kRangeTo = kRangeStart + kIdWidth;
constexpr int kRangeEnd = kRangeTo + kToWidth;

constexpr int kMarkers = kRanges + kRangesWidth + 12;
constexpr int kMarkerCheck = kMarkers + kInside;
constexpr int kMarkerId = kMarkerCheck + 26;
constexpr int kMarkerStart = kMarkerId + kIdWidth + 20;
constexpr int kMarkerTo = kMarkerStart + kByteWidth;
constexpr int kMarkerEnd = kMarkerTo + kToWidth;
constexpr int kMarkerColour = kMarkerEnd + kByteWidth + 20;
constexpr int kMarkersWidth = kMarkerColour + kColourWidth + kInside - kMarkers;

constexpr int kWidth = kMarkers + kMarkersWidth + 12;
constexpr int kClosing = kTop + kGroupHeight + 12;
constexpr int kHeight = kClosing + kButtonHeight + 12;

constexpr DialogPart kRangesHead[] = {
    {kNoId, kGroup, L"メッセージ除外設定", kRanges, kTop, kRangesWidth, kGroupHeight},
    {kNoId, kCentredLabel, L"CAN ID", kRangeStart, kHeading, kRangeEnd + kIdWidth - kRangeStart,
     kLine},
};
constexpr DialogPart kRangeLine[] = {
    {id::CB_DisableID_0, kCheck, L"", kRangeCheck, kFirstLine, 18, kLine, L"行目の除外"},
    {id::TB_DisableID_Start_0, kTextBox, L"", kRangeStart, kFirstLine, kIdWidth, kLine,
     L"行目の除外の先頭のCAN ID"},
    {kNoId, kCentredLabel, L"～", kRangeTo, kFirstLine, kToWidth, kLine},
    {id::TB_DisableID_End_0, kTextBox, L"", kRangeEnd, kFirstLine, kIdWidth, kLine,
     L"行目の除外の末尾のCAN ID"},
};
constexpr DialogPart kRangesFoot[] = {
    {id::CB_Save_ID_DisableMode, kCheck, L"除外設定をログ出力にも適用する", kRangeCheck,
     kBelowLines, kRangesWidth - 2 * kInside, kLine},
};
constexpr DialogPart kMarkersHead[] = {
    {kNoId, kGroup, L"マーカー設定", kMarkers, kTop, kMarkersWidth, kGroupHeight},
    {kNoId, kCentredLabel, L"CAN ID", kMarkerId, kHeading, kIdWidth, kLine},
    {kNoId, kCentredLabel, L"Byte", kMarkerStart, kHeading, kMarkerEnd + kByteWidth - kMarkerStart,
     kLine},
};
constexpr DialogPart kMarkerLine[] = {
    {id::CB_MsgMarker_0, kCheck, L"", kMarkerCheck, kFirstLine, 18, kLine, L"行目のマーカー"},
    {id::TB_MsgMarkerID_0, kTextBox, L"", kMarkerId, kFirstLine, kIdWidth, kLine,
     L"行目のマーカーのCAN ID"},
    {id::TB_MsgMarkerStartByte_0, kNumberBox, L"", kMarkerStart, kFirstLine, kByteWidth, kLine,
     L"行目のマーカーの先頭のByte"},
    {kNoId, kCentredLabel, L"～", kMarkerTo, kFirstLine, kToWidth, kLine},
    {id::TB_MsgMarkerEndByte_0, kNumberBox, L"", kMarkerEnd, kFirstLine, kByteWidth, kLine,
     L"行目のマーカーの末尾のByte"},
    {id::Bt_MarkerColor_Dialog_0, kColour, L"", kMarkerColour, kFirstLine, kColourWidth, kLine,
     L"行目のマーカーの色"},
};
constexpr DialogPart kRemark[] = {
    {kNoId, kLabel, L"※ CAN ID は、半角16進数で入力", kRanges, kClosing + 3, 280, kLine},
};

}  // namespace

FormOption1Window::FormOption1Window(const DialogSurroundings& surroundings, HelpWindow& help,
                                     StringResources& resources, ELM327_Info& device)
    : SettingsDialogOf(surroundings, help, resources, device, {kWidth, kHeight}, id::HELP_OPTION1) {
}

void FormOption1Window::AddControls() {
  Add(kRangesHead);
  AddLines(kRangeLine, kRows, kStep);
  Add(kRangesFoot);
  Add(kMarkersHead);
  AddLines(kMarkerLine, kRows, kStep);
  Add(kRemark);
  AddClosingButtons();
}

void FormOption1Window::Bind(const ControlBinder& bind) {
  bind(id::CB_DisableID_0, form_.CB_DisableID);
  bind(id::TB_DisableID_Start_0, form_.TB_DisableID_Start);
  bind(id::TB_DisableID_End_0, form_.TB_DisableID_End);
  bind(id::CB_Save_ID_DisableMode, form_.CB_Save_ID_DisableMode);
  bind(id::CB_MsgMarker_0, form_.CB_MsgMarker);
  bind(id::TB_MsgMarkerID_0, form_.TB_MsgMarkerID);
  bind(id::TB_MsgMarkerStartByte_0, form_.TB_MsgMarkerStartByte);
  bind(id::TB_MsgMarkerEndByte_0, form_.TB_MsgMarkerEndByte);
  bind(id::Bt_MarkerColor_Dialog_0, form_.Bt_MarkerColor_Dialog);
}

void FormOption1Window::OnClick(int control) {
  const int row = control - id::Bt_MarkerColor_Dialog_0;
  if (row < 0 || row >= kRows) return;
  form_.Bt_MarkerColor_Dialog_Click(static_cast<std::int16_t>(row), CommonDialog1());
}

}  // namespace tolvane::platform::windows
