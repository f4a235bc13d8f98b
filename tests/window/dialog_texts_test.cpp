// The fixed texts of the settings dialogs, as a user finds them.
#include "tests/window/control_ids.h"
#include "tests/window/dialog_fixture.h"

#include "tools/drive/text.h"

namespace tolvane::window {
namespace {

using Texts = std::vector<std::wstring>;

/// The texts of labels, frames and buttons in their order, without the empty ones, one a line.
std::string TextsOf(const DrivenWindow& dialog) {
  std::string texts;
  HWND child = nullptr;
  while ((child = FindWindowExW(dialog.Handle(), child, nullptr, nullptr)) != nullptr) {
    wchar_t name[16] = L"";
    GetClassNameW(child, name, static_cast<int>(std::size(name)));
    const bool fixed = lstrcmpiW(name, L"Static") == 0 || lstrcmpiW(name, L"Button") == 0;
    const std::wstring text = fixed ? TextOf(child) : L"";
    if (!text.empty()) texts += Utf8(text) + "\n";
  }
  return texts;
}

std::string Lines(const Texts& texts) {
  std::string lines;
  for (const std::wstring& text : texts) lines += Utf8(text) + "\n";
  return lines;
}

const Texts kCommonSetting = {L"通信速度",
                              L"1M bps",
                              L"800k bps",
                              L"500k bps",
                              L"250k bps",
                              L"100k bps",
                              L"50k bps",
                              L"20k bps",
                              L"10k bps",
                              L"125k bps",
                              L"紫・・・CANUSB、Kvaser",
                              L"青・・・CANUSBのみ",
                              L"メッセージ仕様",
                              L"11ビットＣＡＮ",
                              L"29ビットＣＡＮ",
                              L"拡張CAN 受信フィルタ",
                              L"11ビットＣＡＮも受信",
                              L"29ビットＣＡＮのみ",
                              L"サイレントモード",
                              L"ACKを返す",
                              L"サイレント",
                              L"Interface ",
                              L"Kvaserのみ",
                              L"タイマー",
                              L"デバイス",
                              L"Windows",
                              L"分周比",
                              L"データ変化時の色表示",
                              L"有効",
                              L"sec",
                              L"受信周期遅れの色表示",
                              L"有効",
                              L"％",
                              L"表示時間",
                              L"sec",
                              L"受信途絶の色表示",
                              L"有効",
                              L"％",
                              L"接続中に警告表示をする",
                              L"OK",
                              L"キャンセル"};
const Texts kOption1 = {L"メッセージ除外設定",
                        L"CAN ID",
                        L"～",
                        L"～",
                        L"～",
                        L"～",
                        L"～",
                        L"～",
                        L"～",
                        L"～",
                        L"除外設定をログ出力にも適用する",
                        L"マーカー設定",
                        L"CAN ID",
                        L"Byte",
                        L"～",
                        L"～",
                        L"～",
                        L"～",
                        L"～",
                        L"～",
                        L"～",
                        L"～",
                        L"※ CAN ID は、半角16進数で入力",
                        L"OK",
                        L"キャンセル"};
const Texts kOptionLog1 = {L"スナップショットの形式",
                           L"リッチテキスト形式で保存 (.rtf)",
                           L"テキスト形式で保存 （.txt）",
                           L"スナップショットの保存先",
                           L"実行ファイルのフォルダ内",
                           L"デスクトップ上",
                           L"指定したフォルダ",
                           L"Excelインストール ・・・",
                           L"Kingsoft Officeインストール ・・・",
                           L"Accessインストール ・・・",
                           L"ログファイルを保存する",
                           L"ログファイルの形式",
                           L"Excel形式で保存",
                           L"テキスト形式で保存 （.csv）",
                           L"Access形式で保存 （.mdb）",
                           L"Access形式で保存 （.mdb）",
                           L"Excelフォーマット",
                           L"xls形式",
                           L"xlsx形式 （2007以降）",
                           L"Kingsoft Officeを使用する",
                           L"ログファイルの保存先",
                           L"実行ファイルのフォルダ内",
                           L"デスクトップ上",
                           L"指定したフォルダ",
                           L"コメントをサブフォルダにして保存する",
                           L"OK",
                           L"キャンセル"};

using DialogTexts = OpenedWindows;

TEST_F(DialogTexts, StandInEveryDialogLetterForLetter) {
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  ASSERT_NO_FATAL_FAILURE(Start());
  const struct {
    int menu;
    const Texts& texts;
  } dialogs[] = {{id::menu_common_setting, kCommonSetting},
                 {id::menu_opt_function1, kOption1},
                 {id::menu_opt_log1, kOptionLog1}};
  for (const auto& row : dialogs) {
    const DrivenWindow dialog = Open(row.menu);
    ASSERT_TRUE(dialog.Exists());
    EXPECT_EQ(TextsOf(dialog), Lines(row.texts));
    PressCancel(dialog);
  }
  End();
}

}  // namespace
}  // namespace tolvane::window
