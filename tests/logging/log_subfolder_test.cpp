#include <gtest/gtest.h>

#include <algorithm>

#include "logging/log_naming.h"
#include "platform/utf8.h"
#include "tests/logging/log_test.h"

namespace tolvane {
namespace {

class LogSubfolder : public LogTest {
 protected:
  LogSubfolder() { device.t_LogComment = u"bench"; }

  bool Decide() { return db.Get_SubFolder_Name(device, FolderName); }

  /// Files that lie in the base itself.
  std::size_t FilesInBase() {
    const auto all = files.Files(u"C:\\Tolvane");
    return static_cast<std::size_t>(std::ranges::count_if(all, [](const String& path) {
      return path.rfind(u'\\') == StringView(u"C:\\Tolvane").size();
    }));
  }

  /// bench and bench-002 to the folder of count `last`.
  void AddNumberedFolders(std::int32_t last) {
    files.AddFolder(u"C:\\Tolvane\\bench");
    for (std::int32_t count = 2; count <= last; ++count) {
      ASSERT_TRUE(Decide());
      ASSERT_TRUE(files.FolderExists(u"C:\\Tolvane\\" + FolderName)) << count;
    }
  }
};

TEST_F(LogSubfolder, FirstRunGetsTheCommentAndLaterOnesANumberBehindIt) {
  for (const StringView name : {u"bench", u"bench-002", u"bench-003"}) {
    ASSERT_TRUE(Decide());
    EXPECT_EQ(FolderName, name);
    EXPECT_TRUE(files.FolderExists(u"C:\\Tolvane\\" + FolderName));
  }
}

TEST_F(LogSubfolder, CharactersThatNoFolderMayHaveBecomeWide) {
  device.t_LogComment = u"a\r\nb\rc\nd\te\\f/g:h*i?j\"k<l>m|n";
  ASSERT_TRUE(Decide());
  EXPECT_EQ(FolderName,
            u"abcd\u3000\u3000e\uFFE5f\uFF0Fg\uFF1Ah\uFF0Ai\uFF1Fj k\uFF1Cl\uFF1Em"
            u"\uFF5Cn");
}

// Windows drops blanks and periods at the end of a path, and not within it.
TEST_F(LogSubfolder, TheFolderThatIsMadeIsTheOneThatTakesTheFiles) {
  device.t_LogSave_subFolder = 1;
  const StringView comments[] = {u"quoted \"bench\"",
                                 u"bench.",
                                 u"bench..",
                                 u"bench \" .\"",
                                 u"...",
                                 u".",
                                 u"..",
                                 u"\"",
                                 u"\"."};
  for (const StringView comment : comments) {
    device.t_LogComment = comment;
    for (int run = 0; run < 3; ++run) {
      const std::size_t files_in_base = FilesInBase();
      ASSERT_TRUE(Decide()) << ToUtf8(comment);
      StartRun();
      db.csv_DataInput(1.0, 0x100, 0, kBytes);
      const std::size_t files_before = files.Files(u"C:\\Tolvane").size();
      Flush(1);
      EXPECT_EQ(files.Files(u"C:\\Tolvane").size(), files_before + 1)
          << "a lost file: " << ToUtf8(comment) << " " << run;
      EXPECT_EQ(FilesInBase(), files_in_base) << "a file outside of its folder";
    }
  }
}

TEST_F(LogSubfolder, ANameThatTheSystemKeepsForADeviceIsAFailure) {
  for (const StringView comment : {u"NUL", u"con", u"COM1.csv", u"aux.\""}) {
    device.t_LogComment = comment;
    EXPECT_FALSE(Decide()) << ToUtf8(comment);
    EXPECT_EQ(FolderName, u"");
  }
}

TEST_F(LogSubfolder, CountsBelow100AreThreeDigits) {
  AddNumberedFolders(99);
  EXPECT_EQ(FolderName, u"bench-099");
  EXPECT_TRUE(files.FolderExists(u"C:\\Tolvane\\bench-009"));
  EXPECT_TRUE(files.FolderExists(u"C:\\Tolvane\\bench-010"));
}

TEST_F(LogSubfolder, From100OnEachCountIsPutBehindTheSuffixSoFar) {
  AddNumberedFolders(102);
  EXPECT_TRUE(files.FolderExists(u"C:\\Tolvane\\bench-099100"));
  EXPECT_TRUE(files.FolderExists(u"C:\\Tolvane\\bench-099100101"));
  EXPECT_EQ(FolderName, u"bench-099100101102");
  EXPECT_FALSE(files.FolderExists(u"C:\\Tolvane\\bench-100"));
}

TEST_F(LogSubfolder, ASuffixThatGrewTooLongIsAFailureThatLeavesTheNameAsItWas) {
  AddNumberedFolders(99);
  bool made = true;
  std::int32_t count = 99;
  while (made && count < 1000) {
    made = Decide();
    ++count;
  }
  EXPECT_FALSE(made);
  EXPECT_GT(FolderName.size(), 200U);
  EXPECT_TRUE(files.FolderExists(u"C:\\Tolvane\\" + FolderName));
}

// A file's path has 259 characters at most, and the longest name of a log 20 and the backslash.
TEST_F(LogSubfolder, AFolderWithoutRoomForTheLongestFileNameCannotBeMade) {
  const String base = u"E:\\" + String(197, u'b');
  files.AddFolder(base);
  device.t_LogSaveFilePath_mode = 2;
  device.t_LogSaveFilePath = base;
  device.t_LogSave_subFolder = 1;
  for (std::size_t length = 239; length <= 247; ++length) {
    device.t_LogComment = String(length - base.size() - 1, u'c');
    EXPECT_FALSE(Decide()) << length;
    EXPECT_EQ(FolderName, u"") << length;
    EXPECT_FALSE(files.FolderExists(base + u'\\' + device.t_LogComment)) << length;
  }
  device.t_LogComment = String(238 - base.size() - 1, u'c');
  ASSERT_TRUE(Decide());
  String longest = base;
  longest += u'\\' + FolderName + u"\\KL26112009-1000.xlsx";
  EXPECT_EQ(longest.size(), 259U);
  EXPECT_NE(files.CreateTextFile(longest, true, false), nullptr);
}

TEST_F(LogSubfolder, NoMoreCanANumberedFolderWithoutThatRoom) {
  const String base = u"E:\\" + String(197, u'b');
  device.t_LogSaveFilePath_mode = 2;
  device.t_LogSaveFilePath = base;
  device.t_LogComment = String(33, u'c');  // 234 characters, and 238 with the number
  files.AddFolder(base + u'\\' + device.t_LogComment);
  EXPECT_TRUE(Decide());
  EXPECT_EQ(FolderName, device.t_LogComment + u"-002");
  device.t_LogComment += u'c';
  files.AddFolder(base + u'\\' + device.t_LogComment);
  EXPECT_FALSE(Decide());
  EXPECT_FALSE(files.FolderExists(base + u'\\' + device.t_LogComment + u"-002"));
}

/// Runs that a spreadsheet server logs. Excel saves to paths of 218 characters at most.
class WorkbookSubfolder : public LogSubfolder {
 protected:
  WorkbookSubfolder() {
    device.t_LogSave_Enable = 1;
    device.t_LogSaveFormat = kLogFormatSpreadsheet;
    device.ExcelInstallCheck = 1;
    device.t_LogSaveFilePath_mode = 2;
  }

