#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/receive/run_bench.h"

namespace tolvane {
namespace {

constexpr auto kCanusb = AdapterKind::kCanusb;

TEST(CanFlag, OfCanusbIsTheRoundedQuotientSoThatTwoIsNoStar) {
  RunBench bench;
  bench.LogToCsv();
  const std::array<std::uint8_t, 8> data = {};
  bench.canusbdrv.frames.Play(
      {{1, 0, 0, 0, data}, {1, 0, 128, 0, data}, {1, 0, 64, 0, data}, {1, 0, 192, 0, data}});
  bench.Run(kCanusb, WorkerKind::FormBG_29);
  EXPECT_EQ(bench.Records(),
            "         0 ,   , 00000001 , 0\r\n"
            "         0 , * , 00000001 , 0\r\n"
            "         0 ,   , 00000001 , 0\r\n"
            "         0 ,   , 00000001 , 0\r\n");
  const CAN_ReadDB29& frames = *bench.workers.FormBG_29_tables.frames;
  ASSERT_EQ(frames.CAN29_Received_ID_Counter, 4);
  EXPECT_EQ(frames.CAN29_ExtendFlag(0), 0);
  EXPECT_EQ(frames.CAN29_ExtendFlag(1), 0);
  EXPECT_EQ(frames.CAN29_ExtendFlag(2), 1);
  EXPECT_EQ(frames.CAN29_ExtendFlag(3), 2);
}

TEST(CanFlag, OfKvaserIsOneForAnyFlagButStandard) {
  RunBench bench;
  bench.LogToCsv();
  const std::array<std::uint8_t, 8> data = {};
  bench.canlib32.frames.Play(
      {{1, data, 0, 2, 0}, {1, data, 0, 4, 0}, {1, data, 0, 3, 0}, {9, data, 0, 0x24, 0}});
  bench.Run(AdapterKind::kKvaser, WorkerKind::FormBG_29);
  EXPECT_EQ(bench.Records(),
            "         0 ,   , 00000001 , 0\r\n"
            "         0 , * , 00000001 , 0\r\n"
            "         0 , * , 00000001 , 0\r\n"
            "         0 , * , 00000009 , 0\r\n");
  EXPECT_EQ(bench.workers.FormBG_29_tables.frames->CAN29_Received_ID_Counter, 2);
  EXPECT_EQ(bench.workers.FormBG_29_tables.frames->CAN29_Received(0), 3);
}

TEST(CanFlag, NegativeIdOfCanusbIsKeptAndLogged) {
  RunBench bench;
  bench.LogToCsv();
  bench.Run(kCanusb, WorkerKind::FormBG_29, {{.id = -1, .extended = true, .dlc = 0}});
  EXPECT_EQ(bench.workers.FormBG_29_tables.frames->CAN29_Received_ID(0), -1);
  EXPECT_EQ(bench.Records(), "         0 , * , 0000000FFFFFFFF , 0\r\n");
}

struct Way {
  AdapterKind binding;
  WorkerKind worker;
};

std::vector<Way> AllWays() {
  std::vector<Way> ways;
  for (const AdapterKind binding : kAllBindings) {
    for (const WorkerKind worker : kAllWorkers) ways.push_back({binding, worker});
  }
  return ways;
}

/// The same short bus on each of the twelve ways, from the adapter to table, page and log.
class Matrix : public testing::TestWithParam<Way> {};

TEST_P(Matrix, ReceivesShowsAndLogs) {
  const auto binding = GetParam().binding;
  const auto worker = GetParam().worker;
  const bool is29 = Is29Bit(worker);
  RunBench bench;
  bench.LogToCsv();
  bench.device.t_msgID_type = is29 ? 128 : 0;
  String page;
  bench.events = {[&] {
    bench.timers[static_cast<std::size_t>(worker)].Tick();
    page = bench.RTB_MainView.Text();
    bench.RxFlag = 0;
  }};
  bench.Run(binding, worker,
            {{.id = 0x123, .time = 100, .dlc = 2},
             {.id = is29 ? 0x18FF1234 : 0x124, .extended = is29, .time = 110},
             {.id = 0x123, .time = 130, .dlc = 2, .data = {9, 8}},
             {.id = is29 ? 0x18FF1234 : 0x124, .extended = is29, .time = 160}});
  EXPECT_EQ(bench.Records(), is29 ? "         0 ,   , 00000123 , 2 ,  01,02\r\n"
                                    "        10 , * , 18FF1234 , 8 ,  01,02,03,04,05,06,07,08\r\n"
                                    "        30 ,   , 00000123 , 2 ,  09,08\r\n"
                                    "        60 , * , 18FF1234 , 8 ,  01,02,03,04,05,06,07,08\r\n"
                                  : "         0 , 123 , 2 ,  01,02\r\n"
                                    "        10 , 124 , 8 ,  01,02,03,04,05,06,07,08\r\n"
                                    "        30 , 123 , 2 ,  09,08\r\n"
                                    "        60 , 124 , 8 ,  01,02,03,04,05,06,07,08\r\n");
  EXPECT_NE(page.find(u"123"), String::npos);
  EXPECT_NE(page.find(is29 ? u"18FF1234" : u"124"), String::npos);
  EXPECT_NE(page.find(u"09 08"), String::npos);
  EXPECT_TRUE(bench.message_box.Boxes().empty());
}

// 30000, 59990, 10: the wrap of CANUSB alone makes the line go on by 20; the board's timer is taken
// for one that wraps later, and Kvaser's steps back.
TEST_P(Matrix, StepsBackByTheAdaptersOwnRule) {
  const auto binding = GetParam().binding;
  const auto worker = GetParam().worker;
  RunBench bench;
  bench.LogToCsv();
  bench.Run(binding, worker,
            {{.id = 1, .time = 30000, .dlc = 0},
             {.id = 1, .time = 59990, .dlc = 0},
             {.id = 1, .time = 10, .dlc = 0}});
  const std::string times[] = {"     30010", "    399501", "    -29990"};
  const std::string records = bench.Records();
  const std::size_t last_line = records.rfind("\r\n", records.size() - 3) + 2;
  EXPECT_EQ(records.substr(last_line, 10), times[static_cast<std::size_t>(binding)]);
}

INSTANTIATE_TEST_SUITE_P(ThreeAdaptersFourWorkers, Matrix, testing::ValuesIn(AllWays()),
                         [](const auto& way) {
                           return WayName(way.param.binding, way.param.worker);
                         });

}  // namespace
}  // namespace tolvane
