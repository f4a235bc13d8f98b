// The folder of a run's comment, on a real disk.
#include <gtest/gtest.h>

#include <array>

#include "logging/excel_outputdb.h"
#include "platform/windows/code_page.h"
#include "platform/windows/file_services.h"
#include "platform/windows/wall_clock.h"
#include "tests/platform/windows/scratch_folder.h"

namespace tolvane::platform::windows {
namespace {

class NoEvents final : public EventLoop {
 public:
  void YieldToEvents() override {}
};

TEST(LogFolder, WhateverTheCommentEndsInTheFolderTakesTheFile) {
  WindowsCodePage code_page;
  WindowsFileServices files(code_page);
  WindowsSpecialFolders folders;
  WindowsWallClock wall_clock;
  NoEvents events;
  for (const StringView comment : {u"\"bench\"", u"bench..", u"bench .\"", u"...", u"\""}) {
    const ScratchFolder base;
    ELM327_Info device(base / u"");
    device.Param_ALL_Clear();
    device.t_LogSaveFormat = kLogFormatCsv;
    device.t_LogSaveFilePath_mode = 2;
    device.t_LogSaveFilePath = base / u"";
    device.t_LogSave_subFolder = 1;
    device.t_LogComment = comment;
    Excel_OutputDB db({events, files, folders, wall_clock});
    for (int run = 0; run < 2; ++run) {
      String folder;
      String date;
      String number;
      ASSERT_TRUE(db.Get_SubFolder_Name(device, folder));
      ASSERT_NE(folder, u"");
      db.csv_DB_Initialize(0, device);
      db.csv_DataInput(1.0, 0x100, 0, std::array<std::uint8_t, 8>{});
      db.Excel_DataOutput(1, device, nullptr, date, number, folder);
      String file = base / u"";
      file += folder + u"\\KL" + date + u"-001.csv";
      EXPECT_TRUE(files.FileExists(file))
          << run << reinterpret_cast<const wchar_t*>(comment.data());
    }
  }
}

}  // namespace
}  // namespace tolvane::platform::windows