  /// False when the run cannot begin; then there is no folder.
  bool DecideIn(StringView base, StringView comment) {
    files.AddFolder(base);
    device.t_LogSaveFilePath = base;
    device.t_LogComment = comment;
    FolderName.clear();
    const bool made = Decide();
    EXPECT_EQ(FolderName.empty(), !made);
    EXPECT_EQ(files.FolderExists(String(base) + u'\\' + device.t_LogComment), made);
    return made;
  }
};

TEST_F(WorkbookSubfolder, OneWithoutRoomForTheLongestNameOfAWorkbookCannotBeMade) {
  const String base = u"E:\\" + String(160, u'b');
  EXPECT_FALSE(DecideIn(base, String(198 - base.size() - 1, u'c')));
  EXPECT_TRUE(DecideIn(base, String(197 - base.size() - 1, u'd')));
  EXPECT_EQ((base + u'\\' + FolderName + u"\\KL26112009-1000.xlsx").size(), 218U);
  device.t_LogComment = String(194 - base.size() - 1, u'e');
  files.AddFolder(base + u'\\' + device.t_LogComment);
  EXPECT_FALSE(Decide()) << "198 characters with the number";
}

TEST_F(WorkbookSubfolder, OneWithinBracketsCannotBeMade) {
  EXPECT_FALSE(DecideIn(u"E:\\Logs", u"bench [1"));
  EXPECT_FALSE(DecideIn(u"E:\\Logs", u"bench 1]"));
  EXPECT_FALSE(DecideIn(u"E:\\Logs[1]", u"bench"));
  EXPECT_TRUE(DecideIn(u"E:\\Logs", u"bench ［1］")) << "wide ones are no matter";
  files.AddFolder(u"E:\\Logs\\bench [2]");
  device.t_LogComment = u"bench [2]";
  EXPECT_FALSE(Decide());
  EXPECT_FALSE(files.FolderExists(u"E:\\Logs\\bench [2]-002"));
}

TEST_F(WorkbookSubfolder, OneElsewhereThatTakesNoWorkbookMayHaveAnyPath) {
  for (const std::int32_t mode : {0, 1}) {
    device.t_LogSaveFilePath_mode = mode;
    const String path =
        u"E:\\Logs [" + String(200, u'b') + u"] " + String(FileNumberText(mode).View());
    EXPECT_TRUE(DecideIn(path, u"bench [1]")) << mode;
  }
  device.t_LogSaveFilePath_mode = 0;
  EXPECT_FALSE(DecideIn(u"C:\\Tolvane", u"bench [1]")) << "where the workbooks go";
}

TEST_F(WorkbookSubfolder, OneThatTakesTheLogUnderAnotherSpellingCannotBeMade) {
  device.t_LogSaveFilePath_mode = 0;
  device.t_LogSaveFilePath = u"c:\\TOLVANE";
  device.t_LogComment = u"bench [1]";
  EXPECT_FALSE(Decide());
  EXPECT_EQ(FolderName, u"");
}

TEST_F(LogSubfolder, OneElsewhereThatTakesNoLogMayBeAsLongAsAFolderCanBe) {
  const String path = u"E:\\" + String(235, u'b');
  files.AddFolder(path);
  device.t_LogSaveFilePath_mode = 0;
  device.t_LogSaveFilePath = path;
  device.t_LogComment = u"bench";
  EXPECT_TRUE(Decide());
  EXPECT_TRUE(files.FolderExists(path + u"\\bench")) << "244 characters";
}

TEST_F(WorkbookSubfolder, WithoutAServerTheyAreFoldersLikeOthers) {
  struct Row {
    std::int32_t t_LogSave_Enable;
    std::int32_t t_LogSaveFormat;
    StringView comment;
  };
  for (const Row& row :
       {Row{1, kLogFormatCsv, u"csv [1]"}, Row{0, kLogFormatSpreadsheet, u"no log [1]"}}) {
    device.t_LogSave_Enable = row.t_LogSave_Enable;
    device.t_LogSaveFormat = row.t_LogSaveFormat;
    EXPECT_TRUE(DecideIn(u"E:\\" + String(160, u'b'), String(row.comment) + String(40, u'c')));
  }
}

TEST_F(LogSubfolder, ASetPathThatEndsInBlanksAndPeriodsTakesTheFilesOfItsRuns) {
  files.AddFolder(u"E:\\Logs");
  device.t_LogSaveFilePath_mode = 2;
  device.t_LogSave_subFolder = 1;
  for (const StringView path : {u"E:\\Logs ", u"E:\\Logs..", u"E:\\Logs. "}) {
    device.t_LogSaveFilePath = path;
    ASSERT_TRUE(Decide()) << ToUtf8(path);
    StartRun();
    Flush(1);
    EXPECT_TRUE(files.FileExists(u"E:\\Logs\\" + FolderName + u"\\KL26112009-001.csv"))
        << ToUtf8(path);
  }
  EXPECT_EQ(FolderName, u"bench-003");
}

TEST_F(LogSubfolder, InModeOneTooTheSetPathMayEndInABlank) {
  files.AddFolder(u"E:\\Elsewhere");
  device.t_LogSaveFilePath_mode = 1;
  device.t_LogSaveFilePath = u"E:\\Elsewhere ";
  ASSERT_TRUE(Decide());
  EXPECT_TRUE(files.FolderExists(u"E:\\Elsewhere\\bench"));
}

/// A disk on which every folder exists, as one without limits on the length of paths might.
class FullDisk final : public platform::FileServices {
 public:
  bool FolderExists(StringView) override { return true; }
  bool FileExists(StringView) override { return true; }
  std::vector<String> FileNames(StringView) override { return {}; }
  bool CreateFolder(StringView) override {
    ++created;
    return false;
  }
  std::unique_ptr<platform::TextStream> CreateTextFile(StringView, bool, bool) override {
    return nullptr;
  }
  bool DeleteFile(StringView, bool) override { return false; }
  std::optional<platform::BinaryRead> ReadBinary(StringView, std::size_t) override { return {}; }
  bool WriteBinary(StringView, std::span<const std::byte>) override { return false; }
  std::optional<std::int32_t> Attributes(StringView) override { return 16; }

