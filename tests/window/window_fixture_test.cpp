// What the window tests' own fixture judges.
#include <gtest/gtest-spi.h>

#include <fstream>

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

}  // namespace
}  // namespace tolvane::window
