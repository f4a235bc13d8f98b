#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/run/form1_bench.h"

namespace tolvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Boxes = std::vector<platform::memory::MessageBox::Shown>;

constexpr StringView kTitle = u"Tolvane Ver1.23";

void ExpectOneStopBox(const Boxes& boxes, const String& text) {
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0].kind, platform::memory::MessageBox::Kind::kCritical);
  EXPECT_EQ(boxes[0].text, text) << platform::memory::Narrow(boxes[0].text);
  EXPECT_EQ(boxes[0].title, kTitle);
}

TEST(Start, RunsItsStepsInOrder) {
  Form1Bench bench;
  bench.Remove(kSystem, u"canlib32.dll");
  bench.memory.canusbdrv.serials = {"LAW00001", "LAW00002"};
  bench.memory.canusbdrv.version = "V1011";
  bench.memory.files.AddFile(bench.Path(kFolder, u"lglist.dat"), "{\\rtf1 kept}");
  bench.memory.automation.Register(u"Excel.Application", 16);
  bench.memory.IFCan.ports = {{.number = 1}};
  bench.memory.events.OnYield([&bench] { bench.memory.journal.Note("yield"); });

  bench.form.Form_Load();

  std::vector<std::string> port_search = {"CanOpenPort(\"IFCAN1\")", "CanGetPortInformation(101)",
                                          "CanClosePort(101)"};
  for (int n = 2; n <= 255; ++n) {
    port_search.push_back("CanOpenPort(\"IFCAN" + std::to_string(n) + "\")");
    port_search.push_back("CanClosePort(-1)");
  }
  const std::vector<std::string> version_query = {
      "canusb_Open(\"LAW00001\", \"500\", 0, -1, 1)", "canusb_VersionInfo(1)",
      "TB_ODB_Hard_Version.Text = \"V1011\"", "canusb_Close(1)"};

  std::vector<std::string> expected = {"menu_View_All_Copy.Enabled = false",
                                       "menu_View_Ctrl_Z.Enabled = false",
                                       "menu_View_Ctrl_X.Enabled = false",
                                       "menu_View_Ctrl_C.Enabled = false",
                                       "menu_View_Ctrl_V.Enabled = false",
                                       "menu_View_DEL.Enabled = false",
                                       "menu_View_Text_Red.Enabled = false",
                                       "menu_View_Text_Blue.Enabled = false",
                                       "menu_View_Text_Black.Enabled = false",
                                       "menu_View_Marker_Pink.Enabled = false",
                                       "menu_View_Marker_Yellow.Enabled = false",
                                       "menu_View_Marker_black.Enabled = false",
                                       "menu_View_Marker_white.Enabled = false",
                                       "menu_View_Date.Enabled = true",
                                       "Form1.Caption = \"Tolvane Ver1.23\"",
                                       "Form2.Lb_msg = \"デバイスの初期処理中\"",
                                       "Form2.Progress = 0",
                                       "Form2.Visible = true",
                                       "Form2.Progress = 0.15",
                                       "yield",
                                       "canusb_getFirstAdapter()",
                                       "yield",
                                       "canusb_getNextAdapter()",
                                       "yield",
                                       "canusb_getNextAdapter()",
                                       "Form2.Progress = 0.3",
                                       "yield"};
  const auto then = [&expected](const std::vector<std::string>& lines) {
    expected.insert(expected.end(), lines.begin(), lines.end());
  };
  then(port_search);
  then({"Form2.Progress = 0.4", "yield", "Form2.Progress = 0.45",
        "Form2.Lb_msg = \"検索結果の判断処理中\"", "yield", "yield",
        "Cmb_Serect_Device.AddItem(\"CANUSB LAW00001\")", "yield",
        "Cmb_Serect_Device.AddItem(\"CANUSB LAW00002\")", "Form2.Progress = 0.6", "yield", "yield",
        "Cmb_Serect_Device.AddItem(\"Interface  port:1\")", "Form2.Progress = 0.7", "yield",
        "Cmb_Serect_Device.ListIndex = 0"});
  then(version_query);
  then(version_query);
  then({"Form2.Progress = 0.8", "yield", "Form2.Visible = false",
        "RTB_MainView.PlainCompositionColours()",
        "RTB_MainView.LoadFile(\"C:\\Tolvane\\lglist.dat\")", "RTB_MainView.ScrollToEnd()",
        "create Access.Application", "Form2.Progress = 0.85", "yield", "create Excel.Application",
        "get Excel.Application.Version", "create Ket.Application", "Form2.Progress = 0.9", "yield",
        "TB_LogComment.Text = \"ＣＡＮ受信ログ\"", "Bt_Connect.Enabled = true",
        "Bt_Disconnect.Enabled = false"});
  ExpectLines(bench.memory.journal.Lines(), expected);
}

