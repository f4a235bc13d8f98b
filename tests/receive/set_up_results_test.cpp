// What an adapter's library answers to the calls that start and end a run.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "tests/receive/run_bench.h"
#include "tests/receive/run_sequence.h"

namespace tolvane {
namespace {

constexpr const char* kOneRecord = "         0 , 010 , 8 ,  01,02,03,04,05,06,07,08\r\n";
constexpr const char* kOneRecord29 = "         0 ,   , 00000010 , 8 ,  01,02,03,04,05,06,07,08\r\n";

/// A run that logs one frame goes its whole way.
void ExpectUndisturbed(RunBench& bench, AdapterKind binding, WorkerKind worker,
                       std::int32_t handle) {
  bench.LogToCsv();
  bench.Run(binding, worker, {{.id = 0x10}});
  EXPECT_EQ(bench.journal.Lines(), SequenceOf(binding, worker, handle));
  EXPECT_EQ(bench.Records(), Is29Bit(worker) ? kOneRecord29 : kOneRecord);
  EXPECT_TRUE(bench.message_box.Boxes().empty());
  EXPECT_EQ(bench.RxFlag, 0);
}

struct RefusedCall {
  const char* call;
  AdapterKind binding;
  void (*refuse)(RunBench& bench);
};

constexpr std::int32_t kRefusal = INT32_MIN + 0x4000000A;

constexpr RefusedCall kRefusedCalls[] = {
    {"CanSetConfig", AdapterKind::kInterface,
     [](RunBench& bench) { bench.IFCan.set_config_status = kRefusal; }},
    {"CanActivate", AdapterKind::kInterface,
     [](RunBench& bench) { bench.IFCan.activate_status = kRefusal; }},
    {"CanDeactivate", AdapterKind::kInterface,
     [](RunBench& bench) { bench.IFCan.deactivate_status = kRefusal; }},
    {"CanClosePort", AdapterKind::kInterface,
     [](RunBench& bench) { bench.IFCan.close_status = kRefusal; }},
    {"canSetBusParams", AdapterKind::kKvaser,
     [](RunBench& bench) { bench.canlib32.call_results["canSetBusParams"] = -1; }},
    {"canSetBusOutputControl", AdapterKind::kKvaser,
     [](RunBench& bench) { bench.canlib32.call_results["canSetBusOutputControl"] = -1; }},
    {"canBusOn", AdapterKind::kKvaser,
     [](RunBench& bench) { bench.canlib32.call_results["canBusOn"] = -1; }},
    {"canBusOff", AdapterKind::kKvaser,
     [](RunBench& bench) { bench.canlib32.call_results["canBusOff"] = -1; }},
    {"canClose", AdapterKind::kKvaser,
     [](RunBench& bench) { bench.canlib32.call_results["canClose"] = -1; }},
};

class RefusedSetUp : public testing::TestWithParam<RefusedCall> {};

TEST_P(RefusedSetUp, IsNotLookedAtAndTheCallsBehindItAreMade) {
  for (const WorkerKind worker : kAllWorkers) {
    SCOPED_TRACE(WayName(GetParam().binding, worker));
    RunBench bench;
    GetParam().refuse(bench);
    ExpectUndisturbed(bench, GetParam().binding, worker, BenchHandle(GetParam().binding));
  }
}

INSTANTIATE_TEST_SUITE_P(Calls, RefusedSetUp, testing::ValuesIn(kRefusedCalls),
                         [](const auto& row) { return row.param.call; });

TEST(HandleZero, IsAHandleLikeAnyOther) {
  for (const WorkerKind worker : kAllWorkers) {
    for (const AdapterKind binding : {AdapterKind::kInterface, AdapterKind::kKvaser}) {
      SCOPED_TRACE(WayName(binding, worker));
      RunBench bench;
      bench.IFCan.ports = {{.number = 1, .handle = 0}};
      bench.canlib32.channels = {0};
      ExpectUndisturbed(bench, binding, worker, 0);
    }
  }
}

}  // namespace
}  // namespace tolvane
