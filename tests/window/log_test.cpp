// Csv logs of the real program, byte by byte.
#include <fstream>

#include "tests/helpers/expect_bytes.h"
#include "tests/window/control_ids.h"
#include "tests/window/log_fixture.h"
#include "tools/drive/text.h"

namespace tolvane::window {
namespace {

TEST_F(LogRun, CsvFilesOfTwoRunsByteForByte) {
  ASSERT_NO_FATAL_FAILURE(
      StartOnRecording("(0.000000) can0 00F#\n"
                       "(0.001999) can0 010#0A\n"
                       "(0.050000) can0 0FF#0102030405060708\n"
                       "(0.250000) can0 7FF#FFEEDD\n"));
  ASSERT_NO_FATAL_FAILURE(RunUntilShown(L"7FF"));
  main_.Type(id::TB_LogComment, L"  表①, \"ｺﾒﾝﾄ\"  ");
  ASSERT_NO_FATAL_FAILURE(RunUntilShown(L"7FF"));
  End();

  const std::string records =
      "         0 , 00F , 0\r\n"
      "         1 , 010 , 1 ,  0A\r\n"
      "        50 , 0FF , 8 ,  01,02,03,04,05,06,07,08\r\n"
      "       250 , 7FF , 3 ,  FF,EE,DD\r\n";
  const auto logs = Logs();
  ASSERT_EQ(logs.size(), 2u);
  EXPECT_TRUE(SameBytes(WithoutDate(FileBytes(logs[0])), CsvHead11(kFirstComment) + records));
  EXPECT_TRUE(SameBytes(WithoutDate(FileBytes(logs[1])),
                        CsvHead11("\x95\x5c\x87\x40, \"\xba\xd2\xdd\xc4\"") + records));
}

TEST_F(LogRun, RollsOverAfter20001RecordsAndWritesTheRestAtTheEnd) {
  // Identifiers from 8 on, so that some have leading zeros; on channel 2 of the 29-bit log the
  // zeros appear at the start of the next file of channel 1.
  constexpr int kFrames = 41'000;
  constexpr int kFirstId = 8;
  constexpr int kIds = 16;
  constexpr int kChannel = 20'001;
  ASSERT_NO_FATAL_FAILURE(
      StartOn("[bench]\nqueue = 100000\n[bus]\nsource = generator\nformat = extended\n"
              "rate = 10000\nfirst_id = 8\nids = 16\nframes = 41000\n"));
  DrivenWindow dialog = Open(id::menu_common_setting);
  EXPECT_TRUE(dialog.Click(id::RB_MsgType_1));
  PressOk(dialog);
  ASSERT_NO_FATAL_FAILURE(RunUntilShown(Wide(CounterBytes(kFrames - 1, " "))));
  End();

  const auto logs = Logs();
  ASSERT_EQ(logs.size(), 3u);
  std::string stray_zeros;
  for (int file = 0; file < 3; ++file) {
    std::string expected = CsvHead29(kFirstComment);
    if (file == 2) expected += stray_zeros;
    for (int i = file * kChannel; i < std::min((file + 1) * kChannel, kFrames); ++i) {
      const int identifier = kFirstId + i % kIds;
      const std::string zeros(identifier < 16 ? 7 : 6, '0');
      if (file == 1) stray_zeros += zeros;
      // The clock counts milliseconds; there are ten frames in each.
      expected.append(PaddedTime(i / 10)).append(" , * , ");
      expected.append(file == 1 ? "" : zeros).append(Hex(static_cast<unsigned>(identifier), 1));
      expected.append(" , 8 ,  ")
          .append(CounterBytes(static_cast<unsigned>(i), ","))
          .append("\r\n");
    }
    EXPECT_TRUE(SameBytes(WithoutDate(FileBytes(logs[static_cast<std::size_t>(file)])), expected))
        << "file " << file + 1;
  }
}

TEST_F(LogRun, FoldersOfEachModeAndTheSubfolderOfTheComment) {
  const DesktopElsewhere desktop(OwnFolder() / L"desktop-under-test");
  const ScratchFolder chosen(OwnFolder() / L"保存先-under-test");
  const std::filesystem::path& folder = chosen.Path();
  ASSERT_NO_FATAL_FAILURE(StartOnRecording("(0.0) can0 123#\n"));

  DrivenWindow dialog = OpenLogSettings();
  EXPECT_TRUE(dialog.Click(id::RB_LogSaveFilePath_2));
  dialog.Type(id::TB_LogSaveFilePath, folder.wstring());
  EXPECT_TRUE(dialog.Click(id::CB_LogSave_subFolder));
  PressOk(dialog);
  main_.Type(id::TB_LogComment, L"a/b:*?\"<>|\\");
  ASSERT_NO_FATAL_FAILURE(RunUntilShown(L"123"));
  ASSERT_NO_FATAL_FAILURE(RunUntilShown(L"123"));
  for (const wchar_t* suffix : {L"", L"-002"}) {
    const auto subfolder = folder / (std::wstring(L"a／b：＊？ ＜＞｜￥") + suffix);
    EXPECT_EQ(FilesOf(subfolder, L"KL", L".csv").size(), 1u) << Utf8(subfolder.wstring());
  }

  // No comment, no run.
  main_.Type(id::TB_LogComment, L"  ");
  EXPECT_TRUE(main_.Click(id::Bt_Connect));
  const auto message = WaitForMessage(program_->Id());
  ASSERT_TRUE(message);
  EXPECT_EQ(Utf8(message->title), Utf8(L"Tolvane Ver1.23"));
  EXPECT_EQ(Utf8(message->text),
            Utf8(L"「コメントをサブフォルダにして保存する」が有効になっています。\r\n"
                 L"コメントを記入して下さい。"));
  ASSERT_TRUE(Press(*message, IDOK));
  ASSERT_TRUE(WaitUntil([&] { return main_.Enabled(id::Bt_Connect); }));
  EXPECT_EQ(State(main_), IdleState());

  // On the desktop the subfolder still goes where the box of the chosen folder points, logging or
  // not, and the log stays on the desktop.
  main_.Type(id::TB_LogComment, L"机");
  dialog = OpenLogSettings();
  EXPECT_TRUE(dialog.Click(id::RB_LogSaveFilePath_1));
  PressOk(dialog);
  ASSERT_NO_FATAL_FAILURE(RunUntilShown(L"123"));
  EXPECT_TRUE(std::filesystem::is_directory(folder / L"机"));
  EXPECT_FALSE(std::filesystem::exists(desktop.Path() / L"机"));
  EXPECT_EQ(FilesOf(desktop.Path(), L"KL", L".csv").size(), 1u);
  dialog = OpenLogSettings();
  EXPECT_TRUE(dialog.Click(id::CB_LogFile_Enable));
  PressOk(dialog);
  main_.Type(id::TB_LogComment, L"記録なし");
  ASSERT_NO_FATAL_FAILURE(RunUntilShown(L"123"));
  EXPECT_TRUE(std::filesystem::is_directory(folder / L"記録なし"));
  EXPECT_EQ(FilesOf(desktop.Path(), L"KL", L".csv").size(), 1u);

  // The program's own folder again.
  dialog = OpenLogSettings();
  EXPECT_TRUE(dialog.Click(id::CB_LogFile_Enable));
  EXPECT_TRUE(dialog.Click(id::RB_LogSaveFilePath_0));
  EXPECT_TRUE(dialog.Click(id::CB_LogSave_subFolder));
  PressOk(dialog);
  ASSERT_NO_FATAL_FAILURE(RunUntilShown(L"123"));
  EXPECT_EQ(Logs().size(), 1u);
  End();
}

TEST_F(LogRun, AFolderRemovedInMidRunSendsTheLogAndTheSettingToTheDesktop) {
  const DesktopElsewhere desktop(OwnFolder() / L"desktop-under-test");
  const ScratchFolder chosen(OwnFolder() / L"chosen-under-test");
  ASSERT_NO_FATAL_FAILURE(StartOnRecording("(0.0) can0 123#AB\n"));
  DrivenWindow dialog = OpenLogSettings();
  EXPECT_TRUE(dialog.Click(id::RB_LogSaveFilePath_2));
  dialog.Type(id::TB_LogSaveFilePath, chosen.Path().wstring());
  PressOk(dialog);
  ASSERT_NO_FATAL_FAILURE(Connect(main_));
  ASSERT_TRUE(WaitForShown(L"123"));
  std::filesystem::remove_all(chosen.Path());
  ASSERT_NO_FATAL_FAILURE(Disconnect(main_));

  const auto logs = FilesOf(desktop.Path(), L"KL", L".csv");
  ASSERT_EQ(logs.size(), 1u);
  EXPECT_TRUE(SameBytes(WithoutDate(FileBytes(logs[0])),
                        CsvHead11(kFirstComment) + "         0 , 123 , 1 ,  AB\r\n"));
  dialog = OpenLogSettings();
  EXPECT_EQ(Utf8(dialog.Text(id::TB_LogSaveFilePath)), Utf8(desktop.Path().wstring()));
  PressCancel(dialog);
  End();
}

/// Another program that keeps a file to itself.
class HeldFile {
 public:
  explicit HeldFile(const std::filesystem::path& path)
      : handle_(CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_ALWAYS, 0, nullptr)) {}
  ~HeldFile() { Release(); }
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;
  [[nodiscard]] bool Holds() const { return handle_ != INVALID_HANDLE_VALUE; }
  void Release() {
    if (Holds()) CloseHandle(handle_);
    handle_ = INVALID_HANDLE_VALUE;
  }

