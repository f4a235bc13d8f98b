// Spreadsheet logs of the real program through the stand-in office program.
#include <fstream>

#include "tests/window/log_fixture.h"
#include "tests/window/office_stand_in.h"
#include "tests/window/screen_picture.h"
#include "tests/window/text.h"
// Last: its symbols are also names of controls elsewhere.
#include "src/platform/windows/resources/resource.h"

namespace tolvane::window {
namespace {

using Lines = std::vector<std::string>;

void Append(Lines& lines, const Lines& more) {
  lines.insert(lines.end(), more.begin(), more.end());
}

/// A value and a font size for one cell.
Lines HeadCell(const std::string& cell, const std::string& value, int size) {
  const std::string range = "ActiveSheet.Range(\"" + cell + "\")";
  return {"get " + range, "put " + range + ".Value = \"" + value + "\"", "get " + range + ".Font",
          "put " + range + ".Font.size = " + std::to_string(size)};
}

Lines Rows(int first, int last) {
  const std::string from = "ActiveSheet.cells(" + std::to_string(first) + ", 1)";
  const std::string to = "ActiveSheet.cells(" + std::to_string(last) + ", 12)";
  return {"get " + from, "get " + to, "get ActiveSheet.Range(" + from + ", " + to + ")"};
}

Lines Width(const std::string& columns, int width) {
  const std::string range = "ActiveSheet.Columns(" + columns + ")";
  return {"get " + range, "put " + range + ".ColumnWidth = " + std::to_string(width)};
}

Lines ScreenState(const char* value) {
  Lines lines;
  for (const char* name : {"ScreenUpdating", "Interactive", "DisplayAlerts"}) {
    Append(lines, {"get Application", "put Application." + std::string(name) + " = " + value});
  }
  return lines;
}

Lines Connecting(const std::string& server) {
  Lines lines{"create " + server, "put Visible = False"};
  Append(lines, ScreenState("False"));
  return lines;
}

Lines Disconnecting() {
  Lines lines = ScreenState("True");
  Append(lines, {"call Quit", "end"});
  return lines;
}

/// What one flush asks of the server, in order; `saving` are the words behind SaveAs. The checksum
/// of the records and the date are blanked, as Normal leaves them.
Lines Flush(const std::string& saving) {
  Lines lines{"get Workbooks",
              "call Workbooks.Add",
              "get ActiveSheet",
              "get ActiveSheet.cells",
              "get ActiveSheet.cells.Font",
              "put ActiveSheet.cells.Font.size = 10"};
  Append(lines, HeadCell("A1", "Tolvane Ver1.23", 10));
  Append(lines, HeadCell("A2", "https://tolvane.example/", 8));
  Append(lines, HeadCell("A3", Utf8(L"CANUSB TV100001 、V1.02N0.93"), 9));
  Append(lines, HeadCell("A4", Utf8(L"ＣＡＮ受信ログ"), 10));
  Append(lines, HeadCell("C1", "Copyright (C) 2026 Tolvane Project", 8));
  Append(lines, HeadCell("D2", Utf8(L"bit rate：500k bps"), 10));
  Append(lines, HeadCell("H1", "DATE", 10));
  Append(lines,
         {"get ActiveSheet.Range(\"H1:K1\")", "put ActiveSheet.Range(\"H1:K1\").MergeCells = True",
          "get ActiveSheet.Range(\"H1:K2\")",
          "put ActiveSheet.Range(\"H1:K2\").HorizontalAlignment = -4152"});
  const Lines head = Rows(6, 6);
  const std::string head_range = head.back().substr(4);
  Append(lines, head);
  Append(lines,
         {"put " + head_range + ".Value = table(1x12) \"" + Utf8(L"経過時間") +
              " [ms]\" \"EX\" \"CAN ID\" \"DLC\" \"D1\" \"D2\" \"D3\" \"D4\" \"D5\" \"D6\" "
              "\"D7\" \"D8\"",
          "get " + head_range + ".Interior", "put " + head_range + ".Interior.ColorIndex = 36",
          "get " + head_range + ".Borders", "put " + head_range + ".Borders.LineStyle = 1",
          "get " + head_range + ".Font", "put " + head_range + ".Font.size = 9"});
  for (const auto& [columns, width] : {std::pair("1", 11), std::pair("2", 4), std::pair("3", 7),
                                       std::pair("4", 5), std::pair("\"E:L\"", 4)}) {
    Append(lines, Width(columns, width));
  }
  const Lines records = Rows(7, 20007);
  Append(lines, records);
  Append(lines, {"put " + records.back().substr(4) + ".Value = table(20001x12) crc=*",
                 "get ActiveSheet.cells(7, 1)", "call ActiveSheet.cells(7, 1).AutoFilter(1)",
                 "get ActiveWorkbook", "call ActiveWorkbook.SaveAs(" + saving + ")",
                 "get ActiveWorkbook", "call ActiveWorkbook.Close"});
  return lines;
}

/// Calls from the first of a flush to the last.
const std::size_t kCallsPerFlush = Flush("").size();
constexpr std::size_t kCallsAtConnect = 7;

void Blank(std::string& line, std::string_view ahead, std::size_t length, std::string_view shown) {
  const std::size_t at = line.find(ahead);
  if (at != std::string::npos) line.replace(at + ahead.size(), length, shown);
}

/// The lines without what differs from run to run: date, checksum, folder and hour of the file.
Lines Normal(Lines lines) {
  for (std::string& line : lines) {
    Blank(line, "20001x12) crc=", 8, "*");
    constexpr std::string_view kDate = "Range(\"H1\").Value = \"";
    const std::size_t date = line.find(kDate);
    if (date != std::string::npos)
      Blank(line, kDate, line.rfind('"') - date - kDate.size(), "DATE");
    const std::size_t file = line.rfind("\\KL");
    if (file != std::string::npos) {
      const std::size_t begin = line.find('"') + 1;
      line.replace(begin, file + 11 - begin, "...\\KLyymmddhh");
    }
  }
  return lines;
}

class SpreadsheetLog : public LogRun {
 protected:
  /// Registers the stand-in, starts the program, and has it write spreadsheets.
  void StartWith(const std::wstring& names, std::string_view bench) {
    office_.emplace(folder_.Path(), names);
    ASSERT_TRUE(office_->Registered());
    office_->Script("");
    ASSERT_NO_FATAL_FAILURE(StartOn(bench));
  }
  void Choose(std::initializer_list<int> controls) {
    const DrivenWindow dialog = OpenLogSettings();
    for (const int id : controls) EXPECT_TRUE(dialog.Click(id)) << id;
    PressOk(dialog);
    EXPECT_TRUE(office_->Forget());
  }
  /// The lines of the record between two marks, neither included.
  static Lines Between(const Lines& lines, std::size_t from, std::size_t to) {
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
  std::ofstream(folder_.Path() / L"frames.log", std::ios::binary) << "(0.0) can0 123#0A\n";
  ASSERT_NO_FATAL_FAILURE(StartWith(row.names, "[bus]\nsource = log\nlog = frames.log\n"));
  const DrivenWindow dialog = OpenLogSettings();
  for (const int id : row.clicks) EXPECT_TRUE(dialog.Click(id)) << id;
  PressOk(dialog);
  ASSERT_TRUE(office_->Forget());
  ASSERT_NO_FATAL_FAILURE(Connect(main_));
  EXPECT_EQ(Utf8(main_.Text(TB_Status)), Utf8(L"通信中　ログ出力(Excel)"));
  EXPECT_TRUE(WaitForShown(L"123"));
  ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
  ASSERT_TRUE(office_->WaitForLine("end"));

  Lines expected = Connecting(row.server);
  Append(expected, Flush(row.saving));
  Append(expected, Disconnecting());
  EXPECT_EQ(Normal(office_->Lines()), expected);
  EXPECT_EQ(Logs(row.extension).size(), 1u);
  End();
}

const ServerChoice kServerChoices[] = {
    {"ExcelWritesXlsx",
     L"Excel.Application --version 16.0",
     {RB_Excel_Format_1},
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
     {RB_Excel_Format_1},
     "Excel.Application",
     "\"...\\KLyymmddhh-001.xls\"",
     L"-001.xls"},
    {"KetAloneIsTakenThoughExcelIsChosen",
     L"Ket.Application --version 16.0",
     {RB_LogSV_Format_0, RB_Excel_Format_1},
     "Ket.Application",
     "\"...\\KLyymmddhh-001.xls\"",
     L"-001.xls"},
    {"BothWithExcelChosen",
     L"Excel.Application --version 16.0 Ket.Application --version 9.0",
     {RB_Excel_Format_1},
     "Excel.Application",
     "FileName:=\"...\\KLyymmddhh-001.xlsx\", FileFormat:=51",
     L"-001.xlsx"},
    {"BothWithKetChosen",
     L"Excel.Application --version 16.0 Ket.Application --version 9.0",
     {RB_Excel_Format_1, CB_Excel_soft_KO},
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
  Choose({RB_Excel_Format_1});
  ASSERT_NO_FATAL_FAILURE(RunUntilShown(kLastOfTwoFlushes));
  ASSERT_TRUE(office_->WaitForLine("end"));
  const Lines lines = Normal(office_->Lines());
  EXPECT_EQ(kCallsPerFlush, 68u);
  Lines expected = Connecting("Excel.Application");
  for (const char* number : {"001", "002"}) {
    Append(expected,
           Flush("FileName:=\"...\\KLyymmddhh-" + std::string(number) + ".xlsx\", FileFormat:=51"));
  }
  Append(expected, Disconnecting());
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
                "bit_rate = 10000000\nframes = 20001\n"));
  Choose({});
  office_->Script("delay_ms = 40\n");
  ASSERT_NO_FATAL_FAILURE(Connect(main_));
  ASSERT_TRUE(office_->WaitForLine("call Workbooks.Add"));
  const auto grey_pixels = [&] { return CountScreenPixels(main_.Control(RTB_MainView), kGrey); };
  const std::size_t grey = grey_pixels();
  PostMessageW(main_.Control(Bt_Disconnect), BM_CLICK, 0, 0);
  int looks = 0;
  while (true) {
    const bool enabled = main_.Enabled(Bt_Disconnect);
    const std::size_t shown = grey_pixels();
    // The yield ahead of the saving comes behind the filter.
    if (office_->Lines().size() >= kCallsAtConnect + kCallsPerFlush - 6) break;
    EXPECT_TRUE(enabled);
    EXPECT_EQ(shown, grey);
    ++looks;
    Sleep(50);
  }
  EXPECT_GT(looks, 10);
  ASSERT_TRUE(WaitUntil([&] { return main_.Enabled(Bt_Connect); }));
  // The yield let the waiting tick and the click through: what stood still is grey, the run is
  // over.
  EXPECT_GT(grey_pixels(), grey);
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
    EXPECT_TRUE(main_.Enabled(Bt_Disconnect)) << failing;
    ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
    ASSERT_TRUE(office_->WaitForLine("end"));

