#include "platform/windows/system/file_services.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>

#include "platform/file_replacing.h"
#include "platform/windows/system/code_page.h"
#include "platform/windows/system/file_bytes.h"
#include "platform/windows/system/file_steps.h"
#include "tests/platform/windows/system/scratch_folder.h"

namespace tolvane::platform::windows {
namespace {

class Files : public testing::Test {
 protected:
  static std::span<const std::byte> Bytes(std::string_view text) {
    return std::as_bytes(std::span(text));
  }

  WindowsCodePage code_page_;
  WindowsFileServices files_{code_page_};
  ScratchFolder folder_;
};

TEST_F(Files, TellsFoldersFromFiles) {
  ASSERT_TRUE(folder_.Put(u"file.txt", "x"));
  EXPECT_TRUE(files_.FileExists(folder_ / u"file.txt"));
  EXPECT_FALSE(files_.FolderExists(folder_ / u"file.txt"));
  EXPECT_TRUE(files_.CreateFolder(folder_ / u"コメント"));
  EXPECT_TRUE(files_.FolderExists(folder_ / u"コメント"));
  EXPECT_FALSE(files_.FileExists(folder_ / u"コメント"));
  EXPECT_EQ(files_.Attributes(folder_ / u"コメント"), 16);
  EXPECT_FALSE(files_.CreateFolder(folder_ / u"コメント")) << "it exists already";
  EXPECT_FALSE(files_.CreateFolder(folder_ / u"a\\b")) << "one level only";
  EXPECT_FALSE(files_.FileExists(folder_ / u"nothing"));
  EXPECT_FALSE(files_.Attributes(folder_ / u"nothing").has_value());
}

TEST_F(Files, TellsAFolderWithAFurtherAttributeAsOne) {
  // Wine hides names with a dot; on a disk that keeps no attributes for it, nothing else can be
  // hidden.
  const String hidden = folder_ / u".hidden";
  ASSERT_TRUE(files_.CreateFolder(hidden));
  ASSERT_TRUE(SetFileAttributesW(Wide(hidden), FILE_ATTRIBUTE_HIDDEN));
  EXPECT_TRUE(files_.FolderExists(hidden));
  EXPECT_FALSE(files_.FileExists(hidden));
  EXPECT_EQ(files_.Attributes(hidden), 18);
}

TEST_F(Files, TellsTheNamesThatBeginAlikeInOneFolder) {
  ASSERT_TRUE(folder_.Put(u"KL1-002.csv", "x"));
  ASSERT_TRUE(folder_.Put(u"kl1-001.CSV", "x"));
  ASSERT_TRUE(folder_.Put(u"KL2-001.csv", "x"));
  ASSERT_TRUE(files_.CreateFolder(folder_ / u"KL1-below"));
  std::vector<String> names = files_.FileNames(folder_ / u"KL1-");
  std::ranges::sort(names);
  EXPECT_EQ(names, (std::vector<String>{u"KL1-002.csv", u"kl1-001.CSV"}));
  EXPECT_TRUE(files_.FileNames(folder_ / u"gone\\KL1-").empty());
}

TEST_F(Files, AreOnlyMissingWhereTheSystemSaysSo) {
  // Names that there cannot be, and places.
  for (const StringView path : {u"none\\a.txt", u"a?b.txt", u"a\\", u""}) {
    EXPECT_FALSE(files_.FileExists(folder_ / String(path)));
  }
  EXPECT_FALSE(files_.FileExists(folder_ / String(300, u'x')));
  EXPECT_FALSE(files_.FileExists(u"Q:\\a.txt"));
  EXPECT_FALSE(files_.FileExists(u""));
  for (const DWORD error : {ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_BAD_NETPATH}) {
    EXPECT_TRUE(MeansNoFile(error)) << error;
  }
  for (const DWORD error : {ERROR_ACCESS_DENIED, ERROR_NOT_ENOUGH_MEMORY, ERROR_SHARING_VIOLATION,
                            ERROR_UNEXP_NET_ERR, ERROR_NETNAME_DELETED, ERROR_SEM_TIMEOUT}) {
    EXPECT_FALSE(MeansNoFile(error)) << error;
  }
}

TEST_F(Files, TextGoesOutInTheCodePageWithoutChange) {
  const auto stream = files_.CreateTextFile(folder_ / u"KL.csv", true, false);
  ASSERT_NE(stream, nullptr);
  EXPECT_TRUE(stream->Write(u"a\r\n"));
  EXPECT_TRUE(stream->Write(u"\U0001F697"));
  EXPECT_TRUE(stream->WriteAscii("\\~\r\n"));
  EXPECT_TRUE(stream->Close());
  EXPECT_EQ(folder_.Content(u"KL.csv"), "a\r\n?\\~\r\n");
}

TEST_F(Files, OverwritingReplacesTheWholeFileAndIsRefusedOtherwise) {
  ASSERT_TRUE(folder_.Put(u"old.csv", "a long old text"));
  EXPECT_EQ(files_.CreateTextFile(folder_ / u"old.csv", false, false), nullptr);
  EXPECT_TRUE(files_.CreateTextFile(folder_ / u"old.csv", true, false)->Write(u"new"));
  EXPECT_EQ(folder_.Content(u"old.csv"), "new");
  EXPECT_EQ(files_.CreateTextFile(folder_ / u"none\\x.csv", true, false), nullptr);
}

TEST_F(Files, BinaryWritingKeepsWhatLiesBehind) {
  ASSERT_TRUE(files_.WriteBinary(folder_ / u"config.dat", Bytes("123456")));
  ASSERT_TRUE(files_.WriteBinary(folder_ / u"config.dat", Bytes("ab")));
  EXPECT_EQ(folder_.Content(u"config.dat"), "ab3456");
}

TEST_F(Files, BinaryReadingGivesAtMostTheWantedBytes) {
  ASSERT_TRUE(folder_.Put(u"config.dat", "123456"));
  const auto part = files_.ReadBinary(folder_ / u"config.dat", 4);
  ASSERT_TRUE(part.has_value());
  EXPECT_EQ(part->bytes.size(), 4U);
  EXPECT_TRUE(part->closed);
  EXPECT_EQ(files_.ReadBinary(folder_ / u"config.dat", 100)->bytes.size(), 6U);
  EXPECT_FALSE(files_.ReadBinary(folder_ / u"nothing", 4).has_value());
}

TEST_F(Files, AFileThatAnotherProgramHoldsIsRefusedWholly) {
  const String path = folder_ / u"held.dat";
  ASSERT_TRUE(folder_.Put(u"held.dat", "old"));
  {
    const FileHandle other(
        CreateFileW(Wide(path), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(other);
    EXPECT_EQ(files_.CreateTextFile(path, true, false), nullptr);
    EXPECT_FALSE(files_.ReadBinary(path, 3).has_value());
    EXPECT_FALSE(files_.WriteBinary(path, Bytes("new")));
    EXPECT_FALSE(files_.DeleteFile(path, true));
  }
  EXPECT_EQ(folder_.Content(u"held.dat"), "old");
}

TEST_F(Files, AReadOnlyFileIsDeletedByForceOnly) {
  ASSERT_TRUE(folder_.Put(u"kept.dat", "x"));
  SetFileAttributesW(Wide(folder_ / u"kept.dat"), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE);
  EXPECT_EQ(files_.Attributes(folder_ / u"kept.dat"), 1 + 32) << "every bit is told";
  EXPECT_FALSE(files_.DeleteFile(folder_ / u"kept.dat", false));
  EXPECT_TRUE(files_.DeleteFile(folder_ / u"kept.dat", true));
  EXPECT_FALSE(files_.FileExists(folder_ / u"kept.dat"));
  EXPECT_FALSE(files_.DeleteFile(folder_ / u"kept.dat", true));
}

// What the disk in memory takes from Windows.
TEST_F(Files, BlanksAndPeriodsAreDroppedAtTheEndOfAPathAndNotWithinIt) {
  EXPECT_TRUE(files_.CreateFolder(folder_ / u"bench ."));
  EXPECT_TRUE(files_.FolderExists(folder_ / u"bench"));
  EXPECT_TRUE(files_.FolderExists(folder_ / u"bench .. "));
  EXPECT_FALSE(files_.CreateFolder(folder_ / u"bench")) << "it exists";
  EXPECT_EQ(files_.CreateTextFile(folder_ / u"bench \\a.txt", true, false), nullptr);
  EXPECT_NE(files_.CreateTextFile(folder_ / u"bench.\\a.txt. ", true, false), nullptr);
  EXPECT_TRUE(files_.FileExists(folder_ / u"bench\\a.txt"));
  EXPECT_TRUE(files_.FolderExists(folder_ / u"...")) << "the folder itself";
  EXPECT_TRUE(files_.FolderExists(folder_ / u"bench\\..\\.\\bench"));
}

TEST_F(Files, ALongTextIsWrittenWholeWithItsPairsUntorn) {
  String text(5'000'000, u'a');
  for (std::size_t i = 0; i + 1 < text.size(); i += 3) {
    text[i] = u'\xD83D';
    text[i + 1] = u'\xDE97';
  }
  EXPECT_TRUE(files_.CreateTextFile(folder_ / u"long.csv", true, false)->Write(text));
  const std::string content = folder_.Content(u"long.csv");
  EXPECT_EQ(content.size(), 2 * 1'666'666U + 1);
  EXPECT_EQ(content.find("??"), std::string::npos);
}

/// Another program that reads a file, as scanners and indexers do. It does not hinder
/// writing into the file, but replacing and deleting it.
class Reader {
 public:
  explicit Reader(const String& path, DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE)
      : file_(CreateFileW(Wide(path), GENERIC_READ, sharing, nullptr, OPEN_EXISTING, 0, nullptr)) {
    EXPECT_TRUE(file_);
  }
  Reader(const Reader&) = delete;
  Reader& operator=(const Reader&) = delete;
  ~Reader() {
    if (thread_.joinable()) thread_.join();
  }
  void LetGoAfter(std::chrono::milliseconds time) {
    thread_ = std::thread([this, time] {
      std::this_thread::sleep_for(time);
      file_.Close();
    });
  }

 private:
  FileHandle file_;
  std::thread thread_;
};

class Replacing : public Files {
 protected:
  Replacing() {
    EXPECT_TRUE(folder_.Put(u"config.dat", "123456"));
    EXPECT_TRUE(folder_.Put(u"other.dat", ""));
  }
  void ExpectNothingBeside() {
    EXPECT_FALSE(files_.FileExists(folder_ / u"config.da~"));
    EXPECT_FALSE(files_.FileExists(folder_ / u"config.da!"));
  }

  const String path_ = folder_ / u"config.dat";
};

DWORD ErrorOfFlushing(const String& path) {
  const FileHandle file = OpenToWrite(path, OPEN_EXISTING);
  return file && !FlushFileBuffers(file.Get()) ? GetLastError() : ERROR_SUCCESS;
}

// The null device takes the place of a file system that cannot flush; Wine's own one reports
// success.
TEST(FileSteps, WhatCannotBeFlushedIsNoFailure) {
  String path = u"\\\\.\\NUL";
  if (ErrorOfFlushing(path) == ERROR_ACCESS_DENIED) path = u"Z:\\dev\\null";
  const DWORD error = ErrorOfFlushing(path);
  ASSERT_TRUE(error == ERROR_INVALID_FUNCTION || error == ERROR_INVALID_PARAMETER) << error;
  WindowsFileSteps steps;
  const FileSteps::Opened opened = steps.Open(path);
  ASSERT_EQ(opened.step, FileStep::kDone);
  EXPECT_EQ(opened.file->Flush(), FileStep::kDone);
}

TEST(FileSteps, OnlyAKnownFileSystemMovesWhole) {
  const ScratchFolder folder;
  WindowsFileSteps steps;
  std::array<wchar_t, MAX_PATH> root{};
  std::array<wchar_t, MAX_PATH> system{};
  ASSERT_TRUE(GetVolumePathNameW(Wide(folder / u"a.dat"), root.data(), MAX_PATH));
  ASSERT_TRUE(GetVolumeInformationW(root.data(), nullptr, 0, nullptr, nullptr, nullptr,
                                    system.data(), MAX_PATH));
  EXPECT_EQ(steps.MovesWhole(folder / u"a.dat"), std::wstring_view(system.data()) == L"NTFS");
  EXPECT_FALSE(steps.MovesWhole(u"\\\\?\\Volume{00000000-0000-0000-0000-000000000000}\\a.dat"));
}

TEST_F(Replacing, AFileThatIsReadForAMomentIsWaitedFor) {
  Reader reader(path_);
  ASSERT_FALSE(MoveFileExW(Wide(folder_ / u"other.dat"), Wide(path_), MOVEFILE_REPLACE_EXISTING))
      << "the reader is in nobody's way";
  reader.LetGoAfter(std::chrono::milliseconds(300));
  EXPECT_TRUE(files_.WriteBinary(path_, Bytes("ab")));
  EXPECT_EQ(folder_.Content(u"config.dat"), "ab3456");
  ExpectNothingBeside();
}

TEST_F(Replacing, AFileThatIsReadForLongIsWrittenInPlace) {
  const Reader reader(path_);
  EXPECT_TRUE(files_.WriteBinary(path_, Bytes("ab")));
  EXPECT_EQ(folder_.Content(u"config.dat"), "ab3456");
  WindowsFileSteps steps;
  EXPECT_TRUE(ReplaceWhole(steps, path_, Bytes("xyz")));
  EXPECT_EQ(folder_.Content(u"config.dat"), "xyz");
  ExpectNothingBeside();
}

TEST_F(Replacing, AFileThatNobodyElseMayTouchStays) {
  {
    const Reader reader(path_, 0);
    WindowsFileSteps steps;
    EXPECT_FALSE(ReplaceWhole(steps, path_, Bytes("xyz")));
    EXPECT_FALSE(files_.WriteBinary(path_, Bytes("ab")));
  }
  EXPECT_EQ(folder_.Content(u"config.dat"), "123456");
  ExpectNothingBeside();
}

TEST_F(Replacing, WhatAPowerCutLeftInPlaceIsTakenUpByWhoComesNext) {
  ASSERT_TRUE(folder_.Put(u"config.da~", "the whole"));
  ASSERT_TRUE(folder_.Put(u"config.da!", ""));
  EXPECT_EQ(files_.ReadBinary(path_, 100)->bytes.size(), 9U);
  EXPECT_EQ(folder_.Content(u"config.dat"), "the whole");
  ExpectNothingBeside();
}

TEST_F(Replacing, AFreshFileWithoutItsMarkIsNotTakenForWhole) {
  ASSERT_TRUE(folder_.Put(u"config.da~", "a pie"));
  EXPECT_EQ(files_.ReadBinary(path_, 100)->bytes.size(), 6U);
  EXPECT_TRUE(files_.WriteBinary(path_, Bytes("ab")));
  EXPECT_EQ(folder_.Content(u"config.dat"), "ab3456");
  ExpectNothingBeside();
}

TEST(Folders, StandAndEndWithoutABackslash) {
  WindowsCodePage code_page;
  WindowsFileServices files(code_page);
  WindowsSpecialFolders folders;
  for (const String& folder : {folders.Desktop(), folders.System(), ExecutableFolder()}) {
    EXPECT_TRUE(files.FolderExists(folder));
    EXPECT_NE(folder.back(), u'\\');
  }
}

}  // namespace
}  // namespace tolvane::platform::windows