TEST(Start, LeavesTheProgramWaiting) {
  Form1Bench bench;
  bench.memory.files.AddFile(bench.Path(kFolder, u"lglist.dat"), "{\\rtf1 kept}");
  bench.form.RxFlag = bench.form.DebugMode = 1;
  bench.memory.canusbdrv.serials = {"LAW00001"};
  bench.form.Form_Load();
  EXPECT_THAT(bench.memory.message_box.Boxes(), IsEmpty());
  EXPECT_EQ(bench.form.ApplicationOpenFlag, 1);
  EXPECT_EQ(bench.form.SettingFileOpenFlag, 0) << "there was no config.dat";
  EXPECT_EQ(bench.form.DebugMode, 0);
  EXPECT_EQ(bench.form.RxFlag, 0);
  EXPECT_EQ(bench.form.mouseCursor, platform::memory::Cursors::kHand);
  EXPECT_EQ(bench.form.device.t_CmbBOX_device_SelectNo, 1);
  EXPECT_EQ(bench.form.device.t_select_Vender, kVenderCanusb);
  EXPECT_EQ(bench.memory.RTB_MainView.Text(), u"kept");
}

TEST(Start, TheClipboardDecidesOverPaste) {
  Form1Bench bench;
  bench.memory.clipboard.SetText(u"text", platform::Clipboard::Format::kPlainText);
  bench.Start();
  EXPECT_TRUE(bench.memory.window.menu_View_Ctrl_V.Enabled());
}

TEST(Start, ASecondInstanceShowsNothingAndTouchesNoFile) {
  Form1Bench bench;
  bench.memory.files.AddFile(bench.Path(kFolder, u"lglist.dat"), "of the first");
  bench.memory.single_instance.PrevInstance(true);
  bench.form.Form_Load();
  EXPECT_EQ(bench.memory.journal.Lines().front(), "Form1.Unload()");
  EXPECT_THAT(bench.Noted("Form2.Visible"), IsEmpty());
  EXPECT_THAT(bench.memory.message_box.Boxes(), IsEmpty());
  EXPECT_THAT(bench.Noted("RTB_MainView"), IsEmpty());
  EXPECT_EQ(bench.memory.files.Bytes(bench.Path(kFolder, u"lglist.dat")), "of the first");
  EXPECT_FALSE(bench.Wrote(u"config.dat"));
}

TEST(Start, OnlyLibrariesThatArePresentAreCalled) {
  Form1Bench bench;
  bench.Remove(kSystem, u"canusbdrv.dll");
  bench.Remove(kSystem, u"canlib32.dll");
  bench.memory.canusbdrv.serials = {"LAW00001"};
  bench.memory.canlib32.channels = {0};
  bench.memory.IFCan.ports = {{.number = 3}};
  bench.form.Form_Load();
  EXPECT_EQ(bench.form.ApplicationOpenFlag, 1);
  EXPECT_THAT(bench.Noted("canusb_"), IsEmpty());
  EXPECT_THAT(bench.Noted("canInitializeLibrary"), IsEmpty());
  EXPECT_THAT(bench.memory.window.Cmb_Serect_Device.Lines(), ElementsAre(u"Interface  port:3"));
}

