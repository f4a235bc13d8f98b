#include <gtest/gtest.h>

#include "logging/csv_line.h"
#include "logging/log_naming.h"
#include "tests/helpers/expect_bytes.h"
#include "tests/logging/log_test.h"

namespace tolvane {
namespace {

constexpr std::size_t kBound = 2 * 1024 * 1024;  // characters; the program's would take a while

class CsvFault : public LogTest {
 protected:
  /// The records of a log, without its headers.
  std::string Records(StringView number) {
    const std::string bytes = LogBytes(number);
    const std::size_t columns = bytes.find("D7,D8\r\n");
    return columns == std::string::npos ? "no file" : bytes.substr(columns + 7);
  }

  const std::string first = "         1 , 100 , 0\r\n";
  const std::string second = "         2 , 100 , 0\r\n";

  /// A flush that fails after `fault`, then one that succeeds after `mended`.
  template <typename Fault, typename Mended>
  void KeepsTheRecords(Fault fault, Mended mended) {
    db.csv_DataInput(1.0, 0x100, 0, kBytes);
    fault();
    Flush(1);
    mended();
    db.csv_DataInput(2.0, 0x100, 0, kBytes);
    Flush(1);
  }
};

TEST_F(CsvFault, ALineComesInWhereTheLongestOneJustFits) {
  db.LogBuilder_MAX = kCsvLine_MAX;
  for (const StringView number : {u"001", u"002"}) {
    db.csv_DataInput(1.0, 0x100, 0, kBytes);
    db.csv_DataInput(2.0, 0x100, 0, kBytes);  // no room
    Flush(1);
    EXPECT_TRUE(SameBytes(Records(number), first));
  }
}

TEST_F(CsvFault, RemovedFolderKeepsTheRecordsForTheNextFlush) {
  KeepsTheRecords([&] { files.Remove(u"C:\\Tolvane"); }, [&] { files.AddFolder(u"C:\\Tolvane"); });
  EXPECT_TRUE(SameBytes(Records(u"001"), first + second));
}

TEST_F(CsvFault, ReadOnlyFolderKeepsTheRecordsForTheNextFlush) {
  KeepsTheRecords([&] { files.Protect(u"C:\\Tolvane", true); },
                  [&] { files.Protect(u"C:\\Tolvane", false); });
  EXPECT_TRUE(SameBytes(Records(u"001"), first + second));
}

TEST_F(CsvFault, FullDiskLeavesAPieceAndTheNextFileHasAll) {
  KeepsTheRecords([&] { files.FreeSpace(100); }, [&] { files.FreeSpace(1'000'000); });
  EXPECT_EQ(LogBytes(u"001").size(), 100U);
  EXPECT_TRUE(SameBytes(Records(u"002"), first + second));
}

TEST_F(CsvFault, FailedCloseKeepsTheRecordsToo) {
  KeepsTheRecords([&] { files.FailClose(true); }, [&] { files.FailClose(false); });
  EXPECT_TRUE(SameBytes(Records(u"001"), first));
  EXPECT_TRUE(SameBytes(Records(u"002"), first + second));
}

TEST_F(CsvFault, LockedFileOfNumber1000KeepsTheRecords) {
  for (std::int32_t number = 1; number <= 1000; ++number) {
    String path = u"C:\\Tolvane\\KL26112009-";
    files.AddFile(path.append(FileNumberText(number)).append(u".csv"), "old");
  }
  const StringView last = u"C:\\Tolvane\\KL26112009-1000.csv";
  KeepsTheRecords([&] { files.Lock(last, true); },
                  [&] {
                    EXPECT_EQ(LogBytes(u"1000"), "old");
                    files.Lock(last, false);
                  });
  EXPECT_TRUE(SameBytes(Records(u"1000"), first + second));
}

TEST_F(CsvFault, PathTooLongKeepsTheRecords) {
  const String deep = u"C:\\Tolvane\\" + String(230, u'x');
  files.AddFolder(deep);
  device.t_LogSaveFilePath_mode = 2;
  device.t_LogSaveFilePath = deep;
  KeepsTheRecords([] {}, [&] { device.t_LogSaveFilePath_mode = 0; });
  EXPECT_TRUE(files.Files(deep).empty());
  EXPECT_TRUE(SameBytes(Records(u"001"), first + second));
}

TEST_F(CsvFault, TheOtherChannelIsNotTouchedByAFailedFlush) {
  db.csv_DataInput(1.0, 0x100, 0, kBytes);
  files.Protect(u"C:\\Tolvane", true);
  Flush(1);
  files.Protect(u"C:\\Tolvane", false);
  db.Excel_DB_ArayyCh = 2;
  db.csv_DataInput(2.0, 0x100, 0, kBytes);
  Flush(2);
  EXPECT_TRUE(SameBytes(Records(u"001"), second));
}

// A remote frame of length eight takes 47 bits where none is stuffed, as with the identifier 084,
// and its line has all data bytes. No other frame brings more text for its bits, but for length
// codes above eight, which bring a digit more. The fastest bus has 1 Mbit/s. The channels take
// turns, so each gets half of the lines.
TEST_F(CsvFault, MinutesOfASaturatedBusOutlastFailingFlushes) {
  constexpr double kMinutes = sizeof(void*) == 8 ? 8.5 : 2.0;
  constexpr double kLinesPerChannel = kMinutes * 60.0 * 1'000'000.0 / 47.0 / 2.0;
  // The longest time of such a run: fifteen digits and the point, from a stretched timer.
  db.csv_DataInput29(539999.123456789, 0x84, 8, kBytes, 0);
  Flush(1);
  const auto line = static_cast<double>(Records(u"001").size());
  EXPECT_EQ(line, 64.0);
  constexpr double kStrayZeros = 6.0;  // of channel 2, into channel 1
  EXPECT_GE(Excel_OutputDB::kLogBuilder_MAX, kLinesPerChannel * (line + kStrayZeros));
  EXPECT_EQ(Excel_OutputDB::kLogBuilder_MAX, sizeof(void*) == 8 ? 402'653'184U : 100'663'296U);
}

TEST_F(CsvFault, FlushesThatFailForHoursStopAtTheBoundWithAWholeLine) {
  files.Protect(u"C:\\Tolvane", true);
  db.LogBuilder_MAX = kBound;
  // 49 characters a line, and half of the lines in each channel: well past the bound.
  for (std::int32_t i = 0; i < 8 * 20001 + 5; ++i) {
    db.csv_DataInput(1.0, 0x100, 8, kBytes);
    RollOver();
  }
  EXPECT_EQ(db.Excel_DB_ArayyCounter, 5) << "lost records count too";
  EXPECT_EQ(db.Excel_DB_ArayyCh, 1);
  files.Protect(u"C:\\Tolvane", false);
  Flush(1);
  Flush(2);
  const std::string line = "         1 , 100 , 8 ,  00,1A,FF,03,44,55,66,77\r\n";
  for (const StringView number : {u"001", u"002"}) {
    const std::string kept = Records(number);
    EXPECT_EQ(kept.size() % line.size(), 0U);
    EXPECT_TRUE(kept.ends_with(line));
    EXPECT_GT(kept.size() + 2 * 96, kBound);
    EXPECT_LE(kept.size(), kBound);
  }

  db.csv_DataInput(2.0, 0x100, 0, kBytes);
  Flush(1);
  EXPECT_TRUE(SameBytes(Records(u"003"), second)) << "after a good flush all is as before";
}

TEST_F(CsvFault, StrayZerosOfTheOtherChannelFillAChannelUpToTheBoundAndNoFurther) {
  db.LogBuilder_MAX = kBound;
  db.Excel_DB_ArayyCh = 2;
  for (std::size_t i = 0; i < kBound / 7 + 1000; ++i) {
    db.csv_DataInput29(0.0, 1, 0, kBytes, 1);
    if (i % 20001 == 0) db.csv_DB_Initialize(2, device);
  }
  Flush(1);
  const std::string zeros = Records(u"001");
  EXPECT_GT(zeros.size() + 2 * 96, kBound);
  EXPECT_LE(zeros.size(), kBound);
  EXPECT_EQ(zeros.find_first_not_of('0'), std::string::npos);
}

TEST_F(CsvFault, WhatSeveralFlushesLeftComesInItsOrder) {
  files.Protect(u"C:\\Tolvane", true);
  db.csv_DataInput29(1.0, 0x1234567, 0, kBytes, 1);
  RollOverNow();
  db.csv_DataInput29(2.0, 0x1, 0, kBytes, 1);
  RollOverNow();
  db.csv_DataInput29(3.0, 0x1234567, 0, kBytes, 1);
  Flush(1);
  Flush(1);
  db.csv_DataInput29(4.0, 0x1234567, 0, kBytes, 1);
  files.Protect(u"C:\\Tolvane", false);
  Flush(1);
  EXPECT_TRUE(SameBytes(Records(u"001"),
                        "         1 , * , 01234567 , 0\r\n"
                        "0000000"
                        "         3 , * , 01234567 , 0\r\n"
                        "         4 , * , 01234567 , 0\r\n"));
  Flush(2);
  EXPECT_TRUE(SameBytes(Records(u"002"), "         2 , * , 1 , 0\r\n"));
}

TEST_F(CsvFault, ANewRunBeginsWithoutWhatTheLastOneCouldNotWrite) {
  files.Protect(u"C:\\Tolvane", true);
  db.csv_DataInput(1.0, 0x100, 0, kBytes);
  Flush(1);
  files.Protect(u"C:\\Tolvane", false);
  StartRun();
  db.csv_DataInput(2.0, 0x100, 0, kBytes);
  Flush(1);
  EXPECT_TRUE(SameBytes(Records(u"001"), second));
}

TEST_F(CsvFault, AnUnknownFormatFlushesNothingAndKeepsTheLines) {
  device.t_LogSaveFormat = 3;
  db.csv_DataInput(1.0, 0x100, 0, kBytes);
  Flush(1);
  EXPECT_TRUE(files.Files(u"C:\\Tolvane").empty());
  EXPECT_EQ(FileName_No, u"001") << "the name is searched all the same";
  device.t_LogSaveFormat = kLogFormatCsv;
  Flush(1);
  EXPECT_TRUE(LogBytes(u"001").ends_with(first));
}

}  // namespace
}  // namespace tolvane
