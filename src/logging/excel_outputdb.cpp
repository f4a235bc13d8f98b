#include "logging/excel_outputdb.h"

#include <algorithm>

#include "logging/csv_head.h"
#include "logging/csv_line.h"

namespace tolvane {

Excel_OutputDB::Excel_OutputDB(const LogServices& services) : services_(services) {}

void Excel_OutputDB::Param_ALL_Clear() {
  Excel_DB_ArayyCounter = 0;
  Excel_DB_ArayyCounter_MAX = kRow_MAX;
  Excel_DB_ArayyCh = 1;
  StartTime = 0.0;
  str_bitrate.clear();
  Arayy_ALL_Clear_zero_string(kRow_MAX, kColumn_MAX, Time_ID_DLC_Data1);
  Arayy_ALL_Clear_zero_string(kRow_MAX, kColumn_MAX, Time_ID_DLC_Data2);
}

void Excel_OutputDB::csv_DB_Initialize(std::int32_t cmd_ch, const ELM327_Info& device) {
  if (cmd_ch == 0) {
    LogHeaderTop = device.Application_title;
    LogHeaderTop.append(kCsvCopyrightGap).append(device.Copy_light);
    LogHeaderTop.append(kCsvHomePageGap).append(device.Homepage_URL).append(u"\r\n\r\n");
    LogHeaderBottom = kCsvBitRate;
    LogHeaderBottom += str_bitrate + u"\r\n" + hardware_information + u"\r\n\r\n" +
                       device.t_LogComment + u"\r\n\r\n";
    LogHeaderBottom += device.t_msgID_type == kMsgIdType29Bit ? kCsvColumns29 : kCsvColumns11;
    LogHeaderBottom += u"\r\n";
  }
  if (cmd_ch == 0 || cmd_ch == 1) LogBuilder1.AllClear();
  if (cmd_ch == 0 || cmd_ch == 2) LogBuilder2.AllClear();
}

void Excel_OutputDB::Excel_DataInput(double now_time, std::int32_t can_ID, std::int32_t can_DLC,
                                     std::span<const std::uint8_t, 8> can_DATA,
                                     std::int32_t can_Flag) {
  Excel_DataStore({now_time, can_DLC, can_DATA}, HexID11Text(can_ID), can_Flag);
}

void Excel_OutputDB::Excel_DataInput29(double now_time, std::int32_t can_ID, std::int32_t can_DLC,
                                       std::span<const std::uint8_t, 8> can_DATA,
                                       std::int32_t can_Flag) {
  Excel_DataStore({now_time, can_DLC, can_DATA}, LogID29Text(can_ID), can_Flag);
}

void Excel_OutputDB::csv_DataInput(double now_time, std::int32_t can_ID, std::int32_t can_DLC,
                                   std::span<const std::uint8_t, 8> can_DATA) {
  csv_DataTail(*BuilderOf(CurrentCh()), {now_time, can_DLC, can_DATA}, {},
               HexID11Text<char>(can_ID));
}

void Excel_OutputDB::csv_DataInput29(double now_time, std::int32_t can_ID, std::int32_t can_DLC,
                                     std::span<const std::uint8_t, 8> can_DATA,
                                     std::int32_t can_Flag) {
  const LogRecord record{now_time, can_DLC, can_DATA};
  const std::string_view mark = CsvMark29(can_Flag);
  if (CurrentCh() == 1) {
    csv_DataTail(LogBuilder1, record, mark, LogID29Text<char>(can_ID));
    return;
  }
  // In channel 2 the padding zeros go to channel 1 and appear at the start of its next file. This
  // is kept on purpose: old files have them, and the manual tells readers to skip them.
  const ShortBytes padded = LogID29Text<char>(can_ID);
  const std::size_t count = std::min(padded.View().find_first_not_of('0'), padded.Length() - 1);
  const std::string_view zeros = padded.View().substr(0, count);
  if (char* const at = LogBuilder1.ReserveLine(LogBuilder_MAX)) {
    LogBuilder1.Take(zeros.copy(at, zeros.size()));
  }
  csv_DataTail(LogBuilder2, record, mark, padded.View().substr(count));
}

void Excel_OutputDB::Excel_DataStore(const LogRecord& record, StringView identifier,
                                     std::int32_t can_Flag) {
  LogTable& table = *TableOf(CurrentCh());
  const std::int32_t row = Excel_DB_ArayyCounter;
  table(row, 2) = identifier;
  if (can_Flag == 1) table(row, 1) = u"*";
  table(row, 0) = DecimalText(record.now_time).View();
  table(row, 3) = DecimalText(std::int64_t{record.can_DLC}).View();
  for (std::int32_t i = 0; i < 8; ++i) {
    String& cell = table(row, 4 + i);
    if (i < record.can_DLC) {
      cell = HexByteText(record.can_DATA[static_cast<std::size_t>(i)]).View();
    } else {
      cell.clear();
    }
  }
  ++Excel_DB_ArayyCounter;
}

void Excel_OutputDB::csv_DataTail(CsvChannel& channel, const LogRecord& record,
                                  std::string_view mark, std::string_view identifier) {
  if (char* const at = channel.ReserveLine(LogBuilder_MAX)) {
    channel.Take(WriteCsvLine(record, mark, identifier, at));
  }
  ++Excel_DB_ArayyCounter;
}

}  // namespace tolvane
