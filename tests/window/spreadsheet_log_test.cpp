// Spreadsheet logs of the real program through the stand-in office program.
#include <fstream>

#include "tests/window/control_ids.h"
#include "tests/window/log_fixture.h"
#include "tests/window/office_calls.h"
#include "tests/window/office_stand_in.h"
#include "tools/drive/screen_picture.h"
#include "tools/drive/text.h"

namespace tolvane::window {
namespace {

/// Calls from the first of a flush to the last.
const std::size_t kCallsPerFlush = FlushCalls("").size();
const std::size_t kCallsAtConnect = ConnectCalls("").size() - 1;

class SpreadsheetLog : public LogRun {
 protected:
  /// Registers the stand-in, starts the program, and has it write spreadsheets.
  void StartWith(const std::wstring& names, std::string_view bench) {
    office_.emplace(folder_.Path(), names);
    ASSERT_TRUE(office_->Registered());
    office_->Script("");
    ASSERT_NO_FATAL_FAILURE(StartOn(bench));
  }
  void StartWithRecording(const std::wstring& names, std::string_view lines) {
    std::ofstream(folder_.Path() / L"frames.log", std::ios::binary) << lines;
    StartWith(names, "[bus]\nsource = log\nlog = frames.log\n");
  }
  void Choose(std::initializer_list<int> controls) {
    const DrivenWindow dialog = OpenLogSettings();
    for (const int control : controls) EXPECT_TRUE(dialog.Click(control)) << control;
    PressOk(dialog);
    EXPECT_TRUE(office_->Forget());
  }
  /// The lines of the record between two marks, neither included.
  static Calls Between(const Calls& lines, std::size_t from, std::size_t to) {
    return {lines.begin() + static_cast<std::ptrdiff_t>(from),
            lines.begin() + static_cast<std::ptrdiff_t>(to)};
  }

