#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/simulator/canusb_bed.h"

namespace tolvane::simulator {
namespace {

using platform::CanusbMessage;
using CanusbBenchTest = CanusbBed;

TEST_F(CanusbBenchTest, TheSearchWalksThroughTheAdapters) {
  const std::string whole = "12345678901234567890123456789012";
  Plug("[canusb 1]\nserial=TV1\n[canusb 2]\nserial=" + whole + "\n");
  const std::string tail(28, '?');
  EXPECT_EQ(Search(true), "TV1" + std::string(1, '\0') + tail) << "the rest stays as it was";
  EXPECT_GT(result_, 0);
  EXPECT_EQ(Search(false), whole);
  EXPECT_GT(result_, 0);
  EXPECT_EQ(Search(false), std::string(32, '?')) << "nothing is written";
  EXPECT_LE(result_, 0);
  EXPECT_EQ(Search(true).substr(0, 3), "TV1") << "the first starts over";
}

TEST_F(CanusbBenchTest, OpensBySerialOncePerAdapter) {
  Plug("[canusb 1]\nserial=TV1\n[canusb 2]\nserial=TV2\n");
  const std::int32_t first = Open("TV2");
  EXPECT_GT(first, 0);
  EXPECT_EQ(Open("TV2"), -2) << "already open";
  EXPECT_EQ(Open("TV9"), -2) << "no such adapter";
  EXPECT_EQ(Open("TV1", ""), -6) << "no rate";
  EXPECT_EQ(Open(""), -2) << "no serial";
  EXPECT_EQ(library_->Close(first), 1);
  EXPECT_GT(Open("TV2"), first) << "an old handle stays dead";
  EXPECT_EQ(library_->Close(first), -4);
}

TEST_F(CanusbBenchTest, EveryRateOfTheAdapterIsTakenAndComesBackRewritten) {
  for (const std::string kilobits : {"10", "20", "50", "100", "125", "250", "500", "800", "1000"}) {
    Plug("[bus]\nbit_rate=" + kilobits + "000\n[canusb 1]\nserial=TV1\n");
    std::string rate = kilobits;
    const std::int32_t handle = library_->canusb_Open("TV1", rate, 0, -1, 1);
    EXPECT_GT(handle, 0) << kilobits;
    EXPECT_EQ(rate, kilobits + " kbit/s");
    library_->Close(handle);
    EXPECT_EQ(bench_.Faults(), Faults{}) << kilobits;
  }
}

TEST_F(CanusbBenchTest, ARecordSaysWhatWasOnTheBus) {
  Plug("[bus]\nsource=log\nlog=bus.log\n[canusb 1]\nserial=TV1\nclock_start=59999\n",
       "(1.000) c 123#0102\n(1.001) c 1ABCDEF0#0102030405060708\n(1.002) c 7FF#R4\n");
  const std::int32_t handle = Open("TV1");
  bench_.Advance(1'000'000);
  CanusbMessage message{};
  message.data.fill(0xEE);
  ASSERT_EQ(library_->canusb_Read(handle, message), 1);
  EXPECT_EQ(message.id, 0x123);
  EXPECT_EQ(message.timestamp, 59'999);
  EXPECT_EQ(message.flags, 0);
  EXPECT_EQ(message.len, 2);
  EXPECT_EQ(message.data, (std::array<std::uint8_t, 8>{1, 2, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE}));
  ASSERT_EQ(library_->canusb_Read(handle, message), 1);
  EXPECT_EQ(message.id, 0x1ABCDEF0);
  EXPECT_EQ(message.timestamp, 0);
  EXPECT_EQ(message.flags, 128);
  EXPECT_EQ(message.len, 8);
  ASSERT_EQ(library_->canusb_Read(handle, message), 1);
  EXPECT_EQ(message.flags, 64);
  EXPECT_EQ(message.len, 4);
  EXPECT_EQ(message.data, (std::array<std::uint8_t, 8>{1, 2, 3, 4, 5, 6, 7, 8}))
      << "a remote frame has none";
  EXPECT_EQ(library_->canusb_Read(handle, message), -7);
  EXPECT_EQ(library_->canusb_Read(handle + 1, message), -4);
}

TEST_F(CanusbBenchTest, AllDataBytesAreWrittenWhereTheBenchFileSaysSo) {
  Plug("[bus]\nsource=log\nlog=bus.log\n[canusb 1]\nserial=TV1\ndata=whole\n",
       "(1.0) c 001#0102\n(1.0) c 001#R\n");
  const std::int32_t handle = Open("TV1");
  CanusbMessage message{};
  for (const auto& data : {std::array<std::uint8_t, 8>{1, 2}, std::array<std::uint8_t, 8>{}}) {
    message.data.fill(0xEE);
    ASSERT_EQ(library_->canusb_Read(handle, message), 1);
    EXPECT_EQ(message.data, data);
  }
}

TEST_F(CanusbBenchTest, RubbishInTheRecord) {
  Plug("[bus]\nsource=log\nlog=bus.log\n[canusb 1]\nserial=TV1\nforce_dlc=255\nor_id=0x80000000\n",
       "(1.0) c 001#\n");
  const std::int32_t handle = Open("TV1");
  CanusbMessage message{};
  ASSERT_EQ(library_->canusb_Read(handle, message), 1);
  EXPECT_EQ(message.len, 255);
  EXPECT_EQ(message.id, INT32_MIN + 1);
}

TEST_F(CanusbBenchTest, TheBusBeginsAnewWithEveryOpen) {
  Plug("[bus]\nsource=log\nlog=bus.log\n[canusb 1]\nserial=TV1\n", "(1.0) c 001#\n");
  CanusbMessage message{};
  for (int run = 0; run < 2; ++run) {
    const std::int32_t handle = Open("TV1");
    EXPECT_EQ(library_->canusb_Read(handle, message), 1);
    EXPECT_EQ(library_->canusb_Read(handle, message), -7);
    library_->Close(handle);
    bench_.Advance(5'000'000);
  }
}

TEST_F(CanusbBenchTest, TheVersionNeedsAnOpenAdapter) {
  Plug("[canusb 1]\nserial=TV1\nversion=V7\n");
  std::array<char, 64> version;
  version.fill('?');
  EXPECT_EQ(library_->canusb_VersionInfo(1, version), -4);
  EXPECT_EQ(version[0], '?') << "untouched";
  const std::int32_t handle = Open("TV1");
  EXPECT_GT(library_->canusb_VersionInfo(handle, version), 0);
  EXPECT_STREQ(version.data(), "V7");
  EXPECT_EQ(version[3], '?') << "the rest stays as it was";
}

TEST_F(CanusbBenchTest, CallsAnswerAsToldFromTheToldTimeOn) {
  Plug(
      "[canusb]\ncanusb_getNextAdapter=-1\nsearch_upper_half=0x7FFF\n"
      "[canusb 1]\nserial=TV1\ncanusb_Open=0 after 1\ncanusb_VersionInfo=-3\ncanusb_Read=-3\n"
      "canusb_Close=-9\n");
  EXPECT_EQ(library_->SearchUpperHalf(), 0x7FFF);
  Search(true);
  EXPECT_GT(result_, 0);
  Search(false);
  EXPECT_EQ(result_, -1);
  const std::int32_t handle = Open("TV1");
  EXPECT_GT(handle, 0);
  std::array<char, 64> version;
  EXPECT_EQ(library_->canusb_VersionInfo(handle, version), -3);
  CanusbMessage message{};
  EXPECT_EQ(library_->canusb_Read(handle, message), -3);
  EXPECT_EQ(library_->Close(handle), -9);
  EXPECT_EQ(bench_.Faults(), Faults{}) << "the program cannot help them";
  EXPECT_EQ(Open("TV1"), 0);
}

TEST_F(CanusbBenchTest, APulledAdapterFailsItsReadsAndCloses) {
  Plug("[canusb 1]\nserial=TV1\npulled_at=2\n");
  const std::int32_t handle = Open("TV1");
  CanusbMessage message{};
  bench_.Advance(1'999'999);
  EXPECT_EQ(library_->canusb_Read(handle, message), 1);
  bench_.Advance(1);
  EXPECT_EQ(library_->canusb_Read(handle, message), -3);
  EXPECT_EQ(library_->Close(handle), 1);
}

TEST_F(CanusbBenchTest, TheReportTellsCallsInOrderAndTheCountsOfARun) {
  Plug(
      "[bench]\nqueue=2\n[bus]\nsource=log\nlog=bus.log\nbit_rate=250000\n[canusb "
      "1]\nserial=T\\xE9\nversion=V1\n"
      "nonsense=1\n",
      "(1.0) c 001#\n(1.0) c 002#\n(1.0) c 003#\nbad\n");
  Search(true);
  const std::int32_t handle = Open("T\xE9", "250");
  std::array<char, 64> version;
  library_->canusb_VersionInfo(handle, version);
  CanusbMessage message{};
  library_->canusb_Read(handle, message);
  bench_.Advance(1'234);
  library_->canusb_Read(handle, message);
  library_->Close(handle);
  library_.reset();
  EXPECT_EQ(bench_.ReportText(),
            "canusbdrv load\n"
            "canusbdrv bench file line 10: nonsense: no such key in this section\n"
            "canusbdrv canusb_getFirstAdapter() = 1 \"T\\xE9\"\n"
            "canusbdrv recording frames=3 refused_lines=1 first_refused_line=4\n"
            "canusbdrv bus T\\xE9 bit_rate=250000 driver=normal\n"
            "canusbdrv canusb_Open(\"T\\xE9\", \"250\", 0, -1, 1) = 1\n"
            "canusbdrv canusb_VersionInfo(1) = 1 \"V1\"\n"
            "canusbdrv canusb_Close(1) = 1\n"
            "canusbdrv run T\\xE9 reads=2 delivered=2 dropped=1 longest_gap_ms=1.234 "
            "queue_high_water=2\n"
            "canusbdrv unload\n");
}

TEST_F(CanusbBenchTest, TheReportTellsThatTheTrafficIsOver) {
  Plug("[bus]\nsource=log\nlog=bus.log\n[canusb 1]\nserial=T\\xE9\n", "(1.0) c 001#\n");
  for (int run = 0; run < 2; ++run) {
    const std::int32_t handle = Open("T\xE9");
    CanusbMessage message{};
    for (int read = 0; read < 3; ++read) library_->canusb_Read(handle, message);
    const std::size_t told = bench_.ReportText().rfind("canusbdrv end T\\xE9 delivered=1\n");
    EXPECT_GT(told + 1, bench_.ReportText().rfind("canusb_Open")) << "of each run";
    library_->Close(handle);
  }
}

TEST_F(CanusbBenchTest, AFaultOfEachReadIsToldOnceThoughTheTrafficEnds) {
  Plug("[bus]\nsource=log\nlog=bus.log\nbit_rate=250000\n[canusb 1]\nserial=TV1\n",
       "(1.0) c 001#\n");
  const std::int32_t handle = Open("TV1");
  CanusbMessage message{};
  for (int read = 0; read < 3; ++read) library_->canusb_Read(handle, message);
  EXPECT_NE(bench_.ReportText().find("end TV1 delivered=0\n"), std::string::npos);
  EXPECT_EQ(bench_.Faults(), Faults{"TV1 at 500000 bit/s on a bus of 250000"});
}

TEST_F(CanusbBenchTest, AnAdapterLeftOpenIsReportedAtTheEnd) {
  Plug("[canusb 1]\nserial=TV1\n");
  Open("TV1");
  library_.reset();
  EXPECT_NE(bench_.ReportText().find("canusbdrv run TV1 reads=0 delivered=0 dropped=0"),
            std::string::npos);
}

TEST_F(CanusbBenchTest, TheReportEndsWithTheLongestGapsWhenTold) {
  Plug("[bench]\ngaps=5\n[bus]\nsource=log\nlog=bus.log\n[canusb 1]\nserial=TV1\n",
       "(0.000000) c 001#\n");
  const std::int32_t handle = Open("TV1");
  CanusbMessage message{};
  library_->canusb_Read(handle, message);
  bench_.Advance(2'050);
  library_->canusb_Read(handle, message);
  bench_.Advance(7);
  library_->canusb_Read(handle, message);
  library_->Close(handle);
  EXPECT_NE(
      bench_.ReportText().find("queue_high_water=1\n"
                               "canusbdrv gap TV1 behind=frame ms=2.050 delivered=1 at_ms=2.050\n"
                               "canusbdrv gap TV1 behind=empty ms=0.007 delivered=1 at_ms=2.057\n"),
      std::string::npos)
      << bench_.ReportText();
}

TEST_F(CanusbBenchTest, AMissingRecordingIsASilentBus) {
  Plug("[bus]\nsource=log\nlog=absent.log\n[canusb 1]\nserial=TV1\n");
  const std::int32_t handle = Open("TV1");
  bench_.Advance(60'000'000);
  CanusbMessage message{};
  EXPECT_EQ(library_->canusb_Read(handle, message), -7);
  EXPECT_NE(bench_.ReportText().find("canusbdrv error: recording cannot be read\n"),
            std::string::npos);
}

TEST_F(CanusbBenchTest, AFolderForARecordingCannotBeRead) {
  Plug("[bus]\nsource=log\nlog=.\n[canusb 1]\nserial=TV1\n");
  EXPECT_GT(Open("TV1"), 0);
  EXPECT_NE(bench_.ReportText().find("canusbdrv error: recording cannot be read\n"),
            std::string::npos);
}

TEST_F(CanusbBenchTest, ARecordingWithoutAnyFrameIsAnErrorInTheReport) {
  Plug("[bus]\nsource=log\nlog=bus.log\n[canusb 1]\nserial=TV1\n",
       "\n  can0  123   [1]  01\nbad\n");
  EXPECT_GT(Open("TV1"), 0) << "the adapter is there, its bus is silent";
  EXPECT_NE(bench_.ReportText().find("canusbdrv error: recording holds nothing to play, frames=0 "
                                     "refused_lines=2 first_refused_line=2\n"),
            std::string::npos);
}

}  // namespace
}  // namespace tolvane::simulator
