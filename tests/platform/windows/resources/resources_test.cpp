// The built program's resources, read back: Japanese text gets lost without an error when the
// resource compiler takes the file for something else than UTF-8.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tolvane_control_ids.h>
#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "platform/windows/system/file_services.h"
#include "platform/windows/system/handle.h"
#include "platform/windows/system/text.h"

namespace tolvane::platform::windows {
namespace {

class Resources : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(program_) << "Tolvane.exe is not built"; }

  static String ItemText(HMENU menu, UINT item, UINT by) {
    String text(200, u'\0');
    const int length =
        GetMenuStringW(menu, item, WideData(text), static_cast<int>(text.size()), by);
    text.resize(static_cast<std::size_t>(length));
    return text;
  }

  ModuleHandle program_{
      LoadLibraryExW(Wide(ExecutableFolder() + u"\\..\\..\\..\\program\\Tolvane.exe"), nullptr,
                     LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE)};
};

TEST_F(Resources, MenuBarHasItsTexts) {
  const MenuHandle menu(LoadMenuW(program_.Get(), MAKEINTRESOURCEW(id::MENU_MAIN)));
  ASSERT_TRUE(menu);
  EXPECT_EQ(ItemText(menu.Get(), 0, MF_BYPOSITION), u"ファイル(&F)");
  EXPECT_EQ(ItemText(menu.Get(), 1, MF_BYPOSITION), u"ツール(&T)");
  EXPECT_EQ(ItemText(menu.Get(), 2, MF_BYPOSITION), u"ヘルプ(&H)");
  EXPECT_EQ(ItemText(menu.Get(), id::menu_file_close, MF_BYCOMMAND), u"終了(&X)");
  EXPECT_EQ(ItemText(menu.Get(), id::menu_common_setting, MF_BYCOMMAND), u"共通設定(&S)");
  EXPECT_EQ(ItemText(menu.Get(), id::menu_opt_function1, MF_BYCOMMAND), u"拡張機能１");
  EXPECT_EQ(ItemText(menu.Get(), id::menu_opt_log1, MF_BYCOMMAND), u"ログ機能");
  EXPECT_EQ(ItemText(menu.Get(), id::menu_help_version, MF_BYCOMMAND), u"バージョン情報(&A)");
}

TEST_F(Resources, PopUpHasItsItemsInOrder) {
  const MenuHandle menu(LoadMenuW(program_.Get(), MAKEINTRESOURCEW(id::MENU_VIEW)));
  const HMENU items = GetSubMenu(menu.Get(), 0);
  const struct {
    UINT item;
    StringView text;
  } rows[] = {{id::menu_View_All_Copy, u"すべてコピー"},
              {id::menu_View_Ctrl_Z, u"元に戻す(&U)"},
              {0, u""},
              {id::menu_View_Ctrl_X, u"切り取り(&T)"},
              {id::menu_View_Ctrl_C, u"コピー(&C)"},
              {id::menu_View_Ctrl_V, u"貼り付け(&P)"},
              {id::menu_View_DEL, u"削除(&D)"},
              {0, u""},
              {id::menu_View_Text_Red, u"赤字"},
              {id::menu_View_Text_Blue, u"青字"},
              {id::menu_View_Text_Black, u"黒字"},
              {id::menu_View_Marker_Pink, u"マーカー ピンク"},
              {id::menu_View_Marker_Yellow, u"マーカー 黄"},
              {id::menu_View_Marker_black, u"マーカー 黒"},
              {id::menu_View_Marker_white, u"マーカー 白"},
              {0, u""},
              {id::menu_View_Date, u"日時を挿入"}};
  ASSERT_EQ(GetMenuItemCount(items), static_cast<int>(std::size(rows)));
  for (UINT place = 0; place < std::size(rows); ++place) {
    EXPECT_EQ(GetMenuItemID(items, static_cast<int>(place)), rows[place].item) << place;
    EXPECT_EQ(ItemText(items, place, MF_BYPOSITION), rows[place].text) << place;
  }
}

/// The lines of a help text that begin a section, and its first line.
String Headings(const String& text) {
  String headings;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find(u"\r\n", start), text.size());
    const String line = text.substr(start, end - start);
    if (start == 0 || line.starts_with(u'(')) headings += line + u'\n';
    start = end + 2;
  }
  return headings;
}