  std::int32_t created = 0;
};

TEST_F(LogSubfolder, AtCount1000TheLastNameIsUsedThoughItExists) {
  FullDisk disk;
  Excel_OutputDB log({events, disk, folders, wall_clock});
  ASSERT_TRUE(log.Get_SubFolder_Name(device, FolderName));
  EXPECT_TRUE(FolderName.starts_with(u"bench-099100101102"));
  EXPECT_TRUE(FolderName.ends_with(u"9989991000"));
  EXPECT_EQ(FolderName.size(), 6U + 3U + 900U * 3U + 4U);
  EXPECT_EQ(disk.created, 0);
}

TEST_F(LogSubfolder, ASetPathOfPeriodsAloneIsNoFolder) {
  FullDisk disk;
  String path = u" ..";
  EXPECT_EQ(BaseFolder(2, path, u"C:\\Tolvane", disk, folders), u"D:\\Desktop");
}

TEST_F(LogSubfolder, InModeZeroTheFolderIsMadeWhereTheSettingPoints) {
  files.AddFolder(u"E:\\Elsewhere");
  device.t_LogSaveFilePath = u"E:\\Elsewhere";
  device.t_LogSave_subFolder = 1;
  ASSERT_TRUE(Decide());
  EXPECT_EQ(FolderName, u"bench");
  EXPECT_TRUE(files.FolderExists(u"E:\\Elsewhere\\bench"));
  EXPECT_FALSE(files.FolderExists(u"C:\\Tolvane\\bench"));
  Flush(1);
  EXPECT_TRUE(files.FileExists(u"C:\\Tolvane\\KL26112009-001.csv")) << "the log stays in the base";
  EXPECT_FALSE(Decide()) << "the folder is there already, and cannot be made again";
  EXPECT_EQ(FolderName, u"bench");
}

TEST_F(LogSubfolder, NumberedFoldersAreMadeUnderTheBase) {
  files.AddFolder(u"E:\\Elsewhere");
  device.t_LogSaveFilePath = u"E:\\Elsewhere";
  files.AddFolder(u"C:\\Tolvane\\bench");
  ASSERT_TRUE(Decide());
  EXPECT_TRUE(files.FolderExists(u"C:\\Tolvane\\bench-002"));
}

TEST_F(LogSubfolder, WithoutABaseNothingHappens) {
  device.t_LogSaveFilePath_mode = 5;
  FolderName = u"kept";
  EXPECT_TRUE(Decide());
  EXPECT_EQ(FolderName, u"kept");
}

TEST_F(LogSubfolder, MissingNamedFolderIsReplacedByTheDesktop) {
  device.t_LogSaveFilePath_mode = 2;
  device.t_LogSaveFilePath = u"";
  ASSERT_TRUE(Decide());
  EXPECT_EQ(device.t_LogSaveFilePath, u"D:\\Desktop");
  EXPECT_TRUE(files.FolderExists(u"D:\\Desktop\\bench"));
}

TEST_F(LogSubfolder, CommentOfLineEndsOnlyGivesNamesThatBeginWithTheHyphen) {
  device.t_LogComment = u"\r\n\r\n";
  ASSERT_TRUE(Decide());
  EXPECT_EQ(FolderName, u"-002");
  EXPECT_TRUE(files.FolderExists(u"C:\\Tolvane\\-002"));
}

TEST_F(LogSubfolder, ReadOnlyBaseIsAFailure) {
  files.Protect(u"C:\\Tolvane", true);
  FolderName = u"kept";
  EXPECT_FALSE(Decide());
  EXPECT_EQ(FolderName, u"kept");
  files.AddFolder(u"C:\\Tolvane\\bench");
  EXPECT_FALSE(Decide()) << "the numbered folder cannot be made either";
  EXPECT_EQ(FolderName, u"kept");
}

}  // namespace
}  // namespace tolvane
