// Snapshots of the real program in both formats.
#include "tests/helpers/expect_bytes.h"

#include "tests/window/control_ids.h"
#include "tests/window/log_fixture.h"
#include "tools/drive/text.h"

namespace tolvane::window {
namespace {

class Snapshot : public LogRun {
 protected:
  /// Presses the button and answers the message, whose text it gives.
  std::string PressSnapshot() {
    main_.Command(id::Bt_SaveFile);
    const auto message = WaitForMessage(program_->Id());
    if (!message) return "no message";
    EXPECT_EQ(Utf8(message->title), "Tolvane");
    EXPECT_EQ(message->owner, main_.Handle());
    EXPECT_TRUE(Press(*message, IDOK));
    return Utf8(message->text);
  }
  std::vector<std::filesystem::path> Snapshots(const wchar_t* extension) const {
    return FilesOf(folder_.Path(), L"KS", extension);
  }
};

TEST_F(Snapshot, HoldsTheWholePageInBothFormatsDuringARunAndAfter) {
  ASSERT_NO_FATAL_FAILURE(StartOnRecording("(0.0) can0 123#0A0B\n(0.1) can0 123#0AFF\n"));
  ASSERT_NO_FATAL_FAILURE(Connect(main_));
  ASSERT_TRUE(WaitForShown(L"0A FF"));
  EXPECT_EQ(PressSnapshot(), Utf8(L"保存しました"));
  const auto rich = Snapshots(L"-001.rtf");
  ASSERT_EQ(rich.size(), 1u);
  const std::string live = FileBytes(rich[0]);
  EXPECT_EQ(live.substr(0, 6), "{\\rtf1");
  EXPECT_NE(live.find("100ms"), std::string::npos);
  // The byte that changed is red.
  EXPECT_NE(live.find("\\red255\\green0\\blue0"), std::string::npos);
  ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
  const std::wstring page = main_.Text(id::RTB_MainView);

  DrivenWindow dialog = OpenLogSettings();
  EXPECT_TRUE(dialog.Click(id::RB_SV_Format_0));
  PressOk(dialog);
  main_.Type(id::RTB_MainView, L"変更 ABC ｶﾅ①\r\n2行目\r\n");
  EXPECT_EQ(PressSnapshot(), Utf8(L"保存しました"));
  EXPECT_EQ(PressSnapshot(), Utf8(L"保存しました"));
  const auto plain = Snapshots(L".txt");
  ASSERT_EQ(plain.size(), 2u);
  for (const auto& file : plain) {
    EXPECT_TRUE(SameBytes(FileBytes(file),
                          "\x95\xcf\x8d\x58 ABC \xb6\xc5\x87\x40\r\n2\x8d\x73\x96\xda\r\n"));
  }
  End();

  // Read back as the kept page of the next start.
  ASSERT_TRUE(CopyFileW(rich[0].c_str(), (folder_.Path() / L"lglist.dat").c_str(), FALSE));
  ASSERT_NO_FATAL_FAILURE(Start());
  EXPECT_EQ(Utf8(main_.Text(id::RTB_MainView)), Utf8(page));
  End();
}

TEST_F(Snapshot, AFullFolderIsToldAndNothingIsSaved) {
  ASSERT_NO_FATAL_FAILURE(StartOnRecording("(0.0) can0 123#\n"));
  FillNumbers(folder_.Path(), L"KS", L".rtf");
  EXPECT_EQ(PressSnapshot(), Utf8(L"ファイルがいっぱいです"));
  EXPECT_TRUE(Snapshots(L"-1000.rtf").empty());
  End();
}

}  // namespace
}  // namespace tolvane::window
