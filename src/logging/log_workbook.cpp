#include "logging/log_workbook.h"

#include <array>
#include <utility>

#include "logging/automation_sequence.h"
#include "logging/log_table.h"
#include "logging/workbook_format.h"

namespace tolvane {

namespace {

using platform::AutomationObject;
using platform::AutomationTable;
using Object = AutomationSequence::Object;

constexpr std::int32_t kHeadRow = 6;
constexpr std::int32_t kFirstRecordRow = kHeadRow + 1;
constexpr std::int32_t kLastRecordRow = kFirstRecordRow + LogTable::kRow_MAX;
constexpr std::int32_t kLastColumn = LogTable::kColumn_MAX + 1;

constexpr std::int32_t kAlignRight = -4152;
constexpr std::int32_t kHeadColorIndex = 36;  // light yellow of the standard palette
constexpr std::int32_t kThinLine = 1;

/// The sheet under construction.
class Sheet {
 public:
  Sheet(AutomationSequence& sequence, Object sheet)
      : sequence_(sequence), sheet_(std::move(sheet)) {}

  [[nodiscard]] Object AllCells() { return sequence_.Get(sheet_.get(), u"cells"); }
  [[nodiscard]] Object Cell(std::int32_t row, std::int32_t column) {
    return sequence_.Get(sheet_.get(), u"cells", {row, column});
  }
  [[nodiscard]] Object Range(StringView address) {
    return sequence_.Get(sheet_.get(), u"Range", {String(address)});
  }
  /// Columns A to L of some rows.
  [[nodiscard]] Object Rows(std::int32_t first, std::int32_t last) {
    const Object top_left = Cell(first, 1);
    const Object bottom_right = Cell(last, kLastColumn);
    return sequence_.Get(sheet_.get(), u"Range", {top_left.get(), bottom_right.get()});
  }
  void ColumnWidth(const platform::AutomationArgument& columns, std::int32_t width) {
    sequence_.Put(sequence_.Get(sheet_.get(), u"Columns", {columns}).get(), u"ColumnWidth", width);
  }

 private:
  AutomationSequence& sequence_;
  Object sheet_;
};

/// Sent as a table of one cell, so that the server takes a comment such as "001" or "=== 2 ===" as
/// text and not as a number or a formula.
void PutText(AutomationSequence& sequence, const Object& cell, const String& text) {
  sequence.Put(cell.get(), u"Value", AutomationTable{{&text, 1}, 1});
}

void FillTop(AutomationSequence& sequence, Sheet& sheet, const LogWorkbook& workbook,
             const ELM327_Info& device) {
  struct Row {
    StringView address;
    String text;
    std::int32_t font_size;
  };
  const Row rows[] = {{u"A1", device.Application_title, 10},
                      {u"A2", device.Homepage_URL, 8},
                      {u"A3", String(workbook.hardware_information), 9},
                      {u"A4", device.t_LogComment, 10},
                      {u"C1", device.Copy_light, 8},
                      {u"D2", u"bit rate：" + String(workbook.str_bitrate), 10},
                      {u"H1", String(workbook.date), 10}};
  for (const Row& row : rows) {
    const Object cell = sheet.Range(row.address);
    PutText(sequence, cell, row.text);
    sequence.PutOf(cell.get(), u"Font", u"size", row.font_size);
  }
  sequence.Put(sheet.Range(u"H1:K1").get(), u"MergeCells", true);
  sequence.Put(sheet.Range(u"H1:K2").get(), u"HorizontalAlignment", kAlignRight);
  // The only sign in a log that frames were excluded.
  if (device.t_Save_ID_DisableMode == 1) {
    PutText(sequence, sheet.Range(u"K2"), u"除外ON");
  }
}

void FillTableHead(AutomationSequence& sequence, Sheet& sheet, const ELM327_Info& device) {
  // Column EX is there in 11-bit mode too, and is then empty.
  const std::array<String, kLastColumn> titles = {u"経過時間 [ms]",
                                                  u"EX",
                                                  u"CAN ID",
                                                  u"DLC",
                                                  u"D1",
                                                  u"D2",
                                                  u"D3",
                                                  u"D4",
                                                  u"D5",
                                                  u"D6",
                                                  u"D7",
                                                  u"D8"};
  const Object head = sheet.Rows(kHeadRow, kHeadRow);
  sequence.Put(head.get(), u"Value", AutomationTable{titles, titles.size()});
  sequence.PutOf(head.get(), u"Interior", u"ColorIndex", kHeadColorIndex);
  sequence.PutOf(head.get(), u"Borders", u"LineStyle", kThinLine);
  sequence.PutOf(head.get(), u"Font", u"size", 9);

  sheet.ColumnWidth(1, 11);
  sheet.ColumnWidth(2, 4);
  sheet.ColumnWidth(3, device.t_msgID_type == kMsgIdType29Bit ? 9 : 7);
  sheet.ColumnWidth(4, 5);
  sheet.ColumnWidth(String(u"E:L"), 4);
}

void Save(AutomationSequence& sequence, AutomationObject* objExcel, const LogWorkbook& workbook,
          const ELM327_Info& device) {
  const auto format = WorkbookFormatOf(device);
  if (!format) return;
  const Object book = sequence.Get(objExcel, u"ActiveWorkbook");
  const String path(workbook.path);
  if (format->FileFormat) {
    sequence.Call(book.get(), u"SaveAs", {},
                  {{u"FileName", path}, {u"FileFormat", *format->FileFormat}});
  } else {
    sequence.Call(book.get(), u"SaveAs", {path});
  }
}

}  // namespace

bool WriteLogWorkbook(AutomationObject* objExcel, const LogWorkbook& workbook,
                      const ELM327_Info& device, platform::EventLoop& events) {
  AutomationSequence sequence(objExcel);
  sequence.Call(sequence.Get(objExcel, u"Workbooks").get(), u"Add");
  Sheet sheet(sequence, sequence.Get(objExcel, u"ActiveSheet"));
  sequence.PutOf(sheet.AllCells().get(), u"Font", u"size", 10);
  FillTop(sequence, sheet, workbook, device);
  FillTableHead(sequence, sheet, device);
  if (!workbook.records.empty()) {
    const Object range = sheet.Rows(kFirstRecordRow, kLastRecordRow);
    sequence.Put(range.get(), u"Value", AutomationTable{workbook.records, LogTable::kColumns});
  }
  // On the first record instead of the head row. That looks wrong but is how the sheets have always
  // been.
  sequence.Call(sheet.Cell(kFirstRecordRow, 1).get(), u"AutoFilter", {1});
  if (!sequence.Ok()) return false;
  events.YieldToEvents();
  Save(sequence, objExcel, workbook, device);
  sequence.Call(sequence.Get(objExcel, u"ActiveWorkbook").get(), u"Close");
  return sequence.Ok();
}

}  // namespace tolvane
