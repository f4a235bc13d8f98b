#include "tests/soak/expected_page.h"

#include <gtest/gtest.h>

#include <string>

#include "simulator/bench_config.h"
#include "tests/soak/adapter_times.h"
#include "tests/soak/log_text.h"

namespace tolvane::soak {
namespace {

simulator::BusFrame Frame(std::uint32_t id, std::uint8_t length, bool extended = false) {
  return {.id = id, .extended = extended, .dlc = length, .data = {0x1A, 0x0B, 0x2C}};
}

TEST(SoakPage, HasTheLastFrameOfEachIdentifierAndTheTimeBetweenItsLastTwo) {
  ExpectedPage page(false);
  page.Receive(Frame(0x7FF, 0), 1);
  page.Receive(Frame(0x12, 0), 5);
  page.Receive(Frame(0x12, 2), 105);
  page.Receive(Frame(0x12, 3), 204);
  EXPECT_EQ(page.Text(),
            "ID  DLC  D1 D2 D3 D4 D5 D6 D7 D8\n"
            "012  3   1A 0B 2C                  99ms\n"
            "7FF  0                             ----ms\n");
}

TEST(SoakPage, MarksExtendedFrames) {
  ExpectedPage page(true);
  page.Receive(Frame(0x12, 1, true), 5);
  page.Receive(Frame(0x12, 1), 6);
  EXPECT_EQ(page.Text(),
            "E    ID    DLC  D1 D2 D3 D4 D5 D6 D7 D8\n"
            "  00000012  1   1A                        ----ms\n"
            "* 00000012  1   1A                        ----ms\n");
}

/// The page when all but so many of the frames have come.
ExpectedPage PageOf(const std::string& load, std::int64_t missing) {
  const simulator::BenchConfig config = simulator::ReadBenchConfig(
      "[bus]\nsource=generator\nbit_rate=1000000\nframes=100000\n" + load + "[canusb 1]\n");
  const AdapterTime time = TimeOfAdapter(config);
  LogText times(time, false);
  simulator::LoadGenerator bus(config.bus.load);
  ExpectedPage page(false);
  simulator::BusFrame frame;
  std::string record;
  for (std::int64_t left = 100'000 - missing; left > 0 && bus.Next(frame); --left) {
    times.Append(frame, record);
    page.Receive(frame, times.LineMs());
  }
  return page;
}

TEST(SoakPage, OneThatStoodStillIsFoundInEachLoad) {
  for (const char* load : {"payload=0\nids=2047\n", "payload=8\nids=2047\ncontent=random\n"}) {
    const ExpectedPage expected = PageOf(load, 0);
    EXPECT_EQ(expected.Compare(expected.Text()).difference, "");
    EXPECT_EQ(expected.Compare(expected.Text()).rows, 2047u);
    for (const std::int64_t missing : {1'000, 2'047, 20'833}) {
      const ComparedPage compared = expected.Compare(PageOf(load, missing).Text());
      EXPECT_NE(compared.difference, "") << load << missing;
      EXPECT_GT(compared.differing, 200u) << load << missing;
    }
  }
}

TEST(SoakPage, RowsThatAreMissingOrBesidesAreFound) {
  ExpectedPage page(false);
  page.Receive(Frame(1, 0), 1);
  const ComparedPage none = page.Compare("");
  EXPECT_EQ(none.differing, 2u);
  EXPECT_EQ(none.difference, "line 1: \"\", expected \"ID  DLC  D1 D2 D3 D4 D5 D6 D7 D8\"");
  const std::string text = page.Text();
  EXPECT_EQ(page.Compare(text + "more\n").difference, "line 3: \"more\", expected \"\"");
  EXPECT_EQ(page.Compare(text.substr(0, text.find('\n') + 1)).differing, 1u);
}

}  // namespace
}  // namespace tolvane::soak
