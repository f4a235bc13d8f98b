#include "tests/window/office_calls.h"

#include <string_view>
#include <utility>

#include "tools/drive/text.h"

namespace tolvane::window {
namespace {

/// A value and a font size for one cell.
Calls HeadCell(const std::string& cell, const std::string& value, int size) {
  const std::string range = "ActiveSheet.Range(\"" + cell + "\")";
  return {"get " + range, "put " + range + ".Value = table(1x1) \"" + value + "\"",
          "get " + range + ".Font", "put " + range + ".Font.size = " + std::to_string(size)};
}

Calls Rows(int first, int last) {
  const std::string from = "ActiveSheet.cells(" + std::to_string(first) + ", 1)";
  const std::string to = "ActiveSheet.cells(" + std::to_string(last) + ", 12)";
  return {"get " + from, "get " + to, "get ActiveSheet.Range(" + from + ", " + to + ")"};
}

Calls Width(const std::string& columns, int width) {
  const std::string range = "ActiveSheet.Columns(" + columns + ")";
  return {"get " + range, "put " + range + ".ColumnWidth = " + std::to_string(width)};
}

Calls ScreenState(const char* value) {
  Calls lines;
  for (const char* name : {"ScreenUpdating", "Interactive", "DisplayAlerts"}) {
    Append(lines, {"get Application", "put Application." + std::string(name) + " = " + value});
  }
  return lines;
}

void Blank(std::string& line, std::string_view ahead, std::size_t length, std::string_view shown) {
  const std::size_t at = line.find(ahead);
  if (at != std::string::npos) line.replace(at + ahead.size(), length, shown);
}

}  // namespace

void Append(Calls& lines, const Calls& more) {
  lines.insert(lines.end(), more.begin(), more.end());
}

Calls ConnectCalls(const std::string& server) {
  Calls lines{"create " + server, "put Visible = False"};
  Append(lines, ScreenState("False"));
  return lines;
}

Calls DisconnectCalls() {
  Calls lines = ScreenState("True");
  Append(lines, {"call Quit", "end"});
  return lines;
}

Calls FlushCalls(const std::string& saving) {
  Calls lines{"get Workbooks",
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
  const Calls head = Rows(6, 6);
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
  const Calls records = Rows(7, 20007);
  Append(lines, records);
  Append(lines, {"put " + records.back().substr(4) + ".Value = table(20001x12)",
                 "get ActiveSheet.cells(7, 1)", "call ActiveSheet.cells(7, 1).AutoFilter(1)",
                 "get ActiveWorkbook", "call ActiveWorkbook.SaveAs(" + saving + ")",
                 "get ActiveWorkbook", "call ActiveWorkbook.Close"});
  return lines;
}

Calls NormalCalls(Calls lines) {
  for (std::string& line : lines) {
    constexpr std::string_view kDate = "Range(\"H1\").Value = table(1x1) \"";
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

}  // namespace tolvane::window