TEST(Start, AllThreeKindsStandInTheListInTheirOrder) {
  Form1Bench bench;
  bench.memory.canusbdrv.serials = {"LAW00001"};
  bench.memory.IFCan.ports = {{.number = 2, .information = {36, 0, 4851, 513, 0, 0, 0, 0, 0}}};
  bench.memory.canlib32.channels = {0};
  bench.form.Form_Load();
  EXPECT_THAT(bench.memory.window.Cmb_Serect_Device.Lines(),
              ElementsAre(u"CANUSB LAW00001", u"Interface CBI-4851 port:2", u""));
}

TEST(Start, SettingsOfTheFileAreTakenOver) {
  Form1Bench first;
  first.Start();
  first.form.device.t_bitRate = 8;
  first.memory.window.TB_LogComment.Type(u"  前回のコメント ");
  first.form.menu_file_close_Click();

  Form1Bench second;
  second.memory.files.AddFile(second.Path(kFolder, u"config.dat"),
                              *first.memory.files.Bytes(first.Path(kFolder, u"config.dat")));
  second.Start();
  EXPECT_EQ(second.form.SettingFileOpenFlag, 1);
  EXPECT_EQ(second.form.device.t_bitRate, 8);
  EXPECT_EQ(second.memory.window.TB_LogComment.Text(), u"前回のコメント");
}

TEST(Start, ABrokenSettingsFileLeavesTheDefaults) {
  Form1Bench bench;
  bench.memory.files.AddFile(bench.Path(kFolder, u"config.dat"), "rubbish");
  bench.Start();
  EXPECT_EQ(bench.form.ApplicationOpenFlag, 1);
  EXPECT_EQ(bench.form.SettingFileOpenFlag, 0);
  EXPECT_EQ(bench.form.device.t_bitRate, 2);
}

TEST(Start, WithoutASpreadsheetServerTheLogIsText) {
  Form1Bench bench;
  bench.Start();
  EXPECT_EQ(bench.form.device.ExcelInstallCheck, 0);
  EXPECT_EQ(bench.form.device.t_LogSaveFormat, kLogFormatCsv);
}

TEST(Start, NotesTheOfficeServersFound) {
  Form1Bench bench;
  bench.memory.automation.Register(u"Excel.Application", 16);
  bench.memory.automation.Register(u"Ket.Application", 9);
  bench.memory.automation.Register(u"Access.Application", 15);
  bench.Start();
  EXPECT_EQ(bench.form.device.ExcelInstallCheck, 3);
  EXPECT_EQ(bench.form.device.ExcelInstallVersion, 16);
  EXPECT_EQ(bench.form.device.AccessInstallCheck, 1);
  EXPECT_EQ(bench.form.device.AccessInstallVersion, 15);
  EXPECT_EQ(bench.memory.automation.LiveObjects(), 0);
}

TEST(Start, AnAdapterThatDoesNotOpenDoesNotEndTheProgram) {
  Form1Bench bench;
  bench.memory.canusbdrv.open_result = 0;
  bench.Start();
  EXPECT_EQ(bench.form.ApplicationOpenFlag, 1);
  EXPECT_EQ(bench.memory.window.TB_ODB_Hard_Version.Text(), u"Nothing");
}

const String kSupportMissing =
    u"qxt100.dll が見つかりません。\r\nqxt100.dll は同梱のものを使用してください。\r\n"
    u"アプリケーションを終了します。";
const String kLibrariesMissing =
    u"CANインタフェース用DLLが見つかりません。\r\nC:\\Windows\\System32\\canusbdrv.dll\r\n"
    u"ドライバがインストールされていません。\r\nアプリケーションを終了します。";
const String kNoDevice = u"デバイスが見つかりません。\r\nアプリケーションを終了します。";
const String kDeviceFails = u"機器が正常に動作していません。\r\nアプリケーションを終了します。";

struct FailureRow {
  const char* label;
  void (*break_it)(Form1Bench& bench);
  const String& text;
  bool writes_config;
};

void RemoveAdapterLibraries(Form1Bench& bench) {
  for (const StringView file : {u"canusbdrv.dll", u"IFCan.dll", u"canlib32.dll"}) {
    bench.Remove(kSystem, file);
  }
}