  std::optional<OfficeStandIn> office_;
};

struct ServerChoice {
  const char* label;
  const wchar_t* names;
  std::vector<int> clicks;  // in the log settings
  const char* server;
  const char* saving;
  const wchar_t* extension;
};

std::ostream& operator<<(std::ostream& stream, const ServerChoice& row) {
  return stream << row.label;
}

class SpreadsheetServer : public SpreadsheetLog,
                          public testing::WithParamInterface<ServerChoice> {};

TEST_P(SpreadsheetServer, IsAskedForExactlyTheseCallsInThisOrder) {
  const ServerChoice& row = GetParam();
  ASSERT_NO_FATAL_FAILURE(StartWithRecording(row.names, "(0.0) can0 123#0A\n"));
  const DrivenWindow dialog = OpenLogSettings();
  for (const int control : row.clicks) EXPECT_TRUE(dialog.Click(control)) << control;
  PressOk(dialog);
  ASSERT_TRUE(office_->Forget());
  ASSERT_NO_FATAL_FAILURE(Connect(main_));
  EXPECT_EQ(Utf8(main_.Text(id::TB_Status)), Utf8(L"通信中　ログ出力(Excel)"));
  EXPECT_TRUE(WaitForShown(L"123"));
  ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
  ASSERT_TRUE(office_->WaitForLine("end"));

  Calls expected = ConnectCalls(row.server);
  Append(expected, FlushCalls(row.saving));
  Append(expected, DisconnectCalls());
  EXPECT_EQ(NormalCalls(office_->Lines()), expected);
  EXPECT_EQ(Logs(row.extension).size(), 1u);
  End();
}

const ServerChoice kServerChoices[] = {
    {"ExcelWritesXlsx",
     L"Excel.Application --version 16.0",
     {id::RB_Excel_Format_1},
     "Excel.Application",
     "FileName:=\"...\\KLyymmddhh-001.xlsx\", FileFormat:=51",
     L"-001.xlsx"},
    {"ExcelWritesXlsOfFormat56",
     L"Excel.Application --version 12.0",
     {},
     "Excel.Application",
     "FileName:=\"...\\KLyymmddhh-001.xls\", FileFormat:=56",
     L"-001.xls"},
    {"OldExcelSavesByTheNameAloneWhateverTheFormat",
     L"Excel.Application --version 11.0",
     {id::RB_Excel_Format_1},
     "Excel.Application",
     "\"...\\KLyymmddhh-001.xls\"",
     L"-001.xls"},
    {"KetAloneIsTakenThoughExcelIsChosen",
     L"Ket.Application --version 16.0",
     {id::RB_LogSV_Format_0, id::RB_Excel_Format_1},
     "Ket.Application",
     "\"...\\KLyymmddhh-001.xls\"",
     L"-001.xls"},
    {"BothWithExcelChosen",
     L"Excel.Application --version 16.0 Ket.Application --version 9.0",
     {id::RB_Excel_Format_1},
     "Excel.Application",
     "FileName:=\"...\\KLyymmddhh-001.xlsx\", FileFormat:=51",
     L"-001.xlsx"},
    {"BothWithKetChosen",
     L"Excel.Application --version 16.0 Ket.Application --version 9.0",
     {id::RB_Excel_Format_1, id::CB_Excel_soft_KO},
     "Ket.Application",
     "FileName:=\"...\\KLyymmddhh-001.xlsx\", FileFormat:=51",
     L"-001.xlsx"},
};

INSTANTIATE_TEST_SUITE_P(Table, SpreadsheetServer, testing::ValuesIn(kServerChoices),
                         [](const auto& row) { return row.param.label; });

constexpr std::string_view kTwoFlushes =
    "[bench]\nqueue = 100000\n[bus]\nsource = generator\nids = 4\nrate = 10000\nframes = 20005\n";
const std::wstring kLastOfTwoFlushes = Wide(CounterBytes(20'004, " "));

TEST_F(SpreadsheetLog, AFlushTakesAsManyCallsForFourRecordsAsFor20001) {
  ASSERT_NO_FATAL_FAILURE(StartWith(L"Excel.Application --version 16.0", kTwoFlushes));
  Choose({id::RB_Excel_Format_1});
  ASSERT_NO_FATAL_FAILURE(RunUntilShown(kLastOfTwoFlushes));
  ASSERT_TRUE(office_->WaitForLine("end"));
  const Calls lines = NormalCalls(office_->Lines());
  EXPECT_EQ(kCallsPerFlush, 68u);
  Calls expected = ConnectCalls("Excel.Application");
  for (const char* number : {"001", "002"}) {
    Append(expected, FlushCalls("FileName:=\"...\\KLyymmddhh-" + std::string(number) +
                                ".xlsx\", FileFormat:=51"));
  }
  Append(expected, DisconnectCalls());
  EXPECT_EQ(lines, expected);
  EXPECT_EQ(Logs(L".xlsx").size(), 2u);
  End();
}

TEST_F(SpreadsheetLog, NeitherClicksNorTicksComeThroughInAFlush) {
  // Two thousand identifiers, each twice a second: one that has stood still for 1.25 s turns grey
  // with the next tick, and the slow server makes a flush last longer than that.
  constexpr COLORREF kGrey = RGB(150, 150, 150);
  ASSERT_NO_FATAL_FAILURE(
      StartWith(L"Excel.Application --version 16.0",
                "[bench]\nqueue = 100000\n[bus]\nsource = generator\nids = 2000\nrate = 4000\n"
                "frames = 20001\n"));
  Choose({});
  office_->Script("delay_ms = 40\n");
  ASSERT_NO_FATAL_FAILURE(Connect(main_));
  ASSERT_TRUE(office_->WaitForLine("call Workbooks.Add"));
  const auto grey_pixels = [&] {
    return CountScreenPixels(main_.Control(id::RTB_MainView), kGrey);
  };
  const std::size_t grey = grey_pixels();
  PostMessageW(main_.Control(id::Bt_Disconnect), BM_CLICK, 0, 0);
  int looks = 0;
  EXPECT_TRUE(WaitUntil([&] {
    const bool enabled = main_.Enabled(id::Bt_Disconnect);
    const std::size_t shown = grey_pixels();
    // The yield ahead of the saving comes behind the filter.
    if (office_->Lines().size() >= kCallsAtConnect + kCallsPerFlush - 6) return true;
    EXPECT_TRUE(enabled);
    EXPECT_EQ(shown, grey);
    ++looks;
    return false;
  }));
  EXPECT_GT(looks, 10);
  ASSERT_TRUE(WaitUntil([&] { return main_.Enabled(id::Bt_Connect); }));
  // The yield let the waiting tick and the click through: what stood still is grey, the run is
  // over.
  EXPECT_GT(grey_pixels(), grey);
  End();
}

/// Without the lines for calls that were rejected as busy.
Calls WithoutBusy(Calls lines) {
  std::erase(lines, "busy");
  return lines;
}

TEST_F(SpreadsheetLog, ABusyServerIsAskedAgainAndNothingIsMissing) {
  struct Row {
    const char* way;
    std::size_t at;  // the operation whose calls are rejected as busy; 0 the creation
  };
  const Row rows[] = {{"rejected", 0},
                      {"later", 1},
                      {"later", kCallsAtConnect + 1},
                      {"rejected", kCallsAtConnect + kCallsPerFlush - 6},   // the records
                      {"suspended", kCallsAtConnect + kCallsPerFlush - 2},  // the saving
                      {"exception", kCallsAtConnect + 30},
                      {"suspended", kCallsAtConnect + kCallsPerFlush + 7}};  // Quit
  ASSERT_NO_FATAL_FAILURE(
      StartWithRecording(L"Excel.Application --version 16.0", "(0.0) can0 123#0A\n"));
  Choose({});
  for (const Row& row : rows) {
    ASSERT_TRUE(office_->Forget());
    for (const auto& log : Logs(L".xls")) std::filesystem::remove(log);
    office_->Script("busy_at = " + std::to_string(row.at) +
                    "\nbusy_calls = 4\nbusy_as = " + row.way + "\n");
    ASSERT_NO_FATAL_FAILURE(Connect(main_));
    EXPECT_TRUE(WaitForShown(L"123"));
    ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
    ASSERT_TRUE(office_->WaitForLine("end"));
    const Calls lines = office_->Lines();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "busy"), 4) << row.way << ' ' << row.at;
    Calls expected = ConnectCalls("Excel.Application");
    Append(expected, FlushCalls("FileName:=\"...\\KLyymmddhh-001.xls\", FileFormat:=56"));
    Append(expected, DisconnectCalls());
    EXPECT_EQ(WithoutBusy(NormalCalls(lines)), expected) << row.way << ' ' << row.at;
    EXPECT_EQ(Logs(L".xls").size(), 1u);
    ASSERT_TRUE(main_.Click(id::Bt_ViewClear));
  }
  End();
}

TEST_F(SpreadsheetLog, AServerThatStaysBusyCostsItsFlushAfterTenSecondsAndNoClick) {
  ASSERT_NO_FATAL_FAILURE(StartWith(L"Excel.Application --version 16.0", kTwoFlushes));
  Choose({});
  office_->Script("busy_at = " + std::to_string(kCallsAtConnect + 1) + "\nbusy_ms = 12000\n");
  ASSERT_NO_FATAL_FAILURE(Connect(main_));
  ASSERT_TRUE(office_->WaitForLine("busy"));
  const ULONGLONG begun = GetTickCount64();
  PostMessageW(main_.Control(id::Bt_Disconnect), BM_CLICK, 0, 0);
  // The click waits for a yield, and that comes when the flush has been given up.
  ASSERT_TRUE(WaitUntil([&] { return !main_.Enabled(id::Bt_Disconnect); }));
  const ULONGLONG waited = GetTickCount64() - begun;
  EXPECT_GE(waited, 9'000u);
  ASSERT_TRUE(WaitUntil([&] { return main_.Enabled(id::Bt_Connect); }));
  ASSERT_TRUE(office_->WaitForLine("end"));
  // The flush of the other channel waits for the rest of the time and succeeds.
  Calls expected = ConnectCalls("Excel.Application");
  Append(expected, FlushCalls("FileName:=\"...\\KLyymmddhh-001.xls\", FileFormat:=56"));
  Append(expected, DisconnectCalls());
  EXPECT_EQ(WithoutBusy(NormalCalls(office_->Lines())), expected);
  EXPECT_EQ(Logs(L".xls").size(), 1u);
  End();
}

TEST_F(SpreadsheetLog, TextsThatLookLikeNumbersStayTexts) {
  ASSERT_NO_FATAL_FAILURE(
      StartWithRecording(L"Excel.Application --version 16.0",
                         "(0.00) can0 7E8#000E1E05\n(0.01) can0 1E5#00\n(0.02) can0 001#7E\n"));
  Choose({id::RB_Excel_Format_1});
  // A comment that is a broken formula, which a program would refuse if it came as a lone text.
  main_.Type(id::TB_LogComment, L"=== 001 ===");
  ASSERT_NO_FATAL_FAILURE(RunUntilShown(L"7E8"));
  ASSERT_TRUE(office_->WaitForLine("end"));
  ASSERT_EQ(Logs(L".xlsx").size(), 1u);
  const std::string book = FileBytes(Logs(L".xlsx").front());  // not compressed
  for (const char* text : {"=== 001 ===", "7E8", "1E5", "001", "00", "0E", "1E", "05", "7E"}) {
    EXPECT_NE(book.find(">" + std::string(text) + "</t>"), std::string::npos) << text;
  }
  // A value is the number of a text, or it would be a number itself.
  for (std::size_t value = book.find("<v>"); value != std::string::npos;
       value = book.find("<v>", value + 1)) {
    EXPECT_TRUE(book.substr(0, value).ends_with(" t=\"s\">")) << book.substr(value - 30, 50);
  }
  End();
}

TEST_F(SpreadsheetLog, ACallThatFailsCostsItsFlushAndNothingElse) {
  ASSERT_NO_FATAL_FAILURE(StartWith(L"Excel.Application --version 16.0", kTwoFlushes));
  Choose({});
  const std::size_t first = kCallsAtConnect + 1;
  const std::size_t last = kCallsAtConnect + kCallsPerFlush;
  // The first call, one in the head, the records, the saving and the closing.
  for (const std::size_t failing : {first, first + 20, last - 6, last - 2, last}) {
    ASSERT_TRUE(office_->Forget());
    for (const auto& log : Logs(L".xls")) std::filesystem::remove(log);
    office_->Script("fail_at = " + std::to_string(failing) + "\n");
    ASSERT_NO_FATAL_FAILURE(Connect(main_));
    EXPECT_TRUE(WaitForShown(kLastOfTwoFlushes)) << failing;
    EXPECT_TRUE(main_.Enabled(id::Bt_Disconnect)) << failing;
    ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
    ASSERT_TRUE(office_->WaitForLine("end"));

    const Calls lines = NormalCalls(office_->Lines());
    ASSERT_GT(lines.size(), failing);
    EXPECT_TRUE(lines[failing].ends_with(" ! 800A03EC")) << failing << ": " << lines[failing];
    // After the failure that flush makes no further calls; the next one is complete. The workbook
    // whose closing failed was saved before.
    const char* const number = failing == last ? "002" : "001";
    Calls rest =
        FlushCalls("FileName:=\"...\\KLyymmddhh-" + std::string(number) + ".xls\", FileFormat:=56");
    Append(rest, DisconnectCalls());
    EXPECT_EQ(Between(lines, failing + 1, lines.size()), rest) << failing;
    EXPECT_EQ(Logs(L".xls").size(), failing == last ? 2u : 1u) << failing;
    ASSERT_TRUE(main_.Click(id::Bt_ViewClear));
  }

  // A server that cannot be made at all: a message, and no run.
  ASSERT_TRUE(office_->Forget());
  office_->Script("fail_creation = 1\n");
  EXPECT_TRUE(main_.Click(id::Bt_Connect));
  const auto message = WaitForMessage(program_->Id());
  ASSERT_TRUE(message);
  EXPECT_EQ(Utf8(message->text),
            Utf8(L"ログ出力用の表計算ソフトを起動できません。\r\n接続を終了します。"));
  ASSERT_TRUE(Press(*message, IDOK));
  ASSERT_TRUE(WaitUntil([&] { return main_.Enabled(id::Bt_Connect); }));
  EXPECT_EQ(State(main_), IdleState());
  End();
}

}  // namespace
}  // namespace tolvane::window
