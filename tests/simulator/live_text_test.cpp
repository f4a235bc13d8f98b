#include "simulator/live_text.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace tolvane::simulator {
namespace {

/// Files of at least ten bytes that a test writes.
class LiveFiles : public testing::Test {
 protected:
  void SetUp() override {
    const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
    folder_ =
        std::filesystem::temp_directory_path() / (std::string("tolvane-live-") + test->name());
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }
  void TearDown() override {
    std::error_code ignored;  // a file that is still open keeps the folder, on Windows alone
    std::filesystem::remove_all(folder_, ignored);
  }

  void Append(int number, const std::string& text) {
    std::ofstream(folder_ / ("live." + std::to_string(number)), std::ios::binary | std::ios::app)
        << text;
  }
  LiveText Begin() { return LiveText(folder_ / "live", 10); }

  static std::string ReadAll(LiveText& text, std::size_t at_once = 4) {
    std::string read;
    std::array<char, 64> bytes{};
    while (const std::size_t taken = text.Read(bytes.data(), at_once)) {
      read.append(bytes.data(), taken);
    }
    return read;
  }

  std::filesystem::path folder_;
};

TEST_F(LiveFiles, GiveWhatIsWrittenFromTheBeginningOn) {
  Append(1, "old\n");
  LiveText text = Begin();
  EXPECT_FALSE(text.BeginsWithinLine());
  EXPECT_EQ(ReadAll(text), "");
  Append(1, "new\nhal");
  EXPECT_EQ(ReadAll(text), "new\nhal");
  Append(1, "f\n");
  EXPECT_EQ(ReadAll(text), "f\n");
  EXPECT_EQ(ReadAll(text), "");
}

TEST_F(LiveFiles, MayBeginWithinALine) {
  Append(1, "ol");
  LiveText text = Begin();
  EXPECT_TRUE(text.BeginsWithinLine());
  Append(1, "d\nnew\n");
  EXPECT_EQ(ReadAll(text), "d\nnew\n");
}

TEST_F(LiveFiles, AreWaitedForWhenThereAreNone) {
  LiveText text = Begin();
  EXPECT_EQ(ReadAll(text), "");
  Append(1, "new\n");
  EXPECT_EQ(ReadAll(text), "new\n");
}

TEST_F(LiveFiles, FollowEachOtherWhereALineEndsBehindTheirSize) {
  LiveText text = Begin();
  Append(1, "123456789\n");
  Append(2, "abc");
  EXPECT_EQ(ReadAll(text), "123456789\nabc");
  Append(2, "defghijkl");
  Append(3, "not yet\n");
  EXPECT_EQ(ReadAll(text), "defghijkl");
  Append(2, "m\n");
  EXPECT_EQ(ReadAll(text), "m\nnot yet\n");
}

TEST_F(LiveFiles, OfWhichTheLastOneIsFullGoOnInTheNext) {
  Append(7, "old one\n");
  Append(10, "123456789\n");
  LiveText text = Begin();
  EXPECT_EQ(ReadAll(text), "");
  Append(11, "new\n");
  EXPECT_EQ(ReadAll(text), "new\n");
  EXPECT_EQ(text.FilesPassedOver(), 0);
}

TEST_F(LiveFiles, ThatAreGoneUnreadArePassedOver) {
  LiveText text = Begin();
  Append(1, "123456789\n");
  EXPECT_EQ(ReadAll(text), "123456789\n");
  Append(6, "later\n");
  Append(4, "456789\n456\n");
  Append(5, "56789\n5678\n");
  EXPECT_EQ(ReadAll(text), "456789\n456\n56789\n5678\nlater\n");
  EXPECT_EQ(text.FilesPassedOver(), 2);
}

TEST_F(LiveFiles, HaveNamesOfThePathAPointAndANumber) {
  for (const char* other :
       {"live.", "live.x", "live.03", "live.-3", "live.0x3", "live.9.old", "live", "alive.9"}) {
    std::ofstream(folder_ / other, std::ios::binary) << "other";
  }
  Append(2, "old\n");
  LiveText text = Begin();
  Append(2, "new\n");
  EXPECT_EQ(ReadAll(text), "new\n");
}

TEST(LiveText, OfAFolderThatIsNotThereHasNothing) {
  LiveText text(std::filesystem::temp_directory_path() / "tolvane-no-such-folder" / "live");
  std::array<char, 4> bytes{};
  EXPECT_EQ(text.Read(bytes.data(), bytes.size()), 0u);
}

}  // namespace
}  // namespace tolvane::simulator
