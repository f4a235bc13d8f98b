#include "logging/log_naming.h"

#include <gtest/gtest.h>

#include "platform/utf8.h"
#include "tests/logging/log_test.h"

namespace tolvane {
namespace {

TEST(FileNumberText, HasThreeDigitsAndFourAt1000) {
  EXPECT_EQ(FileNumberText(1).View(), u"001");
  EXPECT_EQ(FileNumberText(9).View(), u"009");
  EXPECT_EQ(FileNumberText(10).View(), u"010");
  EXPECT_EQ(FileNumberText(99).View(), u"099");
  EXPECT_EQ(FileNumberText(100).View(), u"100");
  EXPECT_EQ(FileNumberText(999).View(), u"999");
  EXPECT_EQ(FileNumberText(1000).View(), u"1000");
}

TEST(DateHourText, HasTwoDigitsEach) {
  EXPECT_EQ(DateHourText({2026, 11, 20, 5, 23, 59, 59}).View(), u"26112023");
  EXPECT_EQ(DateHourText({2005, 1, 2, 0, 3, 4, 5}).View(), u"05010203");
  EXPECT_EQ(DateHourText({2100, 1, 2, 0, 0, 0, 0}).View(), u"00010200");
}

class BaseFolderTest : public LogTest {
 protected:
  String Base(std::int32_t mode, String& path) {
    return BaseFolder(mode, path, device.ExecutableFolder(), files, folders);
  }
};

TEST_F(BaseFolderTest, ModesLeadToProgramDesktopAndNamedFolder) {
  files.AddFolder(u"E:\\Logs");
  String path = u"E:\\Logs";
  EXPECT_EQ(Base(0, path), u"C:\\Tolvane");
  EXPECT_EQ(Base(1, path), u"D:\\Desktop");
  EXPECT_EQ(Base(2, path), u"E:\\Logs");
  EXPECT_EQ(Base(3, path), u"");
  EXPECT_EQ(Base(-1, path), u"");
  EXPECT_EQ(path, u"E:\\Logs");
}

TEST_F(BaseFolderTest, MissingNamedFolderOverwritesTheSettingWithTheDesktop) {
  String path = u"E:\\Gone";
  EXPECT_EQ(Base(0, path), u"C:\\Tolvane");
  EXPECT_EQ(path, u"E:\\Gone") << "other modes leave it alone";
  EXPECT_EQ(Base(2, path), u"D:\\Desktop");
  EXPECT_EQ(path, u"D:\\Desktop");
  path.clear();
  EXPECT_EQ(Base(2, path), u"D:\\Desktop");
  EXPECT_EQ(path, u"D:\\Desktop");
}

// Windows finds such a folder, and within it no file.
TEST_F(BaseFolderTest, BlanksAndPeriodsAtTheEndOfASetPathLeadToTheFolderThatIsThere) {
  files.AddFolder(u"E:\\Logs");
  for (const StringView end : {u" ", u"  ", u".", u"..", u". .", u"\\...", u"\\ "}) {
    String path = String(u"E:\\Logs").append(end);
    const String set = path;
    const String base = Base(2, path);
    EXPECT_EQ(path, set) << "the setting stays as it was typed";
    EXPECT_NE(files.CreateTextFile(base + u"\\a.csv", true, false), nullptr) << ToUtf8(set);
    EXPECT_TRUE(files.FileExists(u"E:\\Logs\\a.csv")) << ToUtf8(set);
    files.Remove(u"E:\\Logs\\a.csv");
  }
}

TEST_F(BaseFolderTest, PathsThatMeanTheFolderAboveKeepTheirMeaning) {
  files.AddFolder(u"E:\\Logs\\deep");
  for (const StringView set : {u"E:\\Logs\\deep\\..", u"E:\\Logs\\.", u"E:/Logs/deep/.."}) {
    String path(set);
    EXPECT_NE(files.CreateTextFile(Base(2, path) + u"\\a.csv", true, false), nullptr);
    EXPECT_TRUE(files.FileExists(u"E:\\Logs\\a.csv")) << ToUtf8(set);
    files.Remove(u"E:\\Logs\\a.csv");
  }
}

TEST(PathOfFolder, OfADrivesCurrentFolderIsKept) { EXPECT_EQ(PathOfFolder(u"E:."), u"E:."); }

class LogNaming : public LogTest {
 protected:
  void AddLogs(std::int32_t first, std::int32_t last) {
    for (std::int32_t number = first; number <= last; ++number) {
      String path = u"C:\\Tolvane\\KL26112009-";
      files.AddFile(path.append(FileNumberText(number)).append(u".csv"), "old");
    }
  }
};

TEST_F(LogNaming, FlushesOfOneHourCountUpAndTheNextHourStartsAgain) {
  Flush(1);
  EXPECT_EQ(FileName_Date, u"26112009");
  EXPECT_EQ(FileName_No, u"001");
  Flush(2);
  EXPECT_EQ(FileName_No, u"002");
  wall_clock.Set({2026, 11, 20, 5, 10, 0, 0});
  Flush(1);
  EXPECT_EQ(FileName_Date, u"26112010");
  EXPECT_EQ(FileName_No, u"001");
  EXPECT_EQ(files.Files(u"C:\\Tolvane"), (std::vector<String>{u"C:\\Tolvane\\KL26112009-001.csv",
                                                              u"C:\\Tolvane\\KL26112009-002.csv",
                                                              u"C:\\Tolvane\\KL26112010-001.csv"}));
}

TEST_F(LogNaming, DeletedFileOfThisHourGetsItsNumberAgain) {
  Flush(1);
  Flush(2);
  files.Remove(u"C:\\Tolvane\\KL26112009-002.csv");
  Flush(1);
  EXPECT_EQ(FileName_No, u"002");
  files.Remove(u"C:\\Tolvane\\KL26112009-001.csv");
  Flush(2);
  EXPECT_EQ(FileName_No, u"003") << "the search starts at the last number";
}

TEST_F(LogNaming, YieldsOncePerTakenName) {
  AddLogs(1, 12);
  Flush(1);
  EXPECT_EQ(FileName_No, u"013");
  EXPECT_EQ(events.Yields(), 12);
}

/// Counts how often it is asked for a single file, and how often for all of a folder.
class AskedFiles final : public platform::memory::FileSystem {
 public:
  using FileSystem::FileSystem;
  bool FileExists(StringView path) override {
    ++asked;
    return FileSystem::FileExists(path);
  }
  std::vector<String> FileNames(StringView stem) override {
    ++looked;
    return FileSystem::FileNames(stem);
  }

