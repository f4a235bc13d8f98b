// Start and end of the process, as a user sees them.
#include <functional>
#include <vector>

#include "tests/window/control_ids.h"
#include "tests/window/window_fixture.h"
#include "tools/drive/text.h"
#include "tools/drive/what_runs.h"

namespace tolvane::window {
namespace {

constexpr const wchar_t* kTitle = L"Tolvane Ver1.23";

using Start = RealProgram;

TEST_F(Start, OneCanusbAdapterIsListedWithItsVersionAndTheWindowWaits) {
  PlugIn("[canusb 1]\nserial = TV700001\nversion = V1.02N0.93\n", {L"canusbdrv.dll"});
  const DrivenWindow window = StartProgram();
  ASSERT_TRUE(window.Exists());
  ASSERT_TRUE(WaitUntil([&] { return window.Enabled(id::Bt_Connect); }));

  EXPECT_EQ(window.Text(), kTitle);
  EXPECT_EQ(window.ListLines(id::Cmb_Serect_Device), std::vector<std::wstring>{L"CANUSB TV700001"});
  EXPECT_EQ(window.SelectedLine(id::Cmb_Serect_Device), 0);
  EXPECT_EQ(window.Text(id::TB_ODB_Hard_Version), L"V1.02N0.93");
  EXPECT_EQ(window.Text(id::TB_LogComment), L"ＣＡＮ受信ログ");
  EXPECT_EQ(State(window), IdleState());
  EXPECT_EQ(FindTopWindow(kSplashClass, program_->Id()), nullptr);
  KeepPicture(window.Handle(), "window");

  window.Close();
  EXPECT_EQ(program_->WaitForEnd(), 0u);
  EXPECT_TRUE(std::filesystem::exists(folder_.Path() / L"config.dat"));
  EXPECT_TRUE(std::filesystem::exists(folder_.Path() / L"lglist.dat"));
}

// What a test reports whose program does not come.
TEST_F(Start, TheProgramAndItsWindowAreAmongWhatRuns) {
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  ASSERT_TRUE(StartProgram().Exists());
  const std::wstring told = WhatRuns();
  const std::size_t begin = told.find(L"Tolvane.exe " + std::to_wstring(program_->Id()) + L":");
  ASSERT_NE(begin, std::wstring::npos) << Utf8(told);
  const std::wstring line = told.substr(begin, told.find(L'\n', begin) - begin);
  EXPECT_NE(line.find(L" TolvaneMainWindow \"Tolvane Ver"), std::wstring::npos) << Utf8(line);
}

TEST_F(Start, SecondInstanceEndsWithoutAWordAndTouchesNoFile) {
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  const DrivenWindow window = StartProgram();
  ASSERT_TRUE(window.Exists());

  const DrivenProgram second(folder_.Executable());
  ASSERT_TRUE(second.Started());
  EXPECT_EQ(second.WaitForEnd(), 0u);
  EXPECT_FALSE(std::filesystem::exists(folder_.Path() / L"lglist.dat"));
  EXPECT_FALSE(std::filesystem::exists(folder_.Path() / L"config.dat"));
  EXPECT_TRUE(window.Exists());
}

// A message that is sent is handled while the program waits for one that is posted.
TEST_F(Start, EveryWayOfClosingSavesAndEndsTheProgram) {
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  const struct {
    const char* label;
    std::function<void(HWND)> close;
  } rows[] = {
      {"close", [](HWND window) { SendNotifyMessageW(window, WM_CLOSE, 0, 0); }},
      {"menu", [](HWND window) { SendNotifyMessageW(window, WM_COMMAND, id::menu_file_close, 0); }},
      {"end of the session",
       [](HWND window) {
         EXPECT_EQ(SendMessageW(window, WM_QUERYENDSESSION, 0, 0), TRUE);
         SendNotifyMessageW(window, WM_ENDSESSION, TRUE, 0);
       }},
      {"quit",
       [](HWND window) {
         PostThreadMessageW(GetWindowThreadProcessId(window, nullptr), WM_QUIT, 0, 0);
       }},
  };
  for (const auto& row : rows) {
    const DrivenWindow window = StartProgram();
    ASSERT_TRUE(window.Exists()) << row.label;
    ASSERT_TRUE(WaitUntil([&] { return window.Enabled(id::Bt_Connect); })) << row.label;
    row.close(window.Handle());
    EXPECT_EQ(program_->WaitForEnd(), 0u) << row.label;
    EXPECT_TRUE(std::filesystem::remove(folder_.Path() / L"config.dat")) << row.label;
    EXPECT_TRUE(std::filesystem::remove(folder_.Path() / L"lglist.dat")) << row.label;
  }
}

// The support library is searched for in the folder's path with every "Tolvane.exe" in it removed.
TEST_F(Start, AFolderThatBearsTheProgramsNameTwiceIsSearchedWithoutIt) {
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  const ProgramFolder named(OwnFolder() / L"..\\..\\program",
                            OwnFolder() / L"Tolvane.exe-under-Tolvane.exetest");
  const ProgramFolder searched(OwnFolder() / L"..\\..\\program", OwnFolder() / L"-under-test");
  {
    program_.emplace(named.Executable());
    const DrivenWindow window = program_->WaitForMainWindow();
    ASSERT_TRUE(window.Exists());
    EXPECT_TRUE(WaitUntil([&] { return window.Enabled(id::Bt_Connect); }));
    window.Close();
    EXPECT_EQ(program_->WaitForEnd(), 0u);
  }
  std::filesystem::remove(searched.Path() / L"qxt100.dll");
  program_.emplace(named.Executable());
  const auto message = WaitForMessage(program_->Id());
  ASSERT_TRUE(message);
  EXPECT_TRUE(message->text.starts_with(L"qxt100.dll が見つかりません。")) << Utf8(message->text);
  ASSERT_TRUE(Press(*message, IDOK));
  EXPECT_TRUE(program_->WaitForEnd());
}

struct FailedStart {
  const char* label;
  std::string_view ini;
  std::vector<const wchar_t*> libraries;
  const wchar_t* missing_file;  // of the program's folder, null for none
  std::function<std::wstring()> text;
  bool writes_settings;
  std::optional<double> progress;  // of the splash under the message, if it is shown by then
};

std::ostream& operator<<(std::ostream& stream, const FailedStart& row) {
  return stream << row.label;
}

/// How far the bar has come, of 1, to the pixel.
double ProgressOf(const DrivenWindow& splash) {
  RECT track{};
  GetClientRect(splash.Control(id::Pic_ProgressBar_0), &track);
  POINT cover{};
  MapWindowPoints(splash.Control(id::Pic_ProgressBar_1), splash.Control(id::Pic_ProgressBar_0),
                  &cover, 1);
  return track.right > 0 ? static_cast<double>(cover.x) / track.right : -1;
}

class StartFails : public RealProgram, public testing::WithParamInterface<FailedStart> {
 protected:
  void ExpectSplash(std::optional<double> progress) const {
    const DrivenWindow splash(FindTopWindow(kSplashClass, program_->Id()));
    ASSERT_EQ(splash.Exists(), progress.has_value());
    EXPECT_EQ(FindTopWindow(kMainWindowClass, program_->Id()), nullptr);
    if (!progress) return;
    EXPECT_EQ(Utf8(splash.Text(id::Lb_msg)), Utf8(L"検索結果の判断処理中"));
    EXPECT_NEAR(ProgressOf(splash), *progress, 0.005);
    EXPECT_TRUE(splash.Visible(id::Image1));
  }
};

TEST_P(StartFails, WithItsMessageAndEndsTheProgram) {
  const FailedStart& row = GetParam();
  PlugIn(row.ini, row.libraries);
  if (row.missing_file != nullptr) std::filesystem::remove(folder_.Path() / row.missing_file);

  const std::optional<ShownMessage> message = StartToMessage();
  ASSERT_TRUE(message);
  EXPECT_EQ(Utf8(message->title), Utf8(kTitle));
  EXPECT_EQ(Utf8(message->text), Utf8(row.text()));
  KeepPicture(message->box, "message");
  ExpectSplash(row.progress);

  ASSERT_TRUE(Press(*message, IDOK));
  EXPECT_TRUE(program_->WaitForEnd());
  // The view was not restored yet, so the empty one is kept; the settings only once they were read.
  EXPECT_TRUE(std::filesystem::exists(folder_.Path() / L"lglist.dat"));
  EXPECT_EQ(std::filesystem::exists(folder_.Path() / L"config.dat"), row.writes_settings);
}

const FailedStart kFailedStarts[] = {
    {"SupportLibraryMissing",
     kOneCanusb,
     {L"canusbdrv.dll"},
     L"qxt100.dll",
     [] {
       return std::wstring(
           L"qxt100.dll が見つかりません。\r\nqxt100.dll は同梱のものを使用してください。\r\n"
           L"アプリケーションを終了します。");
     },
     false,
     {}},
    {"NoAdapterLibrary",
     "",
     {},
     nullptr,
     [] {
       return L"CANインタフェース用DLLが見つかりません。\r\n" + SystemFolder().wstring() +
              L"\\canusbdrv.dll\r\nドライバがインストールされていません。\r\n"
              L"アプリケーションを終了します。";
     },
     false,
     {}},
    {"NothingPluggedIn",
     "[bus]\nsource = vehicle\n",
     {L"canusbdrv.dll", L"IFCan.dll", L"canlib32.dll"},
     nullptr,
     [] { return std::wstring(L"デバイスが見つかりません。\r\nアプリケーションを終了します。"); },
     true,
     0.45},
    {"VersionQueryFails",
     "[canusb 1]\ncanusb_VersionInfo = -1\n",
     {L"canusbdrv.dll"},
     nullptr,
     [] {
       return std::wstring(L"機器が正常に動作していません。\r\nアプリケーションを終了します。");
     },
     true,
     0.8},
};

INSTANTIATE_TEST_SUITE_P(Table, StartFails, testing::ValuesIn(kFailedStarts),
                         [](const auto& row) { return row.param.label; });

}  // namespace
}  // namespace tolvane::window
