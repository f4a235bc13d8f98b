#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "tests/helpers/rtf_of.h"
#include "tests/run/control/form1_bench.h"

namespace tolvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Start, RunsItsStepsInOrder) {
  Form1Bench bench;
  bench.memory.canlib32.channels = {0};
  bench.memory.canusbdrv.serials = {"LAW00001", "LAW00002"};
  bench.memory.canusbdrv.version = "V1011";
  bench.memory.files.AddFile(bench.Path(kFolder, u"lglist.dat"), RtfOf(u"kept"));
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
  then({"Form2.Progress = 0.4",
        "yield",
        "canInitializeLibrary()",
        "yield",
        "canGetNumberOfChannels()",
        "canOpenChannel(0, 128)",
        "canGetChannelData(0, 13, 64)",
        "yield",
        "canBusOff(0)",
        "canClose(0)",
        "Form2.Progress = 0.45",
        "Form2.Lb_msg = \"検索結果の判断処理中\"",
        "yield",
        "yield",
        "Cmb_Serect_Device.AddItem(\"CANUSB LAW00001\")",
        "yield",
        "Cmb_Serect_Device.AddItem(\"CANUSB LAW00002\")",
        "Form2.Progress = 0.6",
        "yield",
        "yield",
        "Cmb_Serect_Device.AddItem(\"Interface  port:1\")",
        "yield",
        "Cmb_Serect_Device.AddItem(\"\")",
        "Form2.Progress = 0.7",
        "yield",
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
  bench.memory.files.AddFile(bench.Path(kFolder, u"lglist.dat"), RtfOf(u"kept"));
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

TEST(Start, BeginsByClearingEveryRecordAndFlag) {
  Form1Bench bench;
  bench.Remove(kFolder, u"qxt100.dll");
  Form1& form = bench.form;
  form.ApplicationOpenFlag = form.SettingFileOpenFlag = 1;
  form.device.t_bitRate = 7;
  form.CAN_d.CAN_USB_FindCount = 5;
  form.CAN_u.CAN_BAUD_500K = u"x";
  form.IfCan_d.Interface_CAN_FindCount = 5;
  form.IfCan_u.IFCAN_ERROR_SUCCESS = 5;
  form.kvCan_d.Kvaser_FindCount = 5;
  form.kvCan_u.canOPEN_REQUIRE_INIT_ACCESS = 5;
  form.Form_Load();
  EXPECT_EQ(form.ApplicationOpenFlag, 0);
  EXPECT_EQ(form.SettingFileOpenFlag, 0);
  EXPECT_EQ(form.device.t_bitRate, 2);
  EXPECT_EQ(form.CAN_d.CAN_USB_FindCount, 0);
  EXPECT_EQ(form.CAN_u.CAN_BAUD_500K, u"500");
  EXPECT_EQ(form.IfCan_d.Interface_CAN_FindCount, 0);
  EXPECT_EQ(form.IfCan_u.IFCAN_ERROR_SUCCESS, 0);
  EXPECT_EQ(form.kvCan_d.Kvaser_FindCount, 0);
  EXPECT_EQ(form.kvCan_u.canOPEN_REQUIRE_INIT_ACCESS, 128);
}

TEST(Start, TheClipboardDecidesOverPaste) {
  Form1Bench bench;
  bench.memory.clipboard.Put(u"text", platform::Clipboard::Format::kPlainText);
  bench.Start();
  EXPECT_TRUE(bench.memory.window.menu_View_Ctrl_V.Enabled());
}

TEST(Start, ASecondInstanceShowsNothingAndTouchesNoFile) {
  Form1Bench bench;
  bench.memory.files.AddFile(bench.Path(kFolder, u"lglist.dat"), "of the first");
  bench.memory.single_instance.PrevInstance(true);
  bench.form.Form_Load();
  EXPECT_EQ(bench.memory.journal.Lines().front(), "Form1.Unload()");
  EXPECT_EQ(bench.Noted("FormHelp.Unload").size(), 1U) << "it does not end";
  EXPECT_THAT(bench.Noted("Form2.Visible"), IsEmpty());
  EXPECT_THAT(bench.memory.message_box.Boxes(), IsEmpty());
  EXPECT_THAT(bench.Noted("RTB_MainView"), IsEmpty());
  EXPECT_EQ(bench.memory.files.Bytes(bench.Path(kFolder, u"lglist.dat")), "of the first");
  EXPECT_FALSE(bench.Wrote(u"config.dat"));
}

TEST(Start, OnlyLibrariesThatArePresentAreCalled) {
  const struct {
    StringView file;
    const char* first_call;
    StringView line;
  } kLibraries[] = {{u"canusbdrv.dll", "canusb_getFirstAdapter", u"CANUSB LAW00001"},
                    {u"IFCan.dll", "CanOpenPort(\"IFCAN1\")", u"Interface  port:3"},
                    {u"canlib32.dll", "canInitializeLibrary", u"Leaf"}};
  for (unsigned present = 1; present < 8; ++present) {
    Form1Bench bench;
    bench.memory.canusbdrv.serials = {"LAW00001"};
    bench.memory.IFCan.ports = {{.number = 3}};
    bench.memory.canlib32.channels = {0};
    bench.memory.canlib32.channel_data[{0, 13}] = {std::byte{'L'}, std::byte{'e'}, std::byte{'a'},
                                                   std::byte{'f'}};
    std::vector<String> lines;
    for (unsigned i = 0; i < 3; ++i) {
      if (present >> i & 1) {
        lines.emplace_back(kLibraries[i].line);
      } else {
        bench.Remove(kSystem, kLibraries[i].file);
      }
    }
    bench.form.Form_Load();
    EXPECT_EQ(bench.form.ApplicationOpenFlag, 1) << present;
    EXPECT_EQ(bench.memory.window.Cmb_Serect_Device.Lines(), lines) << present;
    for (unsigned i = 0; i < 3; ++i) {
      EXPECT_EQ(bench.Noted(kLibraries[i].first_call).size(), present >> i & 1) << present << i;
    }
  }
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

TEST(Start, OnlyTheSecondAnswerOfTheAdapterCounts) {
  Form1Bench bench;
  auto& version_result = bench.memory.canusbdrv.version_result;
  version_result = 1;
  bench.memory.window.Cmb_Serect_Device.OnClick([&] {
    version_result = -4;
    bench.form.Cmb_Serect_Device_Click();
    version_result = 1;
  });
  bench.memory.canusbdrv.serials = {"LAW00001"};
  bench.form.Form_Load();
  EXPECT_EQ(bench.Noted("canusb_VersionInfo").size(), 2u);
  EXPECT_EQ(bench.form.ApplicationOpenFlag, 1);
}

TEST(Start, AnAdapterThatDoesNotOpenDoesNotEndTheProgram) {
  Form1Bench bench;
  bench.memory.canusbdrv.open_result = 0;
  bench.Start();
  EXPECT_EQ(bench.form.ApplicationOpenFlag, 1);
  EXPECT_EQ(bench.memory.window.TB_ODB_Hard_Version.Text(), u"Nothing");
}

}  // namespace
}  // namespace tolvane
