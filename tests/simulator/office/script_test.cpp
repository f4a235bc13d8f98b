#include "simulator/office/script.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace tolvane::office {
namespace {

TEST(OfficeScript, NothingMeansNoFault) {
  const Script script = ParseScript("");
  EXPECT_EQ(script.delay_ms, 0);
  EXPECT_EQ(script.fail_at, 0);
  EXPECT_EQ(script.fail_creation, 0);
  EXPECT_EQ(script.busy_calls, 0);
  EXPECT_EQ(script.busy_ms, 0);
  EXPECT_TRUE(script.problems.empty());
}

TEST(OfficeScript, ReadsAllKeys) {
  const Script script = ParseScript(
      "[office]\r\ndelay_ms = 5\nfail_at=17\nfail_creation=1\nbusy_at=9\nbusy_calls=3\n"
      "busy_ms=500\nbusy_as=suspended\n");
  EXPECT_EQ(script.delay_ms, 5);
  EXPECT_EQ(script.fail_at, 17);
  EXPECT_EQ(script.fail_creation, 1);
  EXPECT_EQ(script.busy_at, 9);
  EXPECT_EQ(script.busy_calls, 3);
  EXPECT_EQ(script.busy_ms, 500);
  EXPECT_EQ(script.busy_as, BusyAs::kSuspended);
  EXPECT_TRUE(script.problems.empty());
}

TEST(OfficeScript, ABusyProgramHasFourWays) {
  for (const auto& [name, way] :
       {std::pair("rejected", BusyAs::kRejected), std::pair("later", BusyAs::kLater),
        std::pair("suspended", BusyAs::kSuspended), std::pair("exception", BusyAs::kException)}) {
    EXPECT_EQ(ParseScript("[office]\nbusy_as = " + std::string(name)).busy_as, way) << name;
  }
}

TEST(OfficeScript, TellsWhatItDoesNotUnderstand) {
  for (const char* line :
       {"delay_ms = -1", "delay_ms = 60001", "fail_at = 1x", "fail_at =", "fail_creation = 2",
        "speed = 3", "busy_at = -1", "busy_calls = x", "busy_ms = 60001", "busy_as = often"}) {
    const Script script = ParseScript("[office]\n" + std::string(line) + "\n");
    EXPECT_EQ(script.problems.size(), 1U) << line;
    EXPECT_EQ(script.fail_at, 0) << line;
    EXPECT_EQ(script.delay_ms, 0) << line;
  }
  EXPECT_EQ(ParseScript("[other]\nfail_at = 1\n").problems.size(), 1U);
}

}  // namespace
}  // namespace tolvane::office
