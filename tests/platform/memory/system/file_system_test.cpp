#include "platform/memory/system/file_system.h"

#include <gtest/gtest.h>

#include "platform/memory/system/code_page_932.h"

namespace tolvane::platform::memory {
namespace {

class FileSystemTest : public ::testing::Test {
 protected:
  FileSystemTest() { disk.AddFolder(u"C:\\Logs"); }

  bool WriteText(StringView path, StringView text) {
    const auto stream = disk.CreateTextFile(path, true, false);
    return stream != nullptr && stream->Write(text) && stream->Close();
  }
  std::string Bytes(StringView path) { return disk.Bytes(path).value_or("none"); }

  CodePage932 code_page;
  FileSystem disk{code_page};
};

TEST_F(FileSystemTest, NamesAreFoundInAnyCaseAndWithABackslashBehindFolders) {
  ASSERT_TRUE(WriteText(u"C:\\logs\\A.txt", u"x"));
  EXPECT_TRUE(disk.FileExists(u"c:\\LOGS\\a.TXT"));
  EXPECT_TRUE(disk.FolderExists(u"C:\\Logs\\"));
  EXPECT_FALSE(disk.FolderExists(u"C:\\Logs\\A.txt"));
  EXPECT_FALSE(disk.FileExists(u"C:\\Logs"));
  EXPECT_FALSE(disk.FolderExists(u""));
}

TEST_F(FileSystemTest, TellsTheNamesThatBeginAlikeInOneFolder) {
  for (const StringView path : {u"C:\\Logs\\KL1-002.csv", u"C:\\LOGS\\kl1-001.CSV",
                                u"C:\\Logs\\KL2-001.csv", u"C:\\KL1-003.csv"}) {
    disk.AddFile(path, "");
  }
  disk.AddFolder(u"C:\\Logs\\KL1-below");
  disk.AddFile(u"C:\\Logs\\KL1-below\\KL1-004.csv", "");
  EXPECT_EQ(disk.FileNames(u"c:\\Logs\\KL1-"),
            (std::vector<String>{u"kl1-001.CSV", u"KL1-002.csv"}));
  EXPECT_TRUE(disk.FileNames(u"C:\\Gone\\KL1-").empty());
  EXPECT_TRUE(disk.FileNames(u"KL1-").empty());
}

TEST_F(FileSystemTest, TextIsWrittenInTheCodePage) {
  ASSERT_TRUE(WriteText(u"C:\\Logs\\a.txt", u"表\u20AC"));
  EXPECT_EQ(Bytes(u"C:\\Logs\\a.txt"), "\x95\x5c?");
  ASSERT_TRUE(WriteText(u"C:\\Logs\\a.txt", u"b"));
  EXPECT_EQ(Bytes(u"C:\\Logs\\a.txt"), "b") << "the old text is gone";
}

TEST_F(FileSystemTest, AsciiIsWrittenBehindTheTextAndNothingElse) {
  const auto stream = disk.CreateTextFile(u"C:\\Logs\\a.txt", true, false);
  EXPECT_TRUE(stream->Write(u"表"));
  EXPECT_TRUE(stream->WriteAscii("a\r\n"));
  EXPECT_FALSE(stream->WriteAscii("b\x80"));
  EXPECT_TRUE(stream->Write(u"c"));
  EXPECT_EQ(Bytes(u"C:\\Logs\\a.txt"),
            "\x95\x5c"
            "a\r\nc");
  disk.FreeSpace(1);
  EXPECT_FALSE(stream->WriteAscii("de"));
  EXPECT_EQ(Bytes(u"C:\\Logs\\a.txt"),
            "\x95\x5c"
            "a\r\ncd");
}

TEST_F(FileSystemTest, ExistingFilesAreKeptWithoutOverwrite) {
  ASSERT_TRUE(WriteText(u"C:\\Logs\\a.txt", u"x"));
  EXPECT_EQ(disk.CreateTextFile(u"C:\\Logs\\a.txt", false, false), nullptr);
  EXPECT_EQ(Bytes(u"C:\\Logs\\a.txt"), "x");
}

TEST_F(FileSystemTest, FoldersAreMadeOneLevelAtATimeAndOnlyOnce) {
  EXPECT_FALSE(disk.CreateFolder(u"C:\\Logs\\a\\b"));
  EXPECT_TRUE(disk.CreateFolder(u"C:\\Logs\\a"));
  EXPECT_FALSE(disk.CreateFolder(u"C:\\Logs\\a"));
  EXPECT_TRUE(disk.CreateFolder(u"C:\\Logs\\a\\b"));
}

TEST_F(FileSystemTest, BlanksAndPeriodsAreDroppedAtTheEndOfAPathAndNotWithinIt) {
  EXPECT_TRUE(disk.CreateFolder(u"C:\\Logs\\bench ."));
  EXPECT_TRUE(disk.FolderExists(u"C:\\Logs\\bench"));
  EXPECT_TRUE(disk.FolderExists(u"C:\\Logs\\bench .. "));
  EXPECT_FALSE(disk.CreateFolder(u"C:\\Logs\\bench")) << "it exists";
  EXPECT_FALSE(WriteText(u"C:\\Logs\\bench \\a.txt", u"x")) << "no such folder";
  EXPECT_TRUE(WriteText(u"C:\\Logs\\bench.\\a.txt. ", u"x")) << "one period counts nowhere";
  EXPECT_EQ(Bytes(u"C:\\Logs\\bench\\a.txt"), "x");
  EXPECT_TRUE(disk.FolderExists(u"C:\\Logs\\...")) << "the folder itself";
  EXPECT_TRUE(disk.FolderExists(u"C:\\Logs\\bench\\..\\.\\bench"));
}

TEST_F(FileSystemTest, NamesOfDevicesAndOddCharactersAreRefused) {
  for (const StringView name :
       {u"NUL", u"con", u"Com1.csv", u"LPT\u00B2", u"aux .x", u"a:b", u"a\tb", u"a*"}) {
    EXPECT_FALSE(disk.CreateFolder(String(u"C:\\Logs\\").append(name)));
    EXPECT_FALSE(WriteText(String(u"C:\\Logs\\").append(name), u"x"));
  }
  EXPECT_TRUE(disk.CreateFolder(u"C:\\Logs\\NUL-002"));
  EXPECT_TRUE(disk.CreateFolder(u"C:\\Logs\\COM0"));
}

TEST_F(FileSystemTest, PathsEndAt259CharactersAndNewFoldersAt247) {
  const String base = u"C:\\Logs\\";
  EXPECT_TRUE(WriteText(base + String(259 - base.size(), u'f'), u""));
  EXPECT_FALSE(WriteText(base + String(260 - base.size(), u'f'), u""));
  const String round_about = base + u"x\\..\\" + String(259 - base.size(), u'g');
  EXPECT_TRUE(WriteText(round_about, u"")) << "as long as it is taken";
  EXPECT_TRUE(disk.FileExists(round_about));
  EXPECT_TRUE(disk.CreateFolder(base + String(247 - base.size(), u'd')));
  EXPECT_FALSE(disk.CreateFolder(base + String(248 - base.size(), u'e')));
}

TEST_F(FileSystemTest, FullDiskTakesWhatFitsAndThenFails) {
  disk.FreeSpace(5);
  EXPECT_FALSE(WriteText(u"C:\\Logs\\a.txt", u"1234567"));
  EXPECT_EQ(Bytes(u"C:\\Logs\\a.txt"), "12345");
  const std::vector<std::byte> bytes(3, std::byte{0x41});
  EXPECT_TRUE(disk.WriteBinary(u"C:\\Logs\\a.txt", bytes)) << "needs no further space";
  EXPECT_EQ(Bytes(u"C:\\Logs\\a.txt"), "AAA45");
}

TEST_F(FileSystemTest, LockedFilesCannotBeTouched) {
  ASSERT_TRUE(WriteText(u"C:\\Logs\\a.txt", u"x"));
  disk.Lock(u"C:\\Logs\\a.txt", true);
  EXPECT_FALSE(WriteText(u"C:\\Logs\\a.txt", u"y"));
  EXPECT_FALSE(disk.ReadBinary(u"C:\\Logs\\a.txt", 10).has_value());
  EXPECT_FALSE(disk.DeleteFile(u"C:\\Logs\\a.txt", true));
  disk.Lock(u"C:\\Logs\\a.txt", false);
  EXPECT_TRUE(disk.DeleteFile(u"C:\\Logs\\a.txt", false));
  EXPECT_FALSE(disk.DeleteFile(u"C:\\Logs\\a.txt", false));
}

TEST_F(FileSystemTest, ReadOnlyFilesAreDeletedByForceOnly) {
  disk.AddFile(u"C:\\Logs\\a.txt", "x", kReadOnly);
  EXPECT_FALSE(WriteText(u"C:\\Logs\\a.txt", u"y"));
  EXPECT_FALSE(disk.DeleteFile(u"C:\\Logs\\a.txt", false));
  EXPECT_TRUE(disk.DeleteFile(u"C:\\Logs\\a.txt", true));
}

TEST_F(FileSystemTest, ProtectedFoldersTakeNothingNew) {
  ASSERT_TRUE(WriteText(u"C:\\Logs\\a.txt", u"x"));
  disk.Protect(u"C:\\Logs", true);
  EXPECT_FALSE(WriteText(u"C:\\Logs\\b.txt", u"y"));
  EXPECT_FALSE(disk.CreateFolder(u"C:\\Logs\\c"));
  EXPECT_TRUE(WriteText(u"C:\\Logs\\a.txt", u"y"));
}

TEST_F(FileSystemTest, FolderRemovedUnderAnOpenFileFailsTheWriter) {
  const auto stream = disk.CreateTextFile(u"C:\\Logs\\a.txt", true, false);
  ASSERT_NE(stream, nullptr);
  EXPECT_TRUE(stream->Write(u"x"));
  disk.Remove(u"C:\\Logs");
  EXPECT_FALSE(stream->Write(u"y"));
  EXPECT_FALSE(stream->Close());
}

TEST_F(FileSystemTest, ReadingStopsAtTheAskedSize) {
  disk.AddFile(u"C:\\Logs\\a.dat", "abcdef");
  EXPECT_EQ(disk.ReadBinary(u"C:\\Logs\\a.dat", 2)->bytes,
            (std::vector<std::byte>{std::byte{'a'}, std::byte{'b'}}));
  EXPECT_EQ(disk.ReadBinary(u"C:\\Logs\\a.dat", 100)->bytes.size(), 6U);
  EXPECT_FALSE(disk.ReadBinary(u"C:\\Logs\\none", 2).has_value());
}

TEST_F(FileSystemTest, FailingCloseIsSeenByEveryWriterAndReader) {
  disk.FailClose(true);
  EXPECT_FALSE(WriteText(u"C:\\Logs\\a.txt", u"x"));
  EXPECT_FALSE(disk.WriteBinary(u"C:\\Logs\\b.dat", {}));
  EXPECT_FALSE(disk.ReadBinary(u"C:\\Logs\\a.txt", 1)->closed);
}

TEST_F(FileSystemTest, AttributesTellFoldersFromFiles) {
  disk.AddFile(u"C:\\Logs\\a.txt", "");
  EXPECT_EQ(disk.Attributes(u"C:\\Logs"), 16);
  EXPECT_EQ(disk.Attributes(u"C:\\Logs\\a.txt"), 32);
  EXPECT_FALSE(disk.Attributes(u"C:\\none").has_value());
  disk.SetAttributes(u"C:\\Logs", 16 + kReadOnly);
  EXPECT_EQ(disk.Attributes(u"C:\\Logs"), 17);
}

}  // namespace
}  // namespace tolvane::platform::memory
