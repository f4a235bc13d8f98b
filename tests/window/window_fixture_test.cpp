// What the window tests' own fixture judges.
#include <gtest/gtest-spi.h>

#include <fstream>

#include "tests/window/control_ids.h"
#include "tests/window/window_fixture.h"

namespace tolvane::window {
namespace {

class FixtureOfWindowTests : public RealProgram {
 protected:
  void Tell(const char* line) {
    std::ofstream(folder_.Path() / L"bench-report.txt", std::ios::binary | std::ios::app) << line;
  }
};

TEST_F(FixtureOfWindowTests, JudgesTheFaultsOfABenchBeforeTheNextOneIsPluggedIn) {
  PlugIn(kOneCanusb, {});
  Tell("canusbdrv fault: an unexpected one\n");
  EXPECT_NONFATAL_FAILURE(PlugIn(kOneCanusb, {}), "an unexpected one");
  Tell("canusbdrv fault: an expected one\n");
  expected_faults_ = {"an expected one"};
  PlugIn(kOneCanusb, {});
  EXPECT_EQ(expected_faults_, Faults{});
}

TEST_F(FixtureOfWindowTests, JudgesTheFaultsOfABenchAtTheEndOfTheTest) {
  PlugIn(kOneCanusb, {});
  Tell("canusbdrv fault: an unexpected one\n");
  EXPECT_NONFATAL_FAILURE(TearDown(), "an unexpected one");
}

TEST_F(FixtureOfWindowTests, JudgesTheFaultsOfARunAtItsDisconnect) {
  PlugIn(kOneCanusb, {L"canusbdrv.dll"});
  const DrivenWindow window = StartProgram();
  ASSERT_NO_FATAL_FAILURE(Connect(window));
  Tell("canusbdrv fault: an unexpected one\n");
  EXPECT_NONFATAL_FAILURE(Disconnect(window), "an unexpected one");
  EXPECT_TRUE(window.Enabled(id::Bt_Connect));
}

}  // namespace
}  // namespace tolvane::window
