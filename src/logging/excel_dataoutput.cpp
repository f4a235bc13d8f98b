#include <span>
#include <string>
#include <utility>

#include "logging/csv_line.h"
#include "logging/excel_outputdb.h"
#include "logging/log_naming.h"
#include "logging/log_workbook.h"
#include "logging/workbook_format.h"

namespace tolvane {

namespace {

StringView LogExtension(const ELM327_Info& device) {
  if (device.t_LogSaveFormat == kLogFormatCsv) return kCsvExtension;
  if (device.t_LogSaveFormat != kLogFormatSpreadsheet) return {};
  const auto format = WorkbookFormatOf(device);
  return format ? format->extension : StringView();
}

void AppendFilledRows(std::span<const String> cells, bool with_mark, std::string& lines) {
  for (; !cells.empty() && !cells.front().empty(); cells = cells.subspan(LogTable::kColumns)) {
    AppendCsvLine({cells.first<LogTable::kColumns>()}, with_mark, lines);
  }
}

/// The csv lines of a record table. Rows below `counter` are new; the rows from `counter` on are
/// older, left over from a flush that failed.
std::string TableLines(std::span<const String> cells, std::int32_t counter, bool with_mark) {
  const std::size_t new_cells = static_cast<std::size_t>(counter) * LogTable::kColumns;
  std::string lines;
  AppendFilledRows(cells.subspan(new_cells), with_mark, lines);
  AppendFilledRows(cells.first(new_cells), with_mark, lines);
  return lines;
}

}  // namespace

void Excel_OutputDB::Excel_DataOutput(std::int32_t Output_ch, ELM327_Info& device,
                                      platform::AutomationObject* objExcel, String& FileName_Date,
                                      String& FileName_No, const String& FolderName) {
  const platform::LocalTime now = services_.wall_clock.Now();
  const String path = FreeLogPath(device, now, LogExtension(device), &services_.events,
                                  FileName_Date, FileName_No, FolderName);
  const String date = services_.wall_clock.GeneralDate(now);
  if (device.t_LogSaveFormat == kLogFormatSpreadsheet && device.ExcelInstallCheck >= 1) {
    LogTable* const table = TableOf(Output_ch);
    const LogWorkbook workbook{path, date, str_bitrate, hardware_information,
                               table != nullptr ? table->Cells() : std::span<const String>()};
    if (WriteLogWorkbook(objExcel, workbook, device, services_.events) && table != nullptr) {
      Arayy_ALL_Clear_zero_string(kRow_MAX, kColumn_MAX, *table);
    }
    return;
  }
  CsvChannel* const channel = BuilderOf(Output_ch);
  const bool is_written =
      device.t_LogSaveFormat == kLogFormatCsv && WriteCsvFile(path, date, channel);
  if (channel == nullptr) return;
  if (is_written) {
    csv_DB_Initialize(Output_ch, device);
  } else {
    channel->SetAside();
  }
}

void Excel_OutputDB::Session_End_Output(ELM327_Info& device, String& FileName_Date,
                                        String& FileName_No, const String& FolderName) {
  const bool is_spreadsheet = device.t_LogSaveFormat == kLogFormatSpreadsheet;
  if (!is_spreadsheet && device.t_LogSaveFormat != kLogFormatCsv) return;  // never written
  if (is_spreadsheet) csv_DB_Initialize(0, device);  // a spreadsheet log has no csv header yet
  const platform::LocalTime now = services_.wall_clock.Now();
  const std::int32_t current = CurrentCh();
  for (const std::int32_t channel : {3 - current, current}) {
    CsvChannel rows;
    const CsvChannel* records = BuilderOf(channel);
    if (is_spreadsheet) {
      rows = CsvChannel(TableLines(TableOf(channel)->Cells(),
                                   channel == current ? Excel_DB_ArayyCounter : 0,
                                   device.t_msgID_type == kMsgIdType29Bit));
      records = &rows;
    }
    if (channel != current && !records->HasLines()) continue;
    const String path =
        FreeLogPath(device, now, kCsvExtension, nullptr, FileName_Date, FileName_No, FolderName);
    static_cast<void>(WriteCsvFile(path, services_.wall_clock.GeneralDate(now), records));
  }
}

String Excel_OutputDB::FreeLogPath(ELM327_Info& device, const platform::LocalTime& now,
                                   StringView extension, platform::EventLoop* events,
                                   String& FileName_Date, String& FileName_No,
                                   const String& FolderName) {
  String folder = BaseFolder(device.t_LogSaveFilePath_mode, device.t_LogSaveFilePath,
                             device.ExecutableFolder(), services_.files, services_.folders);
  if (device.t_LogSave_subFolder == 1 && !FolderName.empty()) {
    const String subfolder = folder + u'\\' + FolderName;
    if (services_.files.FolderExists(subfolder)) folder = subfolder;
  }
  const ShortText date = DateHourText(now);
  std::int32_t number = 1;
  if (date.View() == FileName_Date) number = FileNumber(FileName_No);
  folder.append(u"\\").append(kLogPrefix).append(date).append(kLogNumberGap);
  NumberedPath found = FindFreePath(services_.files, folder, extension, number, events);
  // Both are set after the yields of the search, so a flush nested in one of those begins at 1 too.
  FileName_Date = date.View();
  FileName_No = FileNumberText(found.number).View();
  return std::move(found.path);
}

bool Excel_OutputDB::WriteCsvFile(StringView path, StringView date, const CsvChannel* channel) {
  const auto stream = services_.files.CreateTextFile(path, true, false);
  return stream != nullptr && stream->Write(LogHeaderTop) && stream->Write(date) &&
         stream->Write(LogHeaderBottom) && (channel == nullptr || channel->WriteTo(*stream)) &&
         stream->Close();
}

}  // namespace tolvane