const FailureRow kFailures[] = {
    {"NoSupportLibrary", [](Form1Bench& bench) { bench.Remove(kFolder, u"qxt100.dll"); },
     kSupportMissing, false},
    {"UnusableSupportLibrary", [](Form1Bench& bench) { bench.memory.qxt100.Usable(false); },
     kSupportMissing, false},
    {"NoSupportLibraryComesBeforeNoAdapterLibrary",
     [](Form1Bench& bench) {
       bench.Remove(kFolder, u"qxt100.dll");
       RemoveAdapterLibraries(bench);
     },
     kSupportMissing, false},
    {"NoAdapterLibrary", RemoveAdapterLibraries, kLibrariesMissing, false},
    {"NothingPluggedIn", [](Form1Bench& bench) { bench.memory.canusbdrv.serials.clear(); },
     kNoDevice, true},
    {"OnlySerialsTooShort", [](Form1Bench& bench) { bench.memory.canusbdrv.serials = {"123456"}; },
     kNoDevice, true},
    {"OnlyChannelsThatDoNotOpen",
     [](Form1Bench& bench) {
       bench.memory.canusbdrv.serials.clear();
       bench.memory.canlib32.channels = {-1, -3};
     },
     kNoDevice, true},
    {"VersionQueryFails", [](Form1Bench& bench) { bench.memory.canusbdrv.version_result = -4; },
     kDeviceFails, true},
};

class FailedStart : public testing::TestWithParam<FailureRow> {};

TEST_P(FailedStart, SaysWhyAndClosesWritingWhatIsTold) {
  Form1Bench bench;
  bench.memory.canusbdrv.serials = {"LAW00001"};
  bench.memory.files.AddFile(bench.Path(kFolder, u"lglist.dat"), "{\\rtf1 the user's notes}");
  GetParam().break_it(bench);
  bench.form.Form_Load();
  ExpectOneStopBox(bench.memory.message_box.Boxes(), GetParam().text);
  EXPECT_EQ(bench.form.ApplicationOpenFlag, 0);
  EXPECT_EQ(bench.Noted("Form1.Unload").size(), 1u);
  EXPECT_EQ(bench.Noted("FormHelp.Unload").size(), 1u);
  EXPECT_THAT(bench.Noted("Bt_Connect"), IsEmpty());
  // The page was not restored yet: an empty one takes the place of the notes.
  const auto view = bench.memory.files.Bytes(bench.Path(kFolder, u"lglist.dat"));
  ASSERT_TRUE(view.has_value());
  EXPECT_EQ(view->find("notes"), std::string::npos);
  EXPECT_EQ(bench.Wrote(u"config.dat"), GetParam().writes_config);
}

INSTANTIATE_TEST_SUITE_P(Reasons, FailedStart, testing::ValuesIn(kFailures),
                         [](const auto& row) { return std::string(row.param.label); });

TEST(FailedStartLater, SavesTheCommentOfTheStillEmptyBox) {
  Form1Bench bench;
  bench.form.Form_Load();
  EXPECT_EQ(bench.form.device.t_LogComment, u"");
}

TEST(ExecutableFolder, ThatNamesTheExecutableIsCutBeforeTheSupportLibraryIsSought) {
  platform::memory::MemoryPlatform memory;
  memory.files.AddFolder(u"C:\\Tools");
  memory.files.AddFile(u"C:\\Tools\\qxt100.dll", "MZ");
  Form1 form(memory.Platform(), memory.MainWindow(), u"C:\\Tools\\Tolvane.exe");
  form.Form_Load();
  ExpectOneStopBox(memory.message_box.Boxes(), kLibrariesMissing);
}

