// The end of the Windows session while the real program is in a run.
#include "tests/helpers/expect_bytes.h"

#include "tests/window/control_ids.h"
#include "tests/window/log_fixture.h"
#include "tools/drive/text.h"

namespace tolvane::window {
namespace {

using SessionEnd = LogRun;

TEST_F(SessionEnd, IsRefusedDuringARunAndWhenForcedLeavesNoRecordBehind) {
  ASSERT_NO_FATAL_FAILURE(
      StartOnRecording("(0.000000) can0 123#0A\n"
                       "(0.050000) can0 7FF#FFEEDD\n"));
  ASSERT_NO_FATAL_FAILURE(Connect(main_));
  ASSERT_TRUE(WaitForShown(L"7FF"));
  const LPARAM critical = static_cast<LPARAM>(ENDSESSION_CRITICAL);
  EXPECT_EQ(Send(main_.Handle(), WM_QUERYENDSESSION, 0, critical), FALSE);
  EXPECT_TRUE(Logs().empty());

  // Windows ends the process as soon as this has returned; so the files are looked at first.
  EXPECT_TRUE(Send(main_.Handle(), WM_ENDSESSION, TRUE, critical));
  const auto logs = Logs();
  EXPECT_TRUE(std::filesystem::exists(folder_.Path() / L"config.dat"));
  EXPECT_NE(FileBytes(folder_.Path() / L"lglist.dat").find("7FF"), std::string::npos);
  ASSERT_EQ(logs.size(), 1u);
  EXPECT_TRUE(SameBytes(WithoutDate(FileBytes(logs[0])),
                        CsvHead11(kFirstComment) + "         0 , 123 , 1 ,  0A\r\n"
                                                   "        50 , 7FF , 3 ,  FF,EE,DD\r\n"));

  // A set-up program that needs its files closed does not end the process.
  EXPECT_EQ(program_->WaitForEnd(), 0u);
  EXPECT_EQ(Logs().size(), 1u);
}

TEST_F(SessionEnd, ThatIsTakenBackLeavesTheRunAlone) {
  ASSERT_NO_FATAL_FAILURE(StartOnRecording("(0.000000) can0 123#0A\n"));
  ASSERT_NO_FATAL_FAILURE(Connect(main_));
  ASSERT_TRUE(WaitForShown(L"123"));
  EXPECT_EQ(Send(main_.Handle(), WM_QUERYENDSESSION, 0, 0), FALSE);
  EXPECT_TRUE(Send(main_.Handle(), WM_ENDSESSION, FALSE, 0));
  EXPECT_FALSE(main_.Enabled(id::Bt_Connect));
  EXPECT_TRUE(Logs().empty());
  ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
  EXPECT_EQ(Logs().size(), 1u);
  End();
}

}  // namespace
}  // namespace tolvane::window