 private:
  HANDLE handle_;
};

// Bursts of one channel each: back to back at 11.4 us a frame, ten seconds from burst to burst.
constexpr int kBurst = 20'001;
constexpr std::string_view kBursts =
    "[bench]\nqueue = 100000\n[bus]\nsource = generator\nids = 4\nburst = 20001\n"
    "generator_bit_rate = 10000000\nrate = 2000\nframes = 60003\n";

std::string BurstRecords(int burst) {
  constexpr int kBetweenBursts = 10'000'500;  // us
  std::string records;
  for (int place = 0; place < kBurst; ++place) {
    const auto frame = static_cast<unsigned>(burst * kBurst + place);
    records.append(PaddedTime((burst * kBetweenBursts + place * 114 / 10) / 1000)).append(" , ");
    records.append(Hex(1 + frame % 4, 3)).append(" , 8 ,  ");
    records.append(CounterBytes(frame, ",")).append("\r\n");
  }
  return records;
}

std::wstring LastShownOfBurst(int burst) {
  return Wide(CounterBytes(static_cast<unsigned>((burst + 1) * kBurst - 1), " "));
}

TEST_F(LogRun, WhatAHeldFileKeptBackComesWithTheNextFileOfItsChannel) {
  ASSERT_NO_FATAL_FAILURE(StartOn(kBursts));
  // With a full folder every flush goes to the file of number 1000. The hour may change meanwhile.
  FillNumbers(folder_.Path(), L"KL", L".csv");
  const std::filesystem::path files[] = {folder_.Path() / NumberedName(L"KL", 0, 1000, L".csv"),
                                         folder_.Path() / NumberedName(L"KL", 1, 1000, L".csv")};
  HeldFile held(files[0]);
  HeldFile held_next_hour(files[1]);
  ASSERT_TRUE(held.Holds() && held_next_hour.Holds());
  const auto take_log = [&files] {
    std::string log;
    for (const auto& file : files) {
      log += FileBytes(file);
      std::ofstream(file).flush();
    }
    return WithoutDate(log);
  };

  ASSERT_NO_FATAL_FAILURE(Connect(main_));
  // The first search of a number yields; by the end of the second burst the first two flushes are
  // over.
  ASSERT_TRUE(WaitForShown(LastShownOfBurst(1)));
  held.Release();
  held_next_hour.Release();
  EXPECT_EQ(take_log(), "");
  EXPECT_TRUE(main_.Enabled(id::Bt_Disconnect));
  ASSERT_TRUE(WaitForShown(LastShownOfBurst(2)));
  const std::string third = take_log();
  ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
  const std::string last = take_log();
  End();

  const std::string head = CsvHead11(kFirstComment);
  EXPECT_TRUE(SameBytes(third, head + BurstRecords(0) + BurstRecords(2)));
  EXPECT_TRUE(SameBytes(last, head + BurstRecords(1)));
}

}  // namespace
}  // namespace tolvane::window
