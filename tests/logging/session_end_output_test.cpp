// What a log leaves when the session is ended while it is written: also the records that an earlier
// flush could not bring to the disk.
#include <gtest/gtest.h>

#include "tests/helpers/expect_bytes.h"
#include "tests/logging/log_test.h"

namespace tolvane {
namespace {

/// The same records go the way of a csv log and that of a spreadsheet log.
class SessionEndOutput : public LogTest, public testing::WithParamInterface<std::int32_t> {
 protected:
  void Begin(std::int32_t t_msgID_type) {
    device.t_LogSaveFormat = GetParam();
    device.ExcelInstallCheck = 1;
    device.t_msgID_type = t_msgID_type;
    StartRun();
  }
  void Record11(double now_time, std::int32_t can_ID) {
    if (GetParam() == kLogFormatCsv) {
      db.csv_DataInput(now_time, can_ID, 2, kBytes);
    } else {
      db.Excel_DataInput(now_time, can_ID, 2, kBytes, 0);
    }
  }
  /// The current channel is full, and nothing can be written.
  void FailToFlush() {
    files.Protect(u"C:\\Tolvane", true);
    RollOverNow();
    files.Protect(u"C:\\Tolvane", false);
  }
  void EndSession() { db.Session_End_Output(device, FileName_Date, FileName_No, FolderName); }
  std::size_t FileCount() { return files.Files(u"C:\\Tolvane").size(); }

