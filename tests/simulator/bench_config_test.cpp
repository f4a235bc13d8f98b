#include "simulator/bench_config.h"

#include <gtest/gtest.h>

#include "simulator/ini_file.h"
#include "simulator/values.h"

namespace tolvane::simulator {
namespace {

using Texts = std::vector<std::string>;

TEST(IniFile, ReadsSectionsKeysAndComments) {
  const IniFile ini = ParseIni(
      "\xEF\xBB\xBF; comment\r\n# comment\r\n\r\n[ one ]\r\n a = b = c \r\n[two]\nempty "
      "=\n[one]\nd=1");
  EXPECT_EQ(ini.sections, (Texts{"one", "two"}));
  EXPECT_EQ(ini.problems, Texts{});
  ASSERT_NE(ini.Find("one", "a"), nullptr);
  EXPECT_EQ(ini.Find("one", "a")->value, "b = c");
  EXPECT_EQ(ini.Find("one", "a")->line, 5);
  EXPECT_EQ(ini.Find("one", "d")->value, "1");
  EXPECT_EQ(ini.Find("two", "empty")->value, "");
  EXPECT_EQ(ini.Find("two", "a"), nullptr);
}

TEST(IniFile, TheLastOfTwoEntriesHolds) {
  EXPECT_EQ(ParseIni("[s]\na=1\na=2\n").Find("s", "a")->value, "2");
}

TEST(IniFile, OtherLinesAreProblems) {
  EXPECT_EQ(ParseIni("[s]\nword\n= 5\n[open\n[\n").problems.size(), 4u);
}

TEST(Values, IntegersMustBeWhole) {
  EXPECT_EQ(ParseInteger("12"), 12);
  EXPECT_EQ(ParseInteger("-12"), -12);
  EXPECT_EQ(ParseInteger("0xC0000008"), 0xC0000008);
  EXPECT_EQ(ParseInteger("0xFFFFFFFFFFFFFFFF"), -1);
  for (const char* bad :
       {"", "-", "0x", "1 ", "1a", "+1", "0x10000000000000000", "--1", "-9223372036854775808"}) {
    EXPECT_EQ(ParseInteger(bad), std::nullopt) << bad;
  }
}

TEST(Values, TextEscapesGoBothWays) {
  EXPECT_EQ(UnescapeText("a\\x41\\\\\\xff"), "aA\\\xFF");
  EXPECT_EQ(EscapeText("aA\\\xFF\n"), "aA\\\\\\xFF\\x0A");
  for (const char* bad : {"\\", "\\n", "\\x4", "\\xG0"}) {
    EXPECT_EQ(UnescapeText(bad), std::nullopt) << bad;
  }
}

TEST(BenchConfig, TheDefaultBenchHasOneAdapterOfEachKindOnTheVehicle) {
  const BenchConfig config = DefaultBenchConfig();
  EXPECT_EQ(config.problems, Texts{});
  ASSERT_EQ(config.canusb.size(), 1u);
  EXPECT_EQ(config.canusb[0].serial, "TV100001");
  ASSERT_EQ(config.ifcan.size(), 1u);
  EXPECT_EQ(config.ifcan[0].port, 1);
  ASSERT_EQ(config.canlib.size(), 1u);
  EXPECT_EQ(config.channels, 1);
  EXPECT_EQ(config.bus.source, BusPlan::Source::kVehicle);
  EXPECT_EQ(config.canusb[0].adapter.tap.queue, 4096);
}

TEST(BenchConfig, AnEmptyFileHasNoAdapters) {
  const BenchConfig config = ReadBenchConfig("");
  EXPECT_TRUE(config.canusb.empty() && config.ifcan.empty() && config.canlib.empty());
  EXPECT_EQ(config.channels, 0);
}

TEST(BenchConfig, BenchAndBusKeys) {
  const BenchConfig config = ReadBenchConfig(
      "[bench]\nqueue=16\ngaps=8\nspeed=2.5\nclock=reads\nclock_step_us=20\nreport=r.txt\n"
      "[bus]\nsource=generator\nlog=a.log\nrepeat=0\nseed=9\nformat=both\nrate=100\n"
      "bit_rate=1000000\ngenerator_bit_rate=2000000\nframes=5\nids=7\nfirst_id=0x100\npayload="
      "3\nburst=4\ncontent=random\n"
      "[canusb 1]\n");
  EXPECT_EQ(config.problems, Texts{});
  EXPECT_TRUE(config.counted_clock);
  EXPECT_EQ(config.clock_step_us, 20);
  EXPECT_EQ(config.report, "r.txt");
  EXPECT_EQ(config.canusb.at(0).adapter.tap.queue, 16);
  EXPECT_EQ(config.canusb.at(0).adapter.tap.gaps, 8);
  EXPECT_EQ(config.canusb.at(0).adapter.tap.speed, 2.5);
  EXPECT_EQ(config.bus.source, BusPlan::Source::kGenerator);
  EXPECT_EQ(config.bus.log, "a.log");
  EXPECT_EQ(config.bus.repeat, 0);
  const LoadPlan& load = config.bus.load;
  EXPECT_EQ(load.seed, 9u);
  EXPECT_EQ(load.format, IdFormat::kBoth);
  EXPECT_EQ(load.rate, 100);
  EXPECT_EQ(config.bus.bit_rate, 1'000'000);
  EXPECT_EQ(load.bit_rate, 2'000'000);
  EXPECT_EQ(load.frames, 5);
  EXPECT_EQ(load.ids, 7);
  EXPECT_EQ(load.first_id, 0x100);
  EXPECT_EQ(load.payload, 3);
  EXPECT_EQ(load.burst, 4);
  EXPECT_EQ(load.content, LoadPlan::Content::kRandom);
}

TEST(BenchConfig, ALiveBusHasItsText) {
  const BenchConfig config = ReadBenchConfig("[bus]\nsource=live\nlog=live\n");
  EXPECT_EQ(config.problems, Texts{});
  EXPECT_EQ(config.bus.source, BusPlan::Source::kLive);
  EXPECT_EQ(config.bus.log, "live");
}

TEST(BenchConfig, TheGeneratorFillsTheBusUnlessTold) {
  EXPECT_EQ(ReadBenchConfig("").bus.bit_rate, 500'000);
  EXPECT_EQ(ReadBenchConfig("").bus.load.bit_rate, 500'000);
  EXPECT_EQ(ReadBenchConfig("[bus]\nbit_rate=125000\n").bus.load.bit_rate, 125'000);
}

TEST(BenchConfig, AdapterKeys) {
  const BenchConfig config = ReadBenchConfig(
      "[canusb "
      "1]\nserial=\\x83\\x65\nversion=V9\nclock_start=59990\nclock_wrap=60001\nclock_ppm=-50\n"
      "clock_steps=12.5:-500, 20:100\npulled_at=3.5\nsilence_from=1\nsilence_to=2\n"
      "burst_at=4\nburst_frames=5\nor_id=0x80000000\nforce_dlc=255\ndata=whole\ncanusb_Open = -2 "
      "after 2\n");
  EXPECT_EQ(config.problems, Texts{});
  const CanusbPlan& plan = config.canusb.at(0);
  EXPECT_EQ(plan.serial, "\x83\x65");
  EXPECT_EQ(plan.version, "V9");
  const AdapterPlan& adapter = plan.adapter;
  EXPECT_EQ(adapter.clock.start, 59'990);
  EXPECT_EQ(adapter.clock.wrap, 60'001);
  EXPECT_EQ(adapter.clock.ppm, -50);
  ASSERT_EQ(adapter.clock.steps.size(), 2u);
  EXPECT_EQ(adapter.clock.steps[0].at_us, 12'500'000);
  EXPECT_EQ(adapter.clock.steps[0].by_us, -500'000);
  EXPECT_EQ(adapter.clock.steps[1].by_us, 100'000);
  EXPECT_EQ(adapter.tap.pulled_at_us, 3'500'000);
  EXPECT_EQ(adapter.tap.silence_from_us, 1'000'000);
  EXPECT_EQ(adapter.tap.silence_to_us, 2'000'000);
  EXPECT_EQ(adapter.burst.at_us, 4'000'000);
  EXPECT_EQ(adapter.burst.frames, 5);
  EXPECT_EQ(adapter.or_id, 0x80000000);
  EXPECT_EQ(adapter.force_dlc, 255);
  EXPECT_TRUE(adapter.whole_data);
  ASSERT_EQ(adapter.results.size(), 1u);
  EXPECT_EQ(adapter.results[0].call, "canusb_Open");
  EXPECT_EQ(adapter.results[0].result, -2);
  EXPECT_EQ(adapter.results[0].after, 2);
}

TEST(BenchConfig, TheFaultsSectionHoldsForEveryAdapterThatDoesNotSayOtherwise) {
  const BenchConfig config = ReadBenchConfig(
      "[faults]\npulled_at=5\nCanGetConfig=0xC0000003\n"
      "[interface 2]\n[interface 5]\npulled_at=7\nCanGetConfig=0\n[kvaser 0]\n");
  EXPECT_EQ(config.problems, Texts{});
  ASSERT_EQ(config.ifcan.size(), 2u);
  EXPECT_EQ(config.ifcan[0].adapter.tap.pulled_at_us, 5'000'000);
  EXPECT_EQ(config.ifcan[0].adapter.results.at(0).result, static_cast<std::int32_t>(0xC0000003));
  EXPECT_EQ(config.ifcan[1].adapter.tap.pulled_at_us, 7'000'000);
  ASSERT_EQ(config.ifcan[1].adapter.results.size(), 1u);
  EXPECT_EQ(config.ifcan[1].adapter.results[0].result, 0);
  EXPECT_EQ(config.canlib.at(0).adapter.tap.pulled_at_us, 5'000'000);
}

TEST(BenchConfig, PortsComeInTheOrderOfTheirNumbers) {
  const BenchConfig config = ReadBenchConfig(
      "[interface 10]\ndevice=4852\nsubsystem=0x2094\nrevision=3\nboard=1\nmodel=4\nchannel=2\n"
      "physical_layer=0\nvendor=7\nstruct_length=35\nconfig=1,2,3,4,5,6,0x80000000\n[interface "
      "2]\n");
  EXPECT_EQ(config.problems, Texts{});
  ASSERT_EQ(config.ifcan.size(), 2u);
  EXPECT_EQ(config.ifcan[0].port, 2);
  const IfcanPlan& plan = config.ifcan[1];
  EXPECT_EQ(plan.port, 10);
  EXPECT_EQ(plan.information.ulStructLength, 35);
  EXPECT_EQ(plan.information.ulVendorID, 7);
  EXPECT_EQ(plan.information.ulDeviceID, 4852);
  EXPECT_EQ(plan.information.ulSubsystemID, 8340);
  EXPECT_EQ(plan.information.ulRevisionID, 3);
  EXPECT_EQ(plan.information.ulBoardID, 1);
  EXPECT_EQ(plan.information.ulModelNumber, 4);
  EXPECT_EQ(plan.information.ulChannelNumber, 2);
  EXPECT_EQ(plan.information.ulPhysicalLayer, 0);
  EXPECT_EQ(plan.config.mode, 1);
  EXPECT_EQ(plan.config.passed_through, (std::array<std::int32_t, 5>{2, 3, 4, 5, 6}));
  EXPECT_EQ(plan.config.baud_rate, INT32_MIN);
}

TEST(BenchConfig, KvaserCountsUpToItsHighestChannelUnlessTold) {
  const char* const channels =
      "[kvaser 3]\nname=four\nserial=77\nfirmware=0x0001000200030004\nupc=0x0733012345678905\n"
      "[kvaser 0]\n";
  const BenchConfig config = ReadBenchConfig(channels);
  EXPECT_EQ(config.problems, Texts{});
  EXPECT_EQ(config.channels, 4);
  ASSERT_EQ(config.canlib.size(), 2u);
  EXPECT_EQ(config.canlib[1].channel, 3);
  EXPECT_EQ(config.canlib[1].name, "four");
  EXPECT_EQ(config.canlib[1].serial, 77u);
  EXPECT_EQ(config.canlib[1].firmware, 0x0001000200030004u);
  EXPECT_EQ(config.canlib[1].upc, 0x0733012345678905u);
  EXPECT_EQ(ReadBenchConfig(std::string(channels) + "[kvaser]\nchannels=31\n").channels, 31);
}

struct BadValue {
  const char* label;
  const char* text;
};

class BenchConfigBadValue : public testing::TestWithParam<BadValue> {};

TEST_P(BenchConfigBadValue, IsAProblemAndChangesNothing) {
  const BenchConfig config = ReadBenchConfig(GetParam().text);
  EXPECT_EQ(config.problems.size(), 1u);
  for (const CanusbPlan& plan : config.canusb) {
    EXPECT_EQ(plan.adapter.tap.queue, 4096);
    EXPECT_EQ(plan.adapter.tap.pulled_at_us, TapPlan::kNever);
    EXPECT_EQ(plan.serial, "TV100001");
    EXPECT_TRUE(plan.adapter.results.empty());
    EXPECT_TRUE(plan.adapter.clock.steps.empty());
  }
}

INSTANTIATE_TEST_SUITE_P(
    , BenchConfigBadValue,
    testing::Values(BadValue{"QueueOfZero", "[bench]\nqueue=0\n[canusb 1]\n"},
                    BadValue{"NoNumber", "[bench]\nqueue=many\n[canusb 1]\n"},
                    BadValue{"NoChoice", "[bus]\nsource=radio\n"},
                    BadValue{"LiveWithoutText", "[bus]\nsource=live\n[canusb 1]\n"},
                    BadValue{"NoSeconds", "[canusb 1]\npulled_at=soon\n"},
                    BadValue{"NegativeSeconds", "[canusb 1]\npulled_at=-1\n"},
                    BadValue{"NoEscape", "[canusb 1]\nserial=\\q\n"},
                    BadValue{"NoResult", "[canusb 1]\ncanusb_Open=never\n"},
                    BadValue{"NoCount", "[canusb 1]\ncanusb_Open=-1 after\n"},
                    BadValue{"OtherWord", "[canusb 1]\ncanusb_Open=-1 before 3\n"},
                    BadValue{"NoClockStep", "[canusb 1]\nclock_steps=5\n"},
                    BadValue{"SixWords", "[interface 1]\nconfig=1,2,3,4,5,6\n"},
                    BadValue{"UnknownKey", "[canusb 1]\nserail=TV1\n"},
                    BadValue{"UnknownSection", "[canbus 1]\nserial=TV1\n"},
                    BadValue{"OneProblemForManyAdapters",
                             "[faults]\npulled_at=x\n[canusb 1]\n[kvaser 1]\n"}),
    [](const auto& row) { return row.param.label; });

}  // namespace
}  // namespace tolvane::simulator
