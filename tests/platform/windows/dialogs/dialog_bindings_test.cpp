// Each control of the settings dialogs and the setting behind it, one at a time: what it shows, and
// what it changes.
#include <gtest/gtest.h>

#include <tolvane_control_ids.h>
#include <array>
#include <cstdint>
#include <cwchar>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/windows/dialogs/control_colour.h"
#include "tests/helpers/settings_text.h"
#include "tests/platform/windows/all_windows_bed.h"
#include "tests/platform/windows/dialogs/system_dialog.h"

namespace tolvane::platform::windows {
namespace {

using Change = std::function<void(ELM327_Info&)>;

enum class Write { kTaken, kNeverTaken };

/// A control, what a user gives it, and the change of the settings that this is.
struct BoundControl {
  int number;
  const wchar_t* typed;  // null for what is pressed
  Change change;
  Write write = Write::kTaken;
};
using Controls = std::vector<BoundControl>;

BoundControl Box(int control, const wchar_t* text, Change change) {
  return {control, text, change};
}
BoundControl Press(int control, Change change) { return {control, nullptr, change}; }

constexpr std::int16_t kRows = 8;
constexpr std::int16_t kLastRange = 7;  // which is shown and never written
constexpr std::int32_t kNoButton = -1;  // a setting that no option button has

/// Settings of which all that can differ do, every box clear, and no option button selected, so
/// that the control that changes is the only one.
void SetAllApart(ELM327_Info& device) {
  device.t_bitRate = kNoButton;
  device.t_msgID_type = kNoButton;
  device.t_MsgFmtTyp = kNoButton;
  device.t_silent_mode = kNoButton;
  device.t_Timer_Mode = kNoButton;
  device.t_ViewCaution = 0;
  device.t_dividend_ratio = 1.5;
  device.t_DataChangeColorTime = 11000;
  device.t_DataChangeColor = 0x010101;
  device.t_DataChangeColorEnable = 0;
  device.t_MsgLateColor_Ratio = 22;
  device.t_MsgLateColor_Time = 33000;
  device.t_MsgLateColor = 0x020202;
  device.t_MsgLateColorEnable = 0;
  device.t_MsgBlackout_Ratio = 444;
  device.t_MsgBlackout_Color = 0x030303;
  device.t_MsgBlackout_Enable = 0;
  device.t_Save_ID_DisableMode = 0;
  for (std::int16_t i = 0; i < kRows; ++i) {
    device.t_DisableID_ON(i, 0);
    device.t_DisableID_Start(i, 0x100 + i);
    device.t_DisableID_End(i, 0x200 + i);
    device.t_MsgMarkerID(i, 0x300 + i);
    device.t_MsgMarkerStartByte(i, 2);
    device.t_MsgMarkerEndByte(i, 7);
    device.t_MsgMarkerColor(i, 0x101010 * (i + 1));
    device.t_MsgMarker_ON(i, 0);
  }
  // Both servers are there and logging is on, so that nothing is grey.
  device.ExcelInstallCheck = 3;
  device.ExcelInstallVersion = 15;
  device.AccessInstallCheck = 1;
  device.AccessInstallVersion = 14;
  device.t_LogSave_Enable = 1;
  device.t_LogSaveFormat = kNoButton;
  device.t_Excel_soft = 1;
  device.t_Excel_Format = kNoButton;
  device.t_LogSaveFilePath_mode = kNoButton;
  device.t_LogSaveFilePath = u"C:\\logs";
  device.t_LogSave_subFolder = 0;
  device.t_SaveFormat = kNoButton;
  device.t_SaveFilePath_mode = kNoButton;
  device.t_SaveFilePath = u"C:\\snapshots";
}

Controls CommonSettings() {
  using Device = ELM327_Info;
  Controls controls{
      Press(id::RB_MsgType_0, [](Device& d) { d.t_msgID_type = 0; }),
      Press(id::RB_MsgType_1, [](Device& d) { d.t_msgID_type = 128; }),
      Press(id::RB_MsgFmtTyp_0, [](Device& d) { d.t_MsgFmtTyp = 0; }),
      Press(id::RB_MsgFmtTyp_1, [](Device& d) { d.t_MsgFmtTyp = 1; }),
      Press(id::RB_Silent_Mode_0, [](Device& d) { d.t_silent_mode = 0; }),
      Press(id::RB_Silent_Mode_1, [](Device& d) { d.t_silent_mode = 1; }),
      Press(id::CB_DataChangeColor_Enable, [](Device& d) { d.t_DataChangeColorEnable = 1; }),
      Box(id::TB_DataChangeColorTime, L"55", [](Device& d) { d.t_DataChangeColorTime = 55000; }),
      Press(id::Bt_DataChangeColor_Dialog, [](Device& d) { d.t_DataChangeColor = 0; }),
      Press(id::CB_MsgLateColor_Enable, [](Device& d) { d.t_MsgLateColorEnable = 1; }),
      Box(id::TB_MsgLateColor_Ratio, L"66", [](Device& d) { d.t_MsgLateColor_Ratio = 66; }),
      Box(id::TB_MsgLateColor_Time, L"77", [](Device& d) { d.t_MsgLateColor_Time = 77000; }),
      Press(id::Bt_MsgLateColor_Dialog, [](Device& d) { d.t_MsgLateColor = 0; }),
      Press(id::CB_Msg_Blackout_Enable, [](Device& d) { d.t_MsgBlackout_Enable = 1; }),
      Box(id::TB_Msg_Blackout_Ratio, L"888", [](Device& d) { d.t_MsgBlackout_Ratio = 888; }),
      Press(id::Bt_Msg_Blackout_Dialog, [](Device& d) { d.t_MsgBlackout_Color = 0; }),
      Press(id::CB_ViewCaution, [](Device& d) { d.t_ViewCaution = 1; }),
      Press(id::RB_Timer_Mode_0, [](Device& d) { d.t_Timer_Mode = 0; }),
      Press(id::RB_Timer_Mode_1, [](Device& d) { d.t_Timer_Mode = 1; }),
      Box(id::TB_dividend_ratio, L"9.5", [](Device& d) { d.t_dividend_ratio = 9.5; })};
  for (int rate = 0; rate <= 8; ++rate) {
    controls.push_back(Press(id::RB_BitRate_0 + rate, [rate](Device& d) { d.t_bitRate = rate; }));
  }
  return controls;
}

Controls Option1Settings() {
  using Device = ELM327_Info;
  Controls controls{
      Press(id::CB_Save_ID_DisableMode, [](Device& d) { d.t_Save_ID_DisableMode = 1; })};
  for (std::int16_t i = 0; i < kRows; ++i) {
    const Write range = i == kLastRange ? Write::kNeverTaken : Write::kTaken;
    controls.push_back(
        {id::CB_DisableID_0 + i, nullptr, [i](Device& d) { d.t_DisableID_ON(i, 1); }, range});
    controls.push_back({id::TB_DisableID_Start_0 + i, L"1F0",
                        [i](Device& d) { d.t_DisableID_Start(i, 0x1F0); }, range});
    controls.push_back({id::TB_DisableID_End_0 + i, L"2F0",
                        [i](Device& d) { d.t_DisableID_End(i, 0x2F0); }, range});
    controls.push_back(Press(id::CB_MsgMarker_0 + i, [i](Device& d) { d.t_MsgMarker_ON(i, 1); }));
    controls.push_back(
        Box(id::TB_MsgMarkerID_0 + i, L"3F0", [i](Device& d) { d.t_MsgMarkerID(i, 0x3F0); }));
    controls.push_back(Box(id::TB_MsgMarkerStartByte_0 + i, L"4",
                           [i](Device& d) { d.t_MsgMarkerStartByte(i, 4); }));
    controls.push_back(
        Box(id::TB_MsgMarkerEndByte_0 + i, L"5", [i](Device& d) { d.t_MsgMarkerEndByte(i, 5); }));
    controls.push_back(
        Press(id::Bt_MarkerColor_Dialog_0 + i, [i](Device& d) { d.t_MsgMarkerColor(i, 0); }));
  }
  return controls;
}

Controls LogSettings() {
  using Device = ELM327_Info;
  Controls controls{
      Press(id::RB_SV_Format_1, [](Device& d) { d.t_SaveFormat = 1; }),
      Press(id::RB_SV_Format_0, [](Device& d) { d.t_SaveFormat = 2; }),
      Box(id::TB_SaveFilePath, L"C:\\a", [](Device& d) { d.t_SaveFilePath = u"C:\\a"; }),
      Press(id::CB_LogFile_Enable, [](Device& d) { d.t_LogSave_Enable = 0; }),
      Press(id::RB_LogSV_Format_0, [](Device& d) { d.t_LogSaveFormat = 1; }),
      Press(id::RB_LogSV_Format_1, [](Device& d) { d.t_LogSaveFormat = 2; }),
      Press(id::RB_Excel_Format_0, [](Device& d) { d.t_Excel_Format = 1; }),
      Press(id::RB_Excel_Format_1, [](Device& d) { d.t_Excel_Format = 2; }),
      Box(id::TB_LogSaveFilePath, L"C:\\b", [](Device& d) { d.t_LogSaveFilePath = u"C:\\b"; }),
      Press(id::CB_LogSave_subFolder, [](Device& d) { d.t_LogSave_subFolder = 1; }),
      Press(id::CB_Excel_soft_KO, [](Device& d) { d.t_Excel_soft = 2; })};
  for (int mode = 0; mode <= 2; ++mode) {
    controls.push_back(
        Press(id::RB_SaveFilePath_0 + mode, [mode](Device& d) { d.t_SaveFilePath_mode = mode; }));
    controls.push_back(Press(id::RB_LogSaveFilePath_0 + mode,
                             [mode](Device& d) { d.t_LogSaveFilePath_mode = mode; }));
  }
  return controls;
}

constexpr Controls (*kControlsOf[])() = {&CommonSettings, &Option1Settings, &LogSettings};

bool IsColourButton(HWND control) {
  return (GetWindowLongPtrW(control, GWL_STYLE) & BS_TYPEMASK) == BS_OWNERDRAW &&
         ClassOf(control) == u"button";
}

/// What a control shows.
struct Face {
  String text;
  COLORREF colour;
  bool checked;
  friend bool operator==(const Face&, const Face&) = default;
};

Face FaceOf(HWND control) {
  return {ClassOf(control) == u"edit" ? WindowText(control) : String(), ControlColour(control),
          SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED};
}

std::set<int> Ids(const std::map<int, Face>& controls) {
  std::set<int> ids;
  for (const auto& [control, face] : controls) ids.insert(control);
  return ids;
}

/// One of the settings dialogs, by its number.
class DialogBindings : public testing::TestWithParam<int> {
 protected:
  void SetUp() override { ASSERT_TRUE(windows_.Made()); }