  int asked = 0;
  int looked = 0;
};

TEST_F(LogNaming, ASearchBehindHundredsOfTakenNamesLooksIntoTheFolderOnce) {
  AskedFiles disk(code_page);
  disk.AddFolder(u"C:\\Logs");
  const String stem = u"C:\\Logs\\KL26112009-";
  for (std::int32_t number = 1; number <= 699; ++number) {
    // On a disk capitals do not tell names apart.
    String path = number % 2 == 0 ? stem : u"c:\\logs\\kl26112009-";
    disk.AddFile(path.append(FileNumberText(number)).append(u".CSV"), "");
  }
  // None of these is number 700.
  for (const StringView end :
       {u"0700.csv", u"700.csv.bak", u"700.xls", u"7000.csv", u".csv", u""}) {
    disk.AddFile(stem + String(end), "");
  }
  disk.AddFile(u"C:\\Logs\\KL26112010-700.csv", "");
  disk.AddFolder(stem + u"700.csv");
  const NumberedPath found = FindFreePath(disk, stem, u".csv", 1, &events);
  EXPECT_EQ(found.number, 700);
  EXPECT_EQ(found.path, u"C:\\Logs\\KL26112009-700.csv");
  EXPECT_EQ(events.Yields(), 699);
  EXPECT_LT(disk.asked, 20);
  EXPECT_EQ(disk.looked, 1);
}

TEST_F(LogNaming, ASearchBehindAFewTakenNamesDoesNotLookIntoTheFolder) {
  AskedFiles disk(code_page);
  const String stem = u"C:\\Logs\\KL26112009-";
  for (std::int32_t number = 1; number <= 7; ++number) {
    disk.AddFile(stem + String(FileNumberText(number).View()) + u".csv", "");
  }
  EXPECT_EQ(FindFreePath(disk, stem, u".csv", 1, &events).number, 8);
  EXPECT_EQ(disk.looked, 0);
}

TEST_F(LogNaming, AFileThatComesDuringTheSearchIsTakenToo) {
  AddLogs(1, 20);
  events.OnYield([this] {
    if (events.Yields() == 15) AddLogs(21, 22);
  });
  Flush(1);
  EXPECT_EQ(FileName_No, u"023");
}

TEST_F(LogNaming, NumberOneThousandIsOverwrittenFromThenOn) {
  AddLogs(1, 999);
  Flush(1);
  EXPECT_EQ(FileName_No, u"1000");
  const std::string written = LogBytes(u"1000");
  db.csv_DataInput(1.0, 0x100, 0, kBytes);
  Flush(1);
  EXPECT_EQ(FileName_No, u"1000");
  EXPECT_EQ(LogBytes(u"1000"), written + "         1 , 100 , 0\r\n");
  EXPECT_EQ(LogBytes(u"999"), "old");
}

TEST_F(LogNaming, BehindNumberOneThousandALowerOneThatBecomesFreeStaysFree) {
  AddLogs(1, 999);
  Flush(1);
  files.Remove(u"C:\\Tolvane\\KL26112009-003.csv");
  Flush(1);
  EXPECT_EQ(FileName_No, u"1000");
  EXPECT_EQ(LogBytes(u"003"), "");
}

TEST_F(LogNaming, FolderOfTheRunIsUsedWhileItStands) {
  device.t_LogSave_subFolder = 1;
  FolderName = u"bench";
  files.AddFolder(u"C:\\Tolvane\\bench");
  Flush(1);
  files.Remove(u"C:\\Tolvane\\bench");
  Flush(2);
  EXPECT_EQ(files.Files(u"C:\\Tolvane"), (std::vector<String>{u"C:\\Tolvane\\KL26112009-001.csv"}))
      << "the removed folder took the first file along, and its name was free again in the base";
}

TEST_F(LogNaming, FolderOfTheRunIsIgnoredUnlessTheSettingIsOne) {
  FolderName = u"bench";
  files.AddFolder(u"C:\\Tolvane\\bench");
  for (const std::int32_t setting : {0, 2, -1}) {
    device.t_LogSave_subFolder = setting;
    Flush(1);
  }
  device.t_LogSave_subFolder = 1;
  FolderName.clear();
  Flush(1);
  EXPECT_EQ(files.Files(u"C:\\Tolvane").size(), 4U);
  EXPECT_TRUE(files.Files(u"C:\\Tolvane\\bench").empty());
}

TEST_F(LogNaming, MissingNamedFolderSendsLogsToTheDesktopAndChangesTheSetting) {
  device.t_LogSaveFilePath_mode = 2;
  device.t_LogSaveFilePath = u"E:\\Gone";
  Flush(1);
  EXPECT_EQ(device.t_LogSaveFilePath, u"D:\\Desktop");
  EXPECT_TRUE(files.FileExists(u"D:\\Desktop\\KL26112009-001.csv"));
}

TEST_F(LogNaming, AnUnknownFolderModeHasNoFolder) {
  device.t_LogSaveFilePath_mode = 7;
  Flush(1);
  EXPECT_TRUE(files.Files(u"C:\\Tolvane").empty()) << "there is no folder of an empty name here";
}

TEST_F(LogNaming, ExtensionFollowsFormatAndVersion) {
  struct Row {
    std::int32_t format;
    std::int32_t version;
    std::int32_t excel_format;
    StringView extension;
  };
  const Row rows[] = {{1, 0, 1, u".xls"},  {1, 11, 2, u".xls"},  {1, 11, 3, u".xls"},
                      {1, 12, 1, u".xls"}, {1, 12, 2, u".xlsx"}, {1, 16, 2, u".xlsx"},
                      {1, 12, 0, u""},     {1, 12, 3, u""},      {2, 16, 2, u".csv"},
                      {3, 16, 2, u""}};
  for (const Row& row : rows) {
    device.t_LogSaveFormat = row.format;
    device.ExcelInstallVersion = row.version;
    device.t_Excel_Format = row.excel_format;
    // Taken by the name that the flush must look for, so that it goes on to the second number.
    String taken = u"C:\\Tolvane\\KL26112009-001";
    files.AddFile(taken.append(row.extension), "");
    FileName_Date.clear();
    Flush(1);
    EXPECT_EQ(FileName_No, u"002") << row.format << ' ' << row.version << ' ' << row.excel_format;
    for (const String& path : files.Files(u"C:\\Tolvane")) files.Remove(path);
  }
}

TEST_F(LogNaming, TheSearchStartsAtTheLastNumberOfTheHour) {
  for (const StringView text : {u"009", u"010", u"087", u"120", u"999"}) {
    FileName_Date = u"26112009";
    FileName_No = text;
    Flush(1);
    EXPECT_EQ(FileName_No, text) << "its file is gone, so it is free";
    files.Remove(u"C:\\Tolvane\\KL26112009-" + String(text) + u".csv");
  }
}

TEST_F(LogNaming, AStrangeNumberTextStartsAtOne) {
  for (const StringView text : {u"x", u"-1", u"1001", u"99999999999999999999"}) {
    FileName_Date = u"26112009";
    FileName_No = text;
    Flush(1);
    EXPECT_EQ(FileName_No, u"001");
    files.Remove(u"C:\\Tolvane\\KL26112009-001.csv");
  }
}

}  // namespace
}  // namespace tolvane