  const std::string head11_ = kHead + kColumns11;
};

INSTANTIATE_TEST_SUITE_P(Formats, SessionEndOutput,
                         testing::Values(kLogFormatCsv, kLogFormatSpreadsheet),
                         [](const auto& format) {
                           return std::string(format.param == kLogFormatCsv ? "Csv"
                                                                            : "Spreadsheet");
                         });

TEST_P(SessionEndOutput, RecordsOfAFailedFlushComeAheadOfTheCurrentOnes) {
  Begin(0);
  Record11(1.5, 0x00F);
  Record11(2.0, 0x100);
  FailToFlush();
  Record11(3.0, 0x7FF);
  EndSession();
  EXPECT_TRUE(SameBytes(LogBytes(u"001"), head11_ + "       1.5 , 00F , 2 ,  00,1A\r\n"
                                                    "         2 , 100 , 2 ,  00,1A\r\n"));
  EXPECT_TRUE(SameBytes(LogBytes(u"002"), head11_ + "         3 , 7FF , 2 ,  00,1A\r\n"));
  EXPECT_EQ(FileCount(), 2U);
}

TEST_P(SessionEndOutput, ATimeIsFilledUpToTenCharactersAndALongerOneStays) {
  Begin(0);
  Record11(12345678.5, 0x100);
  Record11(1234567.25, 0x100);
  Record11(12345678.25, 0x100);
  EndSession();
  EXPECT_TRUE(SameBytes(LogBytes(u"001"), head11_ + "12345678.5 , 100 , 2 ,  00,1A\r\n"
                                                    "1234567.25 , 100 , 2 ,  00,1A\r\n"
                                                    "12345678.25 , 100 , 2 ,  00,1A\r\n"));
}

TEST_P(SessionEndOutput, BehindEightBytesTheNextLineBegins) {
  Begin(0);
  for (const double now_time : {1.0, 2.0}) {
    if (GetParam() == kLogFormatCsv) {
      db.csv_DataInput(now_time, 0x100, 8, kBytes);
    } else {
      db.Excel_DataInput(now_time, 0x100, 8, kBytes, 0);
    }
  }
  EndSession();
  EXPECT_TRUE(
      SameBytes(LogBytes(u"001"), head11_ + "         1 , 100 , 8 ,  00,1A,FF,03,44,55,66,77\r\n"
                                            "         2 , 100 , 8 ,  00,1A,FF,03,44,55,66,77\r\n"));
}

TEST_P(SessionEndOutput, RecordsOfTheSecondChannelAreNotLostEither) {
  Begin(0);
  db.Excel_DB_ArayyCh = 2;
  Record11(1.0, 0x100);
  FailToFlush();
  EndSession();
  EXPECT_TRUE(SameBytes(LogBytes(u"001"), head11_ + "         1 , 100 , 2 ,  00,1A\r\n"));
  EXPECT_TRUE(SameBytes(LogBytes(u"002"), head11_)) << "the current channel, though it is empty";
  EXPECT_EQ(FileCount(), 2U);
}

TEST_P(SessionEndOutput, NewRecordsOfAChannelComeBehindThoseThatAFlushLeftInIt) {
  Begin(0);
  Record11(1.0, 0x001);
  Record11(2.0, 0x002);
  Record11(3.0, 0x003);
  Record11(4.0, 0x004);
  FailToFlush();
  Record11(5.0, 0x005);
  FailToFlush();
  Record11(6.0, 0x006);
  Record11(7.0, 0x007);
  EndSession();
  EXPECT_TRUE(SameBytes(LogBytes(u"001"), head11_ + "         5 , 005 , 2 ,  00,1A\r\n"));
  // The new rows of a table have replaced the first of the old ones.
  const std::string first = GetParam() == kLogFormatCsv ? "         1 , 001 , 2 ,  00,1A\r\n"
                                                          "         2 , 002 , 2 ,  00,1A\r\n"
                                                        : "";
  EXPECT_TRUE(SameBytes(LogBytes(u"002"), head11_ + first +
                                              "         3 , 003 , 2 ,  00,1A\r\n"
                                              "         4 , 004 , 2 ,  00,1A\r\n"
                                              "         6 , 006 , 2 ,  00,1A\r\n"
                                              "         7 , 007 , 2 ,  00,1A\r\n"));
  EXPECT_EQ(FileCount(), 2U);
}

TEST_P(SessionEndOutput, AChannelThatWasWrittenIsNotWrittenAgain) {
  Begin(0);
  Record11(1.0, 0x100);
  servers.Register(u"Excel.Application");
  const auto objExcel = servers.CreateObject(u"Excel.Application");
  RollOverNow(objExcel.get());
  files.Remove(u"C:\\Tolvane\\KL26112009-001.csv");
  Record11(2.0, 0x200);
  EndSession();
  EXPECT_TRUE(SameBytes(LogBytes(u"001"), head11_ + "         2 , 200 , 2 ,  00,1A\r\n"));
  EXPECT_EQ(FileCount(), 1U);
}

TEST_P(SessionEndOutput, ARunOfOneChannelLeavesOneFile) {
  Begin(0);
  Record11(1.0, 0x100);
  EndSession();
  EXPECT_TRUE(SameBytes(LogBytes(u"001"), head11_ + "         1 , 100 , 2 ,  00,1A\r\n"));
  EXPECT_EQ(FileCount(), 1U);
}

class SessionEndOutput29 : public LogTest {
 protected:
  SessionEndOutput29() {
    device.t_msgID_type = kMsgIdType29Bit;
    StartRun();
  }
  void EndSession() { db.Session_End_Output(device, FileName_Date, FileName_No, FolderName); }
};

TEST_F(SessionEndOutput29, StrayZerosAloneMakeNoFile) {
  db.Excel_DB_ArayyCh = 2;
  db.csv_DataInput29(1.0, 1, 0, kBytes, 1);
  EndSession();
  EXPECT_TRUE(SameBytes(LogBytes(u"001"), kHead + kColumns29 + "         1 , * , 1 , 0\r\n"));
  EXPECT_EQ(files.Files(u"C:\\Tolvane").size(), 1U);
}

TEST_F(SessionEndOutput29, StrayZerosBehindALineThatAFlushCouldNotWriteComeWithIt) {
  db.csv_DataInput29(1.0, 1, 0, kBytes, 0);
  files.Protect(u"C:\\Tolvane", true);
  Flush(1);
  files.Protect(u"C:\\Tolvane", false);
  db.Excel_DB_ArayyCh = 2;
  db.csv_DataInput29(2.0, 1, 0, kBytes, 1);
  EndSession();
  EXPECT_TRUE(SameBytes(LogBytes(u"001"),
                        kHead + kColumns29 + "         1 ,   , 00000001 , 0\r\n" + "0000000"));
  EXPECT_TRUE(SameBytes(LogBytes(u"002"), kHead + kColumns29 + "         2 , * , 1 , 0\r\n"));
}

}  // namespace
}  // namespace tolvane