  [[nodiscard]] ELM327_Info& Device() { return windows_.Device(); }

  /// What the controls of the dialog show when it opens.
  std::map<int, Face> Shown() {
    const HWND dialog = windows_.OpenSettings(GetParam());
    std::map<int, Face> shown;
    ForEachShownChild(dialog, [&shown](HWND child) {
      if (ClassOf(child) != u"static") shown[GetDlgCtrlID(child)] = FaceOf(child);
    });
    AllWindows::Close(dialog);
    return shown;
  }
  /// The controls that show something else than with all settings apart, and what.
  std::map<int, Face> ShownOtherwise(const Change& change) {
    SetAllApart(Device());
    if (apart_.empty()) apart_ = Shown();
    change(Device());
    std::map<int, Face> shown = Shown();
    std::erase_if(shown,
                  [this](const auto& entry) { return apart_.at(entry.first) == entry.second; });
    return shown;
  }
  /// Opens the dialog, works on a control, and presses OK.
  void Use(const BoundControl& control) {
    const HWND dialog = windows_.OpenSettings(GetParam());
    const HWND hwnd = GetDlgItem(dialog, control.number);
    if (control.typed != nullptr) {
      SetWindowTextW(hwnd, control.typed);
    } else if (IsColourButton(hwnd)) {
      // It starts on no colour of the program, so a bare OK gives black.
      const WhileAsked asked(
          dialog, [hwnd] { SendMessageW(hwnd, BM_CLICK, 0, 0); },
          [](HWND colours) { Answer(colours, IDOK); });
    } else {
      SendMessageW(hwnd, BM_CLICK, 0, 0);
    }
    SendMessageW(dialog, WM_COMMAND, id::Bt_OK, 0);
    EXPECT_FALSE(IsWindow(dialog));
  }

