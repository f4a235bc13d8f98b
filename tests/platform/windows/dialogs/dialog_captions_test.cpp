// Which caption each control of the settings dialogs has, by its number: its own text, the frame
// around it and the labels on its line.
#include <gtest/gtest.h>

#include <tolvane_control_ids.h>
#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include "tests/platform/windows/all_windows_bed.h"

namespace tolvane::platform::windows {
namespace {

struct Caption {
  int control;
  StringView text;         // empty for a box, a picture, a colour
  StringView frame;        // empty for none
  StringView labels = {};  // from the left, a blank between two
};

constexpr Caption kCommonSettings[] = {
    {id::RB_BitRate_0, u"1M bps", u"通信速度"},
    {id::RB_BitRate_1, u"800k bps", u"通信速度"},
    {id::RB_BitRate_2, u"500k bps", u"通信速度"},
    {id::RB_BitRate_3, u"250k bps", u"通信速度"},
    {id::RB_BitRate_4, u"100k bps", u"通信速度"},
    {id::RB_BitRate_5, u"50k bps", u"通信速度"},
    {id::RB_BitRate_6, u"20k bps", u"通信速度"},
    {id::RB_BitRate_7, u"10k bps", u"通信速度"},
    {id::RB_BitRate_8, u"125k bps", u"通信速度"},
    {id::Label9, u"紫・・・CANUSB、Kvaser", u"通信速度"},
    {id::Label6, u"青・・・CANUSBのみ", u"通信速度"},
    {id::RB_MsgType_0, u"11ビットＣＡＮ", u"メッセージ仕様"},
    {id::RB_MsgType_1, u"29ビットＣＡＮ", u"メッセージ仕様"},
    {id::RB_MsgFmtTyp_0, u"11ビットＣＡＮも受信", u"拡張CAN 受信フィルタ"},
    {id::RB_MsgFmtTyp_1, u"29ビットＣＡＮのみ", u"拡張CAN 受信フィルタ"},
    {id::RB_Silent_Mode_0, u"ACKを返す", u"サイレントモード", u"Interface "},
    {id::RB_Silent_Mode_1, u"サイレント", u"サイレントモード", u"Kvaserのみ"},
    {id::Label7, u"Interface ", u"サイレントモード"},
    {id::Label8, u"Kvaserのみ", u"サイレントモード"},
    {id::CB_DataChangeColor_Enable, u"有効", u"データ変化時の色表示", u"sec"},
    {id::TB_DataChangeColorTime, u"", u"データ変化時の色表示", u"sec"},
    {id::Bt_DataChangeColor_Dialog, u"", u"データ変化時の色表示", u"sec"},
    {id::CB_MsgLateColor_Enable, u"有効", u"受信周期遅れの色表示", u"％"},
    {id::TB_MsgLateColor_Ratio, u"", u"受信周期遅れの色表示", u"％"},
    {id::TB_MsgLateColor_Time, u"", u"受信周期遅れの色表示", u"表示時間 sec"},
    {id::Bt_MsgLateColor_Dialog, u"", u"受信周期遅れの色表示", u"％"},
    {id::CB_Msg_Blackout_Enable, u"有効", u"受信途絶の色表示", u"％"},
    {id::TB_Msg_Blackout_Ratio, u"", u"受信途絶の色表示", u"％"},
    {id::Bt_Msg_Blackout_Dialog, u"", u"受信途絶の色表示", u"％"},
    {id::CB_ViewCaution, u"接続中に警告表示をする", u""},
    {id::RB_Timer_Mode_0, u"デバイス", u"タイマー"},
    {id::RB_Timer_Mode_1, u"Windows", u"タイマー"},
    {id::TB_dividend_ratio, u"", u"タイマー", u"分周比"},
    {id::Bt_OK, u"OK", u""},
    {id::Bt_Cancell, u"キャンセル", u""},
};

constexpr Caption kOption1[] = {
    {id::CB_Save_ID_DisableMode, u"除外設定をログ出力にも適用する", u"メッセージ除外設定"},
    {id::Bt_OK, u"OK", u"", u"※ CAN ID は、半角16進数で入力"},
    {id::Bt_Cancell, u"キャンセル", u"", u"※ CAN ID は、半角16進数で入力"},
};

constexpr Caption kLogSettings[] = {
    {id::RB_SV_Format_1, u"リッチテキスト形式で保存 (.rtf)", u"スナップショットの形式"},
    {id::RB_SV_Format_0, u"テキスト形式で保存 （.txt）", u"スナップショットの形式"},
    {id::RB_SaveFilePath_0, u"実行ファイルのフォルダ内", u"スナップショットの保存先"},
    {id::RB_SaveFilePath_1, u"デスクトップ上", u"スナップショットの保存先"},
    {id::RB_SaveFilePath_2, u"指定したフォルダ", u"スナップショットの保存先"},
    {id::TB_SaveFilePath, u"", u"スナップショットの保存先"},
    {id::Img_save_folder, u"", u"スナップショットの保存先"},
    {id::Img_save_folder_path, u"", u"スナップショットの保存先"},
    {id::CB_LogFile_Enable, u"ログファイルを保存する", u""},
    {id::GB_LogSave_Format, u"ログファイルの形式", u""},
    {id::RB_LogSV_Format_0, u"Excel形式で保存", u"ログファイルの形式"},
    {id::RB_LogSV_Format_1, u"テキスト形式で保存 （.csv）", u"ログファイルの形式"},
    {id::RB_LogSV_Format_2, u"Access形式で保存 （.mdb）", u"ログファイルの形式"},
    {id::RB_LogSV_Format_3, u"Access形式で保存 （.mdb）", u"ログファイルの形式"},
    {id::GB_Excel_Format, u"Excelフォーマット", u""},
    {id::RB_Excel_Format_0, u"xls形式", u"Excelフォーマット"},
    {id::RB_Excel_Format_1, u"xlsx形式 （2007以降）", u"Excelフォーマット"},
    {id::CB_Excel_soft_KO, u"Kingsoft Officeを使用する", u""},
    {id::GB_LogSave_path, u"ログファイルの保存先", u""},
    {id::RB_LogSaveFilePath_0, u"実行ファイルのフォルダ内", u"ログファイルの保存先"},
    {id::RB_LogSaveFilePath_1, u"デスクトップ上", u"ログファイルの保存先"},
    {id::RB_LogSaveFilePath_2, u"指定したフォルダ", u"ログファイルの保存先"},
    {id::TB_LogSaveFilePath, u"", u"ログファイルの保存先"},
    {id::Img_Log_save_folder, u"", u"ログファイルの保存先"},
    {id::Img_Log_save_folder_path, u"", u"ログファイルの保存先"},
    {id::CB_LogSave_subFolder, u"コメントをサブフォルダにして保存する", u""},
    {id::Bt_OK, u"OK", u""},
    {id::Bt_Cancell, u"キャンセル", u""},
};

// The status lines, whose text is the program's: only the text next to them is fixed.
constexpr Caption kStatusLines[] = {
    {id::TB_Excel_Status, u"", u"", u"Excelインストール ・・・"},
    {id::TB_Excel_Ver, u"", u"", u"Excelインストール ・・・"},
    {id::TB_Excel_Status2, u"", u"", u"Kingsoft Officeインストール ・・・"},
    {id::TB_Access_Status, u"", u"", u"Accessインストール ・・・"},
    {id::TB_Access_Ver, u"", u"", u"Accessインストール ・・・"},
};

RECT PlaceOf(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  return place;
}

bool Encloses(const RECT& outer, const RECT& inner) {
  return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
         outer.bottom >= inner.bottom;
}

bool IsFrame(HWND window) {
  return ClassOf(window) == u"button" &&
         (GetWindowLongPtrW(window, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
}

class OpenDialog {
 public:
  OpenDialog(AllWindows& windows, int number) : dialog_(windows.OpenSettings(number)) {
    EXPECT_NE(dialog_, nullptr);
  }
  ~OpenDialog() { AllWindows::Close(dialog_); }
  OpenDialog(const OpenDialog&) = delete;
  OpenDialog& operator=(const OpenDialog&) = delete;

  [[nodiscard]] HWND Control(int control) const { return GetDlgItem(dialog_, control); }
  [[nodiscard]] String Text(int control) const { return WindowText(Control(control)); }

  /// The frame around a control, null for none.
  [[nodiscard]] HWND Frame(HWND control) const {
    HWND frame = nullptr;
    ForEachShownChild(dialog_, [&](HWND other) {
      if (other != control && IsFrame(other) && Encloses(PlaceOf(other), PlaceOf(control))) {
        frame = other;
      }
    });
    return frame;
  }

  /// The labels at the height of a control, within its frame.
  [[nodiscard]] String Labels(HWND control) const {
    const RECT place = PlaceOf(control);
    const LONG middle = (place.top + place.bottom) / 2;
    std::map<LONG, String> labels;
    ForEachShownChild(dialog_, [&](HWND other) {
      const RECT bounds = PlaceOf(other);
      const bool level = bounds.top < middle && middle < bounds.bottom;
      if (!level || other == control || ClassOf(other) != u"static") return;
      const String text = WindowText(other);
      if (!text.empty() && Frame(other) == Frame(control)) labels[bounds.left] = text;
    });
    String line;
    for (const auto& [left, text] : labels) line += (line.empty() ? u"" : u" ") + text;
    return line;
  }

  template <std::size_t N>
  void Expect(const Caption (&captions)[N]) const {
    for (const Caption& caption : captions) ExpectAround(caption, caption.text);
  }
  /// Whatever its own text is.
  void ExpectAround(const Caption& caption, StringView text) const {
    const HWND control = Control(caption.control);
    ASSERT_NE(control, nullptr) << caption.control;
    // What an edit control holds is a value and no caption.
    if (ClassOf(control) != u"edit") {
      EXPECT_EQ(WindowText(control), text) << caption.control;
    }
    const HWND frame = Frame(control);
    EXPECT_EQ(frame == nullptr ? String() : WindowText(frame), caption.frame) << caption.control;
    if (ClassOf(control) == u"edit" || !caption.labels.empty()) {
      EXPECT_EQ(Labels(control), caption.labels) << caption.control;
    }
  }

 private:
  HWND dialog_;
};

class DialogCaptions : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(windows_.Made()); }

  AllWindows windows_;
};

TEST_F(DialogCaptions, OfTheCommonSettingsStandAtTheirControls) {
  OpenDialog(windows_, 0).Expect(kCommonSettings);
}

TEST_F(DialogCaptions, OfTheLogSettingsStandAtTheirControls) {
  const OpenDialog dialog(windows_, 2);
  dialog.Expect(kLogSettings);
  dialog.Expect(kStatusLines);
}

TEST_F(DialogCaptions, OfTheExtensionSettingsStandAtTheirControls) {
  OpenDialog(windows_, 1).Expect(kOption1);
}

TEST_F(DialogCaptions, TheRowsOfTheExtensionSettingsStandInTheirOrderEachOnALine) {
  const OpenDialog dialog(windows_, 1);
  const struct {
    StringView frame;
    std::vector<int> row;  // its first one, from the left
  } tables[] = {{u"メッセージ除外設定",
                 {id::CB_DisableID_0, id::TB_DisableID_Start_0, id::TB_DisableID_End_0}},
                {u"マーカー設定",
                 {id::CB_MsgMarker_0, id::TB_MsgMarkerID_0, id::TB_MsgMarkerStartByte_0,
                  id::TB_MsgMarkerEndByte_0, id::Bt_MarkerColor_Dialog_0}}};
  for (const auto& table : tables) {
    LONG line_above = 0;
    for (int row = 0; row < 8; ++row) {
      const auto middle = [](const RECT& place) { return (place.top + place.bottom) / 2; };
      const LONG line = middle(PlaceOf(dialog.Control(table.row[0] + row)));
      EXPECT_GT(line, line_above) << row;
      line_above = line;
      LONG left = 0;
      for (const int first : table.row) {
        const Caption caption{first + row, u"", table.frame, u"～"};
        dialog.ExpectAround(caption, u"");
        const RECT place = PlaceOf(dialog.Control(caption.control));
        EXPECT_NEAR(middle(place), line, 2) << caption.control;
        EXPECT_GT(place.left, left) << caption.control;
        left = place.left;
      }
    }
  }
}

}  // namespace
}  // namespace tolvane::platform::windows
