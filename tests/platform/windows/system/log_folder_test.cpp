// The folder of a run's comment, on a real disk.
#include <gtest/gtest.h>

#include <array>

#include "logging/excel_outputdb.h"
#include "platform/windows/system/code_page.h"
#include "platform/windows/system/file_services.h"
#include "platform/windows/system/text.h"
#include "platform/windows/system/wall_clock.h"
#include "tests/platform/windows/system/scratch_folder.h"

namespace tolvane::platform::windows {
namespace {

class NoEvents final : public EventLoop {
 public:
  void YieldToEvents() override {}
};

/// Runs that log one record each, to a folder below a scratch folder.
class LogFolder : public testing::Test {
 protected:
  LogFolder() {
    device_.Param_ALL_Clear();
    device_.t_LogSaveFormat = kLogFormatCsv;
    device_.t_LogSaveFilePath_mode = 2;
    device_.t_LogSave_subFolder = 1;
  }

  /// False when the run could not begin.
  bool Run(const String& base) {
    device_.t_LogSaveFilePath = base;
    folder_.clear();
    date_.clear();
    number_.clear();
    if (!db_.Get_SubFolder_Name(device_, folder_)) return false;
    db_.csv_DB_Initialize(0, device_);
    db_.csv_DataInput(1.0, 0x100, 0, std::array<std::uint8_t, 8>{});
    db_.Excel_DataOutput(1, device_, nullptr, date_, number_, folder_);
    return true;
  }
  [[nodiscard]] bool HasFile(const String& base) {
    String file = base + u'\\';
    file += folder_ + u"\\KL" + date_ + u"-001.csv";
    return files_.FileExists(file);
  }

  WindowsCodePage code_page_;
  WindowsFileServices files_{code_page_};
  WindowsSpecialFolders folders_;
  WindowsWallClock wall_clock_;
  NoEvents events_;
  ELM327_Info device_{u"C:\\Tolvane"};
  Excel_OutputDB db_{{events_, files_, folders_, wall_clock_}};
  String folder_;
  String date_;
  String number_;
};

TEST_F(LogFolder, WhateverTheCommentEndsInTheFolderTakesTheFile) {
  for (const StringView comment : {u"\"bench\"", u"bench..", u"bench .\"", u"...", u"\""}) {
    const ScratchFolder base;
    device_.t_LogComment = comment;
    for (int run = 0; run < 2; ++run) {
      ASSERT_TRUE(Run(base / u""));
      ASSERT_NE(folder_, u"");
      EXPECT_TRUE(HasFile(base / u"")) << run << WideData(comment);
    }
  }
}

TEST_F(LogFolder, WhateverTheSetPathEndsInTheFolderTakesTheFile) {
  for (const StringView end : {u" ", u".", u"..", u" . "}) {
    const ScratchFolder scratch;
    const String base = scratch / u"logs";
    ASSERT_TRUE(files_.CreateFolder(base));
    device_.t_LogComment = u"bench";
    for (int run = 0; run < 2; ++run) {
      ASSERT_TRUE(Run(base + String(end)));
      EXPECT_TRUE(HasFile(base)) << run << WideData(end);
    }
  }
}

TEST_F(LogFolder, AFolderThatIsMadeHasRoomForTheFileAndOneWithoutRoomIsNotMade) {
  const ScratchFolder scratch;
  String base = scratch / u"";
  base.append(200 - base.size(), u'b');
  ASSERT_TRUE(files_.CreateFolder(base));
  for (std::size_t length = 230; length <= 250; ++length) {
    device_.t_LogComment = String(length - base.size() - 1, u'c');
    const bool began = Run(base);
    EXPECT_EQ(began, length <= 238) << length;
    EXPECT_EQ(files_.FolderExists(base + u'\\' + device_.t_LogComment), began) << length;
    EXPECT_EQ(HasFile(base), began) << length;
  }
}

}  // namespace
}  // namespace tolvane::platform::windows