TEST_F(Resources, HelpTextsHaveTheirHeadingsInOrderAndNameTheProgram) {
  const struct {
    UINT topic;
    StringView headings;
  } rows[] = {{101,
               u"- 共通設定 -\n(1) 通信速度\n(2) メッセージ仕様\n(3) 拡張ＣＡＮ 受信フィルタ\n"
               u"(3) サイレントモード\n(4) データ変化時の色表示\n(5) 受信周期遅れの色表示\n"
               u"(6) 受信途絶の色表示\n(7) 接続中に警告表示をする\n(8) タイマー\n"},
              {102,
               u"- 拡張機能１ -\n(1) メッセージ除外設定\n(2) 除外設定をログ出力にも適用する\n"
               u"(3) マーカー設定\n"},
              {103,
               u"- ログ機能 -\n(1) スナップショット形式\n(2) スナップショットの保存先\n"
               u"(3) ログファイルを保存する\n(4) ログファイルの形式\n(5) Excelインストール状態\n"
               u"(6) ログファイルの保存先\n(7) コメントをサブフォルダにして保存する\n"}};
  for (const auto& row : rows) {
    const wchar_t* start = nullptr;
    const int length =
        LoadStringW(program_.Get(), row.topic, reinterpret_cast<wchar_t*>(&start), 0);
    ASSERT_GT(length, 100) << row.topic;
    const String text(FromWide(start, static_cast<std::size_t>(length)));
    EXPECT_EQ(Headings(text), row.headings) << row.topic;
    EXPECT_EQ(text.find(u"Tolvane.EXE"), String::npos) << row.topic;
    EXPECT_NE(text.find(u"Tolvane．EXE"), String::npos) << row.topic;
    EXPECT_EQ(text.find(u"Interfaceの機器では、標準フォーマットのリモートフレームも受信し") !=
                  String::npos,
              row.topic == 101)
        << row.topic;
  }
}

/// The version resource of a file of the program, empty without one.
std::vector<std::byte> VersionResource(StringView file) {
  const String path = ExecutableFolder() + u"\\..\\..\\..\\program\\" + String(file);
  std::vector<std::byte> info(GetFileVersionInfoSizeW(Wide(path), nullptr));
  if (!GetFileVersionInfoW(Wide(path), 0, static_cast<DWORD>(info.size()), info.data())) return {};
  return info;
}

/// A text of a file's version resource, empty without one.
String VersionText(StringView file, StringView name) {
  const std::vector<std::byte> info = VersionResource(file);
  if (info.empty()) return {};
  const String query = u"\\StringFileInfo\\041104B0\\" + String(name);
  void* text = nullptr;
  UINT length = 0;  // with the NUL
  if (!VerQueryValueW(info.data(), Wide(query), &text, &length) || length == 0) return {};
  return String(FromWide(static_cast<const wchar_t*>(text), length - 1));
}

/// The version as numbers, in the order in which they are written: 1, 23, 0, 0.
std::array<int, 4> VersionNumbers(StringView file) {
  const std::vector<std::byte> info = VersionResource(file);
  void* data = nullptr;
  UINT length = 0;
  if (info.empty() || !VerQueryValueW(info.data(), L"\\", &data, &length)) return {};
  const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(data);
  return {HIWORD(fixed->dwFileVersionMS), LOWORD(fixed->dwFileVersionMS),
          HIWORD(fixed->dwFileVersionLS), LOWORD(fixed->dwFileVersionLS)};
}

TEST(VersionResource, OfTheProgramAndItsLibraryTellsTheSameVersion) {
  for (const StringView file : {u"Tolvane.exe", u"qxt100.dll"}) {
    EXPECT_THAT(VersionNumbers(file), testing::ElementsAre(1, 23, 0, 0));
    EXPECT_EQ(VersionText(file, u"CompanyName"), u"Tolvane Project");
    EXPECT_EQ(VersionText(file, u"OriginalFilename"), file);
    EXPECT_EQ(VersionText(file, u"InternalName"), file.substr(0, file.rfind(u'.')));
    EXPECT_EQ(VersionText(file, u"ProductName"), u"Tolvane");
    EXPECT_EQ(VersionText(file, u"ProductVersion"), u"1.23");
    EXPECT_EQ(VersionText(file, u"FileVersion"), u"1.23");
    EXPECT_EQ(VersionText(file, u"LegalCopyright"), u"Copyright (C) 2026 Tolvane Project");
  }
  EXPECT_EQ(VersionText(u"Tolvane.exe", u"FileDescription"), u"Tolvane CANバスモニター");
  EXPECT_EQ(VersionText(u"qxt100.dll", u"FileDescription"), u"Tolvane 補助ライブラリ");
}

TEST_F(Resources, ManifestTellsTheVersionToo) {
  const HRSRC manifest =
      FindResourceW(program_.Get(), MAKEINTRESOURCEW(id::TOLVANE_MANIFEST), RT_MANIFEST);
  ASSERT_NE(manifest, nullptr);
  const auto* text = static_cast<const char*>(LockResource(LoadResource(program_.Get(), manifest)));
  EXPECT_THAT(std::string(text, SizeofResource(program_.Get(), manifest)),
              testing::HasSubstr("name=\"Tolvane\" version=\"1.23.0.0\""));
}

TEST_F(Resources, IconsComeInTheSizesOfEachResolution) {
  for (const int icon : {id::ICON_TOLVANE, id::ICON_CAUTION, id::ICON_SPLASH}) {
    const HRSRC group = FindResourceW(program_.Get(), MAKEINTRESOURCEW(icon), RT_GROUP_ICON);
    ASSERT_NE(group, nullptr) << icon;
    const auto* header =
        static_cast<const WORD*>(LockResource(LoadResource(program_.Get(), group)));
    EXPECT_GE(header[2], 4) << icon;
  }
}

}  // namespace
}  // namespace tolvane::platform::windows
