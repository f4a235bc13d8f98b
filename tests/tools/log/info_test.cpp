#include "tools/log/info/info.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "tests/tools/log/written_log.h"
#include "tools/log/info/report.h"

namespace tolvane::logtool {
namespace {

TEST(CycleStatistics, TheMedianIsTheOneInTheMiddleOfASort) {
  std::mt19937 random(1);
  for (const int count : {1, 2, 3, 10, 1001, 5000}) {
    CycleStatistics statistics;
    std::vector<double> cycles;
    for (int i = 0; i < count; ++i) {
      cycles.push_back(static_cast<double>(random() % 1500));
      statistics.Add(cycles.back());
    }
    std::ranges::sort(cycles);
    EXPECT_EQ(statistics.Median(), cycles[(cycles.size() - 1) / 2]) << count;
    EXPECT_EQ(statistics.Least(), cycles.front());
    EXPECT_EQ(statistics.Longest(), cycles.back());
    EXPECT_EQ(statistics.Count(), cycles.size());
  }
}

TEST(CycleStatistics, LongCyclesAreRightToATwoThousandth) {
  CycleStatistics statistics;
  for (int i = 0; i < 1001; ++i) statistics.Add(1e6 + 7.7 * i);
  EXPECT_NEAR(statistics.Median(), 1e6 + 7.7 * 500, 1e6 / 2000);
}

TEST(CycleStatistics, FramesAreLostInWholeCycles) {
  EXPECT_EQ(FramesLostIn(51.0, 10.0), 4.0);
  EXPECT_EQ(FramesLostIn(104.0, 10.0), 9.0);
  EXPECT_EQ(FramesLostIn(4.0, 10.0), 0.0);
}

TEST(LongestSilences, TheShortestGoesFirst) {
  LongestSilences silences(3);
  for (const double length : {5.0, 1.0, 4.0, 2.0, 3.0}) {
    silences.Add({{length * 100, 0.0}, {length * 101, 0.0}}, 0.0);
  }
  std::vector<double> kept;
  for (const auto& one : silences.TheKept()) kept.push_back(one.silence.length);
  std::ranges::sort(kept);
  EXPECT_EQ(kept, (std::vector<double>{3.0, 4.0, 5.0}));
}

TEST(LongestSilences, OfEquallyLongOnesTheFirstStay) {
  LongestSilences silences(3);
  for (const double length : {5.0, 7.0, 5.0, 5.0, 5.0, 9.0}) {
    const double begin =
        100.0 * static_cast<double>(silences.TheKept().size() + silences.LeftOut());
    silences.Add({{begin, 0.0}, {begin + length, 0.0}}, 0.0);
  }
  std::vector<double> begins;
  for (const auto& one : silences.TheKept()) begins.push_back(one.silence.begin);
  std::ranges::sort(begins);
  EXPECT_EQ(begins, (std::vector<double>{0.0, 100.0, 500.0}));
  EXPECT_EQ(silences.LeftOut(), 3U);
}

TEST(ReportTexts, AreThoseOfTheLog) {
  IdentifierStatistics identifier;
  identifier.id = 0x1A;
  EXPECT_EQ(IdentifierText(identifier), "01A");
  identifier.extended = true;
  EXPECT_EQ(IdentifierText(identifier), "0000001A");
  EXPECT_EQ(NumberText(1.5), "1.5");
  EXPECT_EQ(LengthsText(1U << 0 | 1U << 8 | IdentifierStatistics::kOtherLengths), "0, 8, others");
  EXPECT_EQ(LengthsText(IdentifierStatistics::kOtherLengths), "others");
}

class Info : public WrittenLog {
 protected:
  std::string Of(const InfoWishes& wishes) {
    TakeFiles();
    return OfTaken(wishes);
  }
  std::string OfTaken(const InfoWishes& wishes) {
    std::vector<std::string> paths;
    for (const auto& [path, text] : log_files.texts) paths.push_back(path);
    std::string said;
    TextSink sink(said);
    Complaints complaints(sink, false);
    const auto runs = FindRuns(paths, log_files, complaints);
    return InfoOf(runs, wishes, log_files, code_page, complaints);
  }
};

TEST_F(Info, IsATableForPeople) {
  for (int i = 0; i < 100; ++i) {
    if (i < 40 || i >= 60) db.csv_DataInput(i * 10.0, 0x1A0, i == 7 ? 2 : 8, kBytes);
    if (i == 50) RollOverNow();
  }
  Flush(2);
  EXPECT_EQ(Of({}),
            "run 1\n"
            "  files         2: KL26112009-001.csv to KL26112009-002.csv\n"
            "                KL26112009-001.csv has 40 records and is not full, but "
            "KL26112009-002.csv goes on\n"
            "  program       Tolvane Ver1.23\n"
            "  adapter       CANUSB ABCD 、V1.0\n"
            "  bit rate      500k bps\n"
            "  comment       ＣＡＮ受信ログ\n"
            "  written       2026/11/20 9:05:07 to 2026/11/20 9:05:07\n"
            "  frames        80\n"
            "  identifiers   1, 11-bit mode\n"
            "  first, last   0 ms, 990 ms\n"
            "  span          0.99 s\n"
            "\n"
            "  identifier     frames  median ms   least ms longest ms     gaps     lost  length\n"
            "  1A0                80         10         10        210        1       20  2, 8\n"
            "\n"
            "  silent longer than 5 cycles: 1\n"
            "  identifier       from ms         to ms    silent ms         lost\n"
            "  all                  390           600          210     about 20\n");
}

TEST_F(Info, IsJsonForPrograms) {
  device.t_LogComment = u"a \"quoted\\\" comment";
  Begin29BitRun();
  for (int i = 0; i < 3; ++i) db.csv_DataInput29(i * 2.5, 0x123, 8, kBytes, 1);
  db.csv_DataInput29(7.5, 0x7FF, 0, kBytes, 0);
  Flush(1);
  EXPECT_EQ(
      Of({.as_json = true}),
      "{\"runs\": [{\"files\": [{\"path\": \"KL26112009-001.csv\", \"written\": \"2026/11/20 "
      "9:05:07\", \"frames\": 4}], \"odd_seams\": [], \"is_whole_at_its_begin\": true, "
      "\"program\": \"Tolvane Ver1.23\", "
      "\"adapter\": \"CANUSB ABCD 、V1.0\", \"bit_rate\": \"500k bps\", \"comment\": \"a "
      "\\\"quoted\\\\\\\" comment\", \"id_bits\": 29, \"frames\": 4, \"first_ms\": 0, \"last_ms\": "
      "7.5, \"span_ms\": 7.5, \"steps_back\": 0, \"bare_ids\": 0, \"stray_zeros\": 0, "
      "\"clock_jump\": null, \"gap_multiple\": 5, \"identifiers\": [{\"id\": \"7FF\", "
      "\"extended\": false, \"frames\": 1, \"first_ms\": 7.5, \"last_ms\": 7.5, \"cycle_ms\": "
      "null, \"lengths\": [0], \"gaps\": null, \"lost\": null}, {\"id\": \"00000123\", "
      "\"extended\": "
      "true, \"frames\": 3, \"first_ms\": 0, \"last_ms\": 5, \"cycle_ms\": {\"median\": 2.5, "
      "\"least\": 2.5, \"longest\": 2.5}, \"lengths\": [8], \"gaps\": 0, \"lost\": 0}], \"gaps\": "
      "[], \"gaps_left_out\": 0}], \"faults\": 0}\n");
}

TEST_F(Info, TellsOfEachRunAndOfOneWithoutItsBegin) {
  db.csv_DataInput(5.0, 0x1A0, 0, kBytes);
  RollOverNow();
  StartRun();
  FileName_Date = u"26112009";
  FileName_No = u"002";
  db.csv_DataInput(0.0, 0x1A0, 0, kBytes);
  RollOverNow();
  const std::string text = Of({});
  EXPECT_NE(text.find("they begin at 5 ms: those ahead of them are missing"), std::string::npos);
  EXPECT_NE(text.find("\nrun 2\n"), std::string::npos);
}

TEST_F(Info, OfACompleteLogWithAJumpOfTheClockTellsTheJumpAndNoGap) {
  // 200 s that begin at the reading 30000 of a clock which starts over behind 60000.
  for (int i = 0; i < 20'000; ++i) {
    const double time = i * 10 + (i > 3000 ? 30'000 : 0);
    db.csv_DataInput(time, 0x100, 0, kBytes);
    if (i % 10 == 0) db.csv_DataInput(time, 0x200, 0, kBytes);
    if (i % 100 == 0) db.csv_DataInput(time, 0x300, 0, kBytes);
    if (i == 10'000) RollOverNow();
  }
  Flush(2);
  const std::string text = Of({});
  EXPECT_NE(text.find("  span          199.99 s\n"
                      "  clock jump    30000 ms behind 30000 ms, right to 0 ms if the bus was not "
                      "silent there\n"
                      "                it is no silence: it counts in no cycle, gap or span, and "
                      "the times have it (see --mend-clock)\n"
                      "                a silence that ends just there looks the same\n"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find("  100             20000         10         10         10        0        0"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find("  silent longer than 5 cycles: none\n"), std::string::npos);
  const std::string json = Of({.as_json = true});
  EXPECT_NE(json.find("\"clock_jump\": {\"at_ms\": 30000, \"jump_ms\": 30000, \"doubt_ms\": 0, "
                      "\"in_times\": true}"),
            std::string::npos)
      << json;
  EXPECT_NE(json.find("\"last_ms\": 229990, \"span_ms\": 199990"), std::string::npos) << json;
  EXPECT_TRUE(json.ends_with("\"gaps\": [], \"gaps_left_out\": 0}], \"faults\": 0}\n"));
}

TEST_F(Info, OfIdentifiersThatAllComeAtOddTimesIsNotJudged) {
  for (int i = 0; i < 30; ++i) db.csv_DataInput(i / 3 * 1000 + i % 3, 0x100, 0, kBytes);
  Flush(1);
  EXPECT_TRUE(
      Of({}).ends_with("silent longer than 5 cycles: not judged: no identifier comes regularly\n"));
  const std::string json = Of({.as_json = true});
  EXPECT_TRUE(json.ends_with("\"gaps\": null, \"gaps_left_out\": null}], \"faults\": 0}\n"));
}

TEST_F(Info, OfAPathThatIsNoUtf8IsUtf8) {
  db.csv_DataInput(0.0, 0x100, 0, kBytes);
  Flush(1);
  TakeFiles();
  const std::pair<const char*, const char*> rows[] = {
      {"走\U0001F600.csv", "走\U0001F600.csv"},
      {"\x91\x96.csv", "\uFFFD\uFFFD.csv"},
      {"a\xE8\xB5", "a\uFFFD\uFFFD"},
      {"\xC0\xAF", "\uFFFD\uFFFD"},
      {"\xE0\x80\x80", "\uFFFD\uFFFD\uFFFD"},
      {"\xED\xA0\x80", "\uFFFD\uFFFD\uFFFD"},
      {"\xF4\x90\x80\x80", "\uFFFD\uFFFD\uFFFD\uFFFD"}};
  const std::string log = log_files.texts[Path("001")];
  for (const auto& [path, shown] : rows) {
    log_files.texts = {{path, log}};
    EXPECT_TRUE(
        OfTaken({.as_json = true})
            .starts_with("{\"runs\": [{\"files\": [{\"path\": \"" + std::string(shown) + "\""))
        << shown;
  }
}

TEST_F(Info, OfARunWithoutFramesEndsBehindItsHead) {
  Flush(1);
  EXPECT_TRUE(Of({}).ends_with("  frames        0\n  identifiers   0, 11-bit mode\n"));
}

TEST_F(Info, ShowsTheLongestOfManyGaps) {
  double time = 0.0;
  for (int i = 0; i < 2500; ++i) {
    time += i % 25 == 24 ? 1000.0 + i : 10.0;
    db.csv_DataInput(time, 0x1A0, 0, kBytes);
  }
  Flush(1);
  const std::string text = Of({});
  EXPECT_NE(text.find("silent longer than 5 cycles: 100\n"), std::string::npos);
  EXPECT_TRUE(text.ends_with("  and 50 more, none of them longer\n")) << text;
  EXPECT_EQ(text.find(" 2249 "), std::string::npos);
  EXPECT_NE(text.find(" 2274 "), std::string::npos);
}

}  // namespace
}  // namespace tolvane::logtool