    const Lines lines = Normal(office_->Lines());
    ASSERT_GT(lines.size(), failing);
    EXPECT_TRUE(lines[failing].ends_with(" ! 800A03EC")) << failing << ": " << lines[failing];
    // From the failure on nothing of that flush follows; the next one is whole. What was closed in
    // vain was saved before.
    const char* const number = failing == last ? "002" : "001";
    Lines rest =
        Flush("FileName:=\"...\\KLyymmddhh-" + std::string(number) + ".xls\", FileFormat:=56");
    Append(rest, Disconnecting());
    EXPECT_EQ(Between(lines, failing + 1, lines.size()), rest) << failing;
    EXPECT_EQ(Logs(L".xls").size(), failing == last ? 2u : 1u) << failing;
    ASSERT_TRUE(main_.Click(Bt_ViewClear));
  }

  // A server that cannot be made at all: a message, and no run.
  ASSERT_TRUE(office_->Forget());
  office_->Script("fail_creation = 1\n");
  EXPECT_TRUE(main_.Click(Bt_Connect));
  const auto message = WaitForMessage(program_->Id());
  ASSERT_TRUE(message);
  EXPECT_EQ(Utf8(message->text),
            Utf8(L"ログ出力用の表計算ソフトを起動できません。\r\n接続を終了します。"));
  ASSERT_TRUE(Press(*message, IDOK));
  ASSERT_TRUE(WaitUntil([&] { return main_.Enabled(Bt_Connect); }));
  EXPECT_EQ(State(main_), IdleState());
  End();
}

}  // namespace
}  // namespace tolvane::window
