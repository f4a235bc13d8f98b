#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/receive/run_bench.h"

namespace tolvane {
namespace {

using CallLines = std::vector<std::string>;

void ExpectStopMessage(const RunBench& bench, StringView text) {
  ASSERT_EQ(bench.message_box.Boxes().size(), 1u);
  const auto& box = bench.message_box.Boxes().front();
  EXPECT_EQ(box.kind, platform::memory::MessageBox::Kind::kCritical);
  EXPECT_EQ(box.title, u"Tolvane Ver1.23");
  EXPECT_EQ(box.text, text);
}

/// The journal without the message box's own note.
CallLines Calls(RunBench& bench) {
  CallLines calls;
  for (const std::string& line : bench.journal.Take()) {
    if (line.find("機器") == std::string::npos && line.find("非対応") == std::string::npos) {
      calls.push_back(line);
    }
  }
  return calls;
}

constexpr StringView kAppEnds = u"機器が正常に動作していません。\r\nアプリケーションを終了します。";
constexpr StringView kRunEnds = u"機器が正常に動作していません。\r\n接続を終了します。";

TEST(FailedOpen, CanusbShowsTheBoxAndClosesNothing) {
  for (const WorkerKind worker : kAllWorkers) {
    for (const std::int32_t handle : {0, -2}) {
      SCOPED_TRACE(WayName(AdapterKind::kCanusb, worker));
      RunBench bench;
      bench.device.t_LogSave_Enable = 1;
      bench.canusbdrv.open_result = handle;
      bench.Run(AdapterKind::kCanusb, worker, {{.id = 0x10}});
      ExpectStopMessage(bench, kAppEnds);
      EXPECT_EQ(Calls(bench), CallLines{"canusb_Open(\"LWR12345\", \"500\", 0, -1, 1)"});
      EXPECT_EQ(bench.RxFlag, 0);
      EXPECT_EQ(bench.loop.Yields(), 0);
    }
  }
}

TEST(FailedOpen, InterfaceStillDeactivatesAndClosesWithHandleMinusOne) {
  for (const WorkerKind worker : kAllWorkers) {
    SCOPED_TRACE(WayName(AdapterKind::kInterface, worker));
    RunBench bench;
    bench.IFCan.get_config_status = 9;
    const std::int32_t status = bench.Run(AdapterKind::kInterface, worker);
    EXPECT_EQ(status, bench.IfCan_u.IFCAN_ERROR_INVALID_HANDLE);
    ExpectStopMessage(bench, kRunEnds);
    EXPECT_EQ(Calls(bench),
              (CallLines{"CanOpenPort(\"IFCAN1\")", "CanGetConfig(101)", "CanClosePort(101)",
                         "CanDeactivate(-1)", "CanClosePort(-1)"}));
    EXPECT_EQ(bench.RxFlag, 0);
    EXPECT_EQ(bench.IfCan_d.Interface_CAN_Handle, u"-1");
  }
}

TEST(FailedOpen, InterfaceBoxComesBeforeTheClose) {
  for (const WorkerKind worker : kAllWorkers) {
    SCOPED_TRACE(WayName(AdapterKind::kInterface, worker));
    RunBench bench;
    bench.IFCan.get_config_status = 9;
    CallLines before;
    bench.message_box.WhileShown([&] {
      before = Calls(bench);
      EXPECT_EQ(bench.RxFlag, 1);
    });
    bench.Run(AdapterKind::kInterface, worker);
    EXPECT_EQ(before,
              (CallLines{"CanOpenPort(\"IFCAN1\")", "CanGetConfig(101)", "CanClosePort(101)"}));
    EXPECT_EQ(Calls(bench), (CallLines{"CanDeactivate(-1)", "CanClosePort(-1)"}));
  }
}

TEST(FailedOpen, KvaserSecondLineDiffersByWorker) {
  const StringView kTexts[] = {kRunEnds, kAppEnds, kRunEnds, kAppEnds};
  for (const WorkerKind worker : kAllWorkers) {
    SCOPED_TRACE(WayName(AdapterKind::kKvaser, worker));
    RunBench bench;
    bench.canlib32.channels = {-3};
    bench.Run(AdapterKind::kKvaser, worker);
    ExpectStopMessage(bench, kTexts[static_cast<std::size_t>(worker)]);
    EXPECT_EQ(Calls(bench), CallLines{"canOpenChannel(0, 128)"});
    EXPECT_EQ(bench.RxFlag, 0);
  }
}

TEST(RefusedRate, NothingIsOpenedAndTheStatusIsZero) {
  const struct {
    AdapterKind binding;
    std::int32_t t_bitRate;
  } kRefused[] = {
      {AdapterKind::kInterface, 1}, {AdapterKind::kInterface, 6},  {AdapterKind::kInterface, 7},
      {AdapterKind::kInterface, 9}, {AdapterKind::kInterface, -1}, {AdapterKind::kKvaser, 1},
      {AdapterKind::kKvaser, 6},    {AdapterKind::kKvaser, 9},     {AdapterKind::kKvaser, -1}};
  for (const auto& row : kRefused) {
    for (const WorkerKind worker : kAllWorkers) {
      SCOPED_TRACE(WayName(row.binding, worker));
      RunBench bench;
      bench.IFCan.close_status = 44;
      bench.device.t_bitRate = row.t_bitRate;
      EXPECT_EQ(bench.Run(row.binding, worker), 0);
      ExpectStopMessage(bench, u"非対応の通信速度が選択されています。\r\n接続をを終了します。");
      EXPECT_EQ(Calls(bench), CallLines{});
      EXPECT_EQ(bench.RxFlag, 0);
    }
  }
}

// The subfolder is the first thing that a run makes. CANUSB refuses no rate, but may not open.
TEST(RefusedRate, LeavesTheSubfolderOfTheRun) {
  for (const AdapterKind binding : kAllBindings) {
    for (const WorkerKind worker : kAllWorkers) {
      SCOPED_TRACE(WayName(binding, worker));
      RunBench bench;
      bench.device.t_LogSave_subFolder = 1;
      bench.device.t_LogComment = u"bench";
      bench.device.t_bitRate = 1;
      bench.canusbdrv.open_result = 0;
      bool made_before_the_box = false;
      bench.message_box.WhileShown(
          [&] { made_before_the_box = bench.files.FolderExists(u"C:\\Tolvane\\bench"); });
      bench.Run(binding, worker);
      EXPECT_EQ(bench.message_box.Boxes().size(), 1u);
      EXPECT_TRUE(made_before_the_box);
    }
  }
}

TEST(RefusedRate, TenKbitIsTakenByKvaser) {
  RunBench bench;
  bench.device.t_bitRate = 7;
  bench.Run(AdapterKind::kKvaser, WorkerKind::FormBG, {{.id = 0x10}});
  EXPECT_TRUE(bench.message_box.Boxes().empty());
  EXPECT_EQ(bench.workers.FormBG_tables.frames->CAN11_Received(0x10), 3);
}

TEST(FailedSubfolder, StopsTheRunBeforeAnythingIsOpened) {
  for (const AdapterKind binding : kAllBindings) {
    for (const WorkerKind worker : kAllWorkers) {
      SCOPED_TRACE(WayName(binding, worker));
      RunBench bench;
      bench.IFCan.close_status = 44;
      bench.device.t_LogSave_subFolder = 1;
      bench.device.t_LogComment = u"bench";
      bench.files.Protect(u"C:\\Tolvane", true);
      EXPECT_EQ(bench.Run(binding, worker), 0);
      ExpectStopMessage(bench,
                        u"ログを保存するサブフォルダを作成できません。\r\n接続を終了します。");
      EXPECT_EQ(bench.journal.Lines().size(), 1u);  // the box
      EXPECT_EQ(bench.RxFlag, 0);
    }
  }
}

// The board's tables are cleared before the subfolder is tried, those of the others after.
TEST(FailedSubfolder, ComesAfterTheTablesOfAnInterfaceRunOnly) {
  for (const AdapterKind binding : kAllBindings) {
    for (const WorkerKind worker : kAllWorkers) {
      RunBench bench;
      bench.Run(binding, worker, {{.id = 0x10}});
      bench.device.t_LogSave_subFolder = 1;
      bench.device.t_LogComment = u"bench";
      bench.files.Protect(u"C:\\Tolvane", true);
      bench.Run(binding, worker);
      const std::uint8_t left[] = {bench.workers.FormBG_tables.frames->CAN11_Received(0x10),
                                   bench.workers.FormBG2_tables.frames->CAN11_Received(0x10),
                                   bench.workers.FormBG_29_tables.frames->CAN29_Received(0),
                                   bench.workers.FormBG2_29_tables.frames->CAN29_Received(0)};
      EXPECT_EQ(left[static_cast<std::size_t>(worker)], binding == AdapterKind::kInterface ? 0 : 3)
          << WayName(binding, worker);
    }
  }
}

TEST(LostAdapter, IsSurvivedInSilence) {
  for (const AdapterKind binding : kAllBindings) {
    RunBench bench;
    const auto idle = [] {};
    bench.events = {[&] {
                      bench.canusbdrv.empty_read_result = -4;
                      bench.IFCan.empty_read_status = bench.IfCan_u.IFCAN_ERROR_USBIO_FAILED;
                      bench.canlib32.empty_read_result = -15;
                    },
                    idle, idle, [&] { bench.Play(binding, {{.id = 0x11}}); }};
    bench.Run(binding, WorkerKind::FormBG, {{.id = 0x10}});
    EXPECT_TRUE(bench.message_box.Boxes().empty());
    EXPECT_EQ(bench.workers.FormBG_tables.frames->CAN11_Received(0x10), 3);
    EXPECT_EQ(bench.workers.FormBG_tables.frames->CAN11_Received(0x11), 3);
    EXPECT_EQ(bench.loop.Yields(), 5);
  }
}

}  // namespace
}  // namespace tolvane