  AllWindows windows_;
  std::map<int, Face> apart_;
};

TEST_P(DialogBindings, EachControlShowsItsOwnSettingAndNoOther) {
  for (const BoundControl& control : kControlsOf[GetParam()]()) {
    const std::map<int, Face> shown = ShownOtherwise(control.change);
    ASSERT_EQ(Ids(shown), std::set{control.number}) << control.number;
    if (control.typed == nullptr) continue;
    EXPECT_EQ(shown.begin()->second.text,
              String(FromWide(control.typed, std::wcslen(control.typed))));
  }
}

TEST_P(DialogBindings, EachControlChangesItsOwnSettingAndNoOther) {
  for (const BoundControl& control : kControlsOf[GetParam()]()) {
    SetAllApart(Device());
    Use(control);
    const std::string changed = SettingsText(Device());
    SetAllApart(Device());
    if (control.write == Write::kTaken) control.change(Device());
    EXPECT_EQ(changed, SettingsText(Device())) << control.number;
  }
}

INSTANTIATE_TEST_SUITE_P(Dialogs, DialogBindings, testing::Values(0, 1, 2), [](const auto& row) {
  return std::string(std::array{"CommonSetting", "Option1", "OptionLog1"}[std::size_t(row.param)]);
});

/// The log settings, whose status lines show what start-up found.
class StatusLines : public DialogBindings {};

TEST_P(StatusLines, EachShowsItsOwnProgram) {
  const struct {
    const char* label;
    Change change;
    std::set<int> ids;
  } rows[] = {
      {"Access",
       [](ELM327_Info& d) { d.AccessInstallCheck = 0; },
       {id::TB_Access_Status, id::TB_Access_Ver}},
      {"its version", [](ELM327_Info& d) { d.AccessInstallVersion = 9; }, {id::TB_Access_Ver}},
      {"Excel",
       [](ELM327_Info& d) { d.ExcelInstallCheck = 2; },
       {id::TB_Excel_Status, id::TB_Excel_Ver}},
      {"its version", [](ELM327_Info& d) { d.ExcelInstallVersion = 9; }, {id::TB_Excel_Ver}},
      {"the other office", [](ELM327_Info& d) { d.ExcelInstallCheck = 1; }, {id::TB_Excel_Status2}},
  };
  for (const auto& row : rows) EXPECT_EQ(Ids(ShownOtherwise(row.change)), row.ids) << row.label;
}

INSTANTIATE_TEST_SUITE_P(Dialogs, StatusLines, testing::Values(2));

}  // namespace
}  // namespace tolvane::platform::windows