class Closing : public testing::Test {
 protected:
  Closing() {
    bench_.Start();
    bench_.memory.files.Remove(bench_.Path(kFolder, u"lglist.dat"));
    bench_.memory.events.OnYield([this] { bench_.memory.journal.Note("yield"); });
  }
  std::int32_t Ask() {
    std::int32_t Cancel = 0;
    bench_.form.Form_QueryUnload(Cancel);
    return Cancel;
  }
  void ExpectRefused() {
    EXPECT_TRUE(bench_.form.ClosingIsRefused());
    bench_.memory.journal.Clear();
    EXPECT_EQ(Ask(), 1);
    EXPECT_THAT(bench_.memory.journal.Lines(), IsEmpty());
    EXPECT_THAT(bench_.memory.message_box.Boxes(), IsEmpty());
    EXPECT_FALSE(bench_.Wrote(u"lglist.dat"));
    EXPECT_FALSE(bench_.Wrote(u"config.dat"));
  }

  Form1Bench bench_;
};

TEST_F(Closing, IsRefusedWhileTheViewIsLocked) {
  bench_.memory.RTB_MainView.Locked(true);
  ExpectRefused();
}

TEST_F(Closing, IsRefusedWhileARunIsWanted) {
  bench_.form.RxFlag = 1;
  ExpectRefused();
  EXPECT_EQ(bench_.form.RxFlag, 1);
}

TEST_F(Closing, IsRefusedWhileTheTimerOfFormBGRuns) {
  bench_.memory.FormBG.Enabled(true);
  ExpectRefused();
  EXPECT_TRUE(bench_.memory.FormBG.Enabled());
}

TEST_F(Closing, DoesNotLookAtTheOtherTimers) {
  bench_.memory.FormBG2.Enabled(true);
  bench_.memory.FormBG_29.Enabled(true);
  bench_.memory.FormBG2_29.Enabled(true);
  EXPECT_FALSE(bench_.form.ClosingIsRefused());
  EXPECT_EQ(Ask(), 0);
}

TEST_F(Closing, SavesThenUnloadsTheOtherFormsInOrder) {
  bench_.form.menu_file_close_Click();
  EXPECT_THAT(bench_.memory.journal.Lines(),
              ElementsAre("Form1.Unload()", "yield", "FormBG.TimerBackView.Enabled = false",
                          "RTB_MainView.SaveFile(\"C:\\Tolvane\\lglist.dat\")", "Form2.Unload()",
                          "yield", "FormBG.Unload()", "yield", "FormBG_29.Unload()", "yield",
                          "FormBG2.Unload()", "yield", "FormBG2_29.Unload()", "yield",
                          "FormVersion.Unload()", "yield", "FormCommonSetting.Unload()", "yield",
                          "FormOption1.Unload()", "yield", "FormHelp.Unload()", "yield"));
  EXPECT_TRUE(bench_.Wrote(u"lglist.dat"));
  EXPECT_TRUE(bench_.Wrote(u"config.dat"));
}

TEST_F(Closing, SavesTheViewBeforeTheSettings) {
  Form1Bench measured;
  measured.Start();
  measured.form.menu_file_close_Click();
  const auto view = measured.memory.files.Bytes(measured.Path(kFolder, u"lglist.dat"));
  ASSERT_TRUE(view.has_value());

  bench_.memory.files.FreeSpace(view->size());
  bench_.form.menu_file_close_Click();
  EXPECT_EQ(bench_.memory.files.Bytes(bench_.Path(kFolder, u"lglist.dat")), view);
  EXPECT_EQ(bench_.memory.files.Bytes(bench_.Path(kFolder, u"config.dat")).value_or(""), "");
  EXPECT_THAT(bench_.memory.message_box.Boxes(), IsEmpty());
}

TEST_F(Closing, TakesTheCommentTrimmedAndCut) {
  bench_.memory.window.TB_LogComment.Type(u"  " + String(60, u'試') + u" ");
  EXPECT_EQ(Ask(), 0);
  EXPECT_EQ(bench_.form.device.t_LogComment, String(50, u'試'));
}

TEST_F(Closing, OfAFolderThatIsGoneHarmsNothing) {
  bench_.memory.files.Remove(kFolder);
  EXPECT_EQ(Ask(), 0);
  EXPECT_THAT(bench_.memory.message_box.Boxes(), IsEmpty());
  EXPECT_FALSE(bench_.Wrote(u"config.dat"));
}

}  // namespace
}  // namespace tolvane
