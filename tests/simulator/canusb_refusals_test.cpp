// What the simulated canusbdrv.dll refuses, and what it reports as a fault of the program.
#include <gtest/gtest.h>

#include <string>

#include "tests/simulator/canusb_bed.h"

namespace tolvane::simulator {
namespace {

constexpr const char* kOneFrameOf123 = "(1.0) c 123#01\n";

class CanusbRefuses : public CanusbBed {
 protected:
  void PlugOn(const std::string& bus, const std::string& log = kOneFrameOf123) {
    Plug("[bus]\nsource=log\nlog=bus.log\n" + bus + "[canusb 1]\nserial=TV1\nclock_start=77\n",
         log);
  }
  std::int32_t OpenWith(std::int32_t code, std::int32_t mask, std::int32_t flags) {
    std::string rate = "500";
    return library_->canusb_Open("TV1", rate, code, mask, flags);
  }

  platform::CanusbMessage message_{};
};

TEST_F(CanusbRefuses, AnythingFromABusOfAnotherRate) {
  PlugOn("bit_rate=250000\n");
  const std::int32_t handle = Open("TV1", "500");
  EXPECT_GT(handle, 0);
  EXPECT_EQ(bench_.Faults(), Faults{}) << "the version may be asked for at any rate";
  EXPECT_EQ(library_->canusb_Read(handle, message_), -7);
  EXPECT_EQ(library_->canusb_Read(handle, message_), -7);
  EXPECT_EQ(bench_.Faults(), Faults{"TV1 at 500000 bit/s on a bus of 250000"});
}

TEST_F(CanusbRefuses, RatesThatItDoesNotKnow) {
  PlugOn("");
  for (const char* rate : {"", "501", "500 kbit/s", "0x00:0x1C"}) {
    std::string text = rate;
    EXPECT_EQ(library_->canusb_Open("TV1", text, 0, -1, 1), -6) << rate;
    EXPECT_EQ(text, rate) << "a failed open rewrites nothing";
    EXPECT_EQ(bench_.Faults().back(), "canusb_Open: no such rate");
  }
  EXPECT_EQ(bench_.Faults().size(), 4u);
}

TEST_F(CanusbRefuses, StampsThatNobodyAskedFor) {
  PlugOn("");
  message_.timestamp = 99;
  EXPECT_EQ(library_->canusb_Read(OpenWith(0, -1, 0), message_), 1);
  EXPECT_EQ(message_.timestamp, 0);
  EXPECT_EQ(bench_.Faults(), Faults{"canusb_Open: frames without stamps"});
}

TEST_F(CanusbRefuses, FlagsWithoutMeaning) {
  PlugOn("");
  EXPECT_EQ(OpenWith(0, -1, 3), -6);
  EXPECT_EQ(bench_.Faults(), Faults{"canusb_Open: flags without meaning"});
}

struct FilterRow {
  const char* label;
  std::uint32_t code;
  std::uint32_t mask;
  std::uint32_t passed;  // of the three frames, each a bit
};

class CanusbFilter : public CanusbRefuses, public testing::WithParamInterface<FilterRow> {};

TEST_P(CanusbFilter, LetsInWhatAgreesWhereTheMaskIsClear) {
  PlugOn("", "(1.0) c 123#01\n(1.0) c 124#02\n(1.0) c 1ABCDEF0#03\n");
  const std::int32_t handle = OpenWith(static_cast<std::int32_t>(GetParam().code),
                                       static_cast<std::int32_t>(GetParam().mask), 1);
  std::uint32_t passed = 0;
  while (library_->canusb_Read(handle, message_) > 0) passed |= 1u << (message_.data[0] - 1);
  EXPECT_EQ(passed, GetParam().passed);
  library_->Close(handle);
  EXPECT_EQ(bench_.Faults(),
            passed == 7 ? Faults{} : Faults{"canusb_Open: the filter keeps frames back"});
}

INSTANTIATE_TEST_SUITE_P(
    , CanusbFilter,
    testing::Values(FilterRow{"All", 0, 0xFFFFFFFF, 7},
                    FilterRow{"AllWithACode", 0x12345678, 0xFFFFFFFF, 7},
                    FilterRow{"OneOf11Bits", 0x123u << 21, 0x001FFFFF, 1},
                    FilterRow{"AllButTheLastBits", 0x123u << 21, 0x00FFFFFF, 3},
                    FilterRow{"OneOf29Bits", 0x1ABCDEF0u << 3, 7, 4}, FilterRow{"None", 0, 0, 0}),
    [](const auto& row) { return row.param.label; });

TEST_F(CanusbRefuses, HandlesThatAreNotOpenAndTellsAReadOnce) {
  PlugOn("");
  std::array<char, 64> version{};
  EXPECT_EQ(library_->canusb_Read(5, message_), -4);
  EXPECT_EQ(library_->canusb_Read(5, message_), -4);
  EXPECT_EQ(library_->canusb_VersionInfo(5, version), -4);
  EXPECT_EQ(library_->Close(5), -4);
  EXPECT_EQ(bench_.Faults(), (Faults{"canusb_Read: no open adapter has the handle 5",
                                     "canusb_VersionInfo: no open adapter has the handle 5",
                                     "canusb_Close: no open adapter has the handle 5"}));
}

TEST_F(CanusbRefuses, AdaptersThatThereAreNotOrThatAreOpen) {
  PlugOn("");
  EXPECT_EQ(Open("TV9"), -2);
  EXPECT_EQ(Open(""), -2);
  EXPECT_GT(Open("TV1"), 0);
  EXPECT_EQ(Open("TV1"), -2);
  EXPECT_EQ(bench_.Faults(), (Faults{"canusb_Open: no such adapter", "canusb_Open: no such adapter",
                                     "canusb_Open: already open"}));
}

TEST_F(CanusbRefuses, ASearchThatBeginsWithTheSecond) {
  PlugOn("");
  Search(false);
  EXPECT_EQ(result_, 0);
  EXPECT_EQ(bench_.Faults(), Faults{"canusb_getNextAdapter: ahead of the first"});
}

TEST_F(CanusbRefuses, ToBeLeftOpen) {
  PlugOn("");
  Open("TV1");
  library_.reset();
  EXPECT_EQ(bench_.Faults(), Faults{"TV1 is left open"});
}

}  // namespace
}  // namespace tolvane::simulator
