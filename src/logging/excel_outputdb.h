#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "logging/csv_channel.h"
#include "logging/log_record.h"
#include "logging/log_table.h"
#include "platform/automation.h"
#include "platform/event_loop.h"
#include "platform/file_services.h"
#include "platform/local_time.h"
#include "platform/string.h"
#include "run/elm327_info.h"

namespace tolvane {

/// What the log files are made with. Less than Platform, so that a log is seen to touch no adapter
/// and no window, and is tested with these four.
struct LogServices {
  platform::EventLoop& events;
  platform::FileServices& files;
  platform::SpecialFolders& folders;
  platform::WallClock& wall_clock;
};

/// The log of a run: two channels of 20,001 records. The receive loop fills the current one; when
/// it is full RollOver writes it to a new file and the loop goes on in the other.
class Excel_OutputDB {
 public:
  static constexpr std::int32_t kRow_MAX = LogTable::kRow_MAX;
  static constexpr std::int32_t kColumn_MAX = LogTable::kColumn_MAX;

  /// The most characters, each of them a byte, that a channel's csv text may have. It is reached
  /// only when flushes keep failing or the log format is one that is never flushed; lines that do
  /// not fit are dropped. It is reached soonest on a full bus of remote frames of length eight,
  /// whose lines have all data bytes, 64 at most with the 6 zeros of a lost line: 10,638 of them a
  /// second for each channel take 9 minutes, a little less with length codes above eight; in the
  /// x86 program 2, where both channels then use 200 MB of the address space.
  static constexpr std::size_t kLogBuilder_MAX =
      std::size_t{sizeof(void*) == 8 ? 384 : 96} * 1024 * 1024;

  explicit Excel_OutputDB(const LogServices& services);

  std::int32_t Excel_DB_ArayyCounter = 0;             // next row, from 0
  std::int32_t Excel_DB_ArayyCounter_MAX = kRow_MAX;  // last row of a channel
  std::int32_t Excel_DB_ArayyCh = 1;                  // current channel, 1 or 2
  std::size_t LogBuilder_MAX = kLogBuilder_MAX;       // longest csv text of a channel
  double StartTime = 0.0;                             // kept, never used
  String str_bitrate;                                 // such as "500k bps"
  String hardware_information;                        // adapter text of the run

  /// Clears counters and record tables; headers and csv texts are not touched.
  void Param_ALL_Clear();

  /// Blanks rows 0 to `Arayy1_MAX`, columns 0 to `Arayy2_MAX`.
  static void Arayy_ALL_Clear_zero_string(std::int32_t Arayy1_MAX, std::int32_t Arayy2_MAX,
                                          LogTable& Arayy) {
    Arayy.Clear(Arayy1_MAX, Arayy2_MAX);
  }

  /// Decides the subfolder of a run and makes it. False when a folder could not be made;
  /// `FolderName` is then unchanged.
  [[nodiscard]] bool Get_SubFolder_Name(ELM327_Info& device, String& FolderName);

  /// 0 makes both headers from `device` and clears both builders, 1 and 2 clear one of them,
  /// anything else does nothing.
  void csv_DB_Initialize(std::int32_t cmd_ch, const ELM327_Info& device);

  /// Takes the memory of both csv channels, so that a run does not touch it for the first time
  /// while frames wait in the adapter.
  void csv_TakeMemory() {
    LogBuilder1.TakeMemory();
    LogBuilder2.TakeMemory();
  }

  /// Stores one record in the current channel and advances the counter. `now_time` is the message
  /// time in ms; `can_Flag` is 1 for an extended frame.
  void Excel_DataInput(double now_time, std::int32_t can_ID, std::int32_t can_DLC,
                       std::span<const std::uint8_t, 8> can_DATA, std::int32_t can_Flag);
  void Excel_DataInput29(double now_time, std::int32_t can_ID, std::int32_t can_DLC,
                         std::span<const std::uint8_t, 8> can_DATA, std::int32_t can_Flag);
  void csv_DataInput(double now_time, std::int32_t can_ID, std::int32_t can_DLC,
                     std::span<const std::uint8_t, 8> can_DATA);
  void csv_DataInput29(double now_time, std::int32_t can_ID, std::int32_t can_DLC,
                       std::span<const std::uint8_t, 8> can_DATA, std::int32_t can_Flag);

  /// Writes channel `Output_ch` to a new file. Any error ends the flush silently: a csv channel
  /// then keeps its records for the next flush, a spreadsheet table is overwritten from its first
  /// row. `objExcel` is null when the run has no spreadsheet server. Yields once for each taken
  /// file name, and once before the save of a workbook.
  void Excel_DataOutput(std::int32_t Output_ch, ELM327_Info& device,
                        platform::AutomationObject* objExcel, String& FileName_Date,
                        String& FileName_No, const String& FolderName);

  /// Called after each record. When the current channel is full, writes it with Excel_DataOutput
  /// and switches to the other channel, whether or not the writing succeeded.
  void RollOver(ELM327_Info& device, platform::AutomationObject* objExcel, String& FileName_Date,
                String& FileName_No, const String& FolderName) {
    if (Excel_DB_ArayyCounter <= Excel_DB_ArayyCounter_MAX) return;
    Excel_DB_ArayyCounter = 0;
    const std::int32_t full = CurrentCh();
    Excel_DataOutput(full, device, objExcel, FileName_Date, FileName_No, FolderName);
    Excel_DB_ArayyCh = 3 - full;  // the other of 1 and 2
  }

  /// Writes the current channel to a new csv file, whatever the log's format, because the process
  /// is about to be ended from outside. Does not yield and does not call the spreadsheet server,
  /// which may be in the middle of a flush or already gone. If the other channel still has records
  /// from a failed flush, they are written first, to a separate file. Clears nothing.
  void Session_End_Output(ELM327_Info& device, String& FileName_Date, String& FileName_No,
                          const String& FolderName);

 private:
  void Excel_DataStore(const LogRecord& record, StringView identifier, std::int32_t can_Flag);
  void csv_DataTail(CsvChannel& channel, const LogRecord& record, std::string_view mark,
                    std::string_view identifier);

  /// Yields by `events`, or not at all when that is null.
  [[nodiscard]] String FreeLogPath(ELM327_Info& device, const platform::LocalTime& now,
                                   StringView extension, platform::EventLoop* events,
                                   String& FileName_Date, String& FileName_No,
                                   const String& FolderName);
  /// Null for a channel that does not exist: headers alone.
  [[nodiscard]] bool WriteCsvFile(StringView path, StringView date, const CsvChannel* channel);
  /// 1 or 2, whatever Excel_DB_ArayyCh holds.
  [[nodiscard]] std::int32_t CurrentCh() const { return Excel_DB_ArayyCh == 1 ? 1 : 2; }
  /// Table or builder of channel 1 or 2, null for any other. Inline: every record asks.
  [[nodiscard]] LogTable* TableOf(std::int32_t Output_ch) {
    if (Output_ch == 1) return &Time_ID_DLC_Data1;
    return Output_ch == 2 ? &Time_ID_DLC_Data2 : nullptr;
  }
  [[nodiscard]] CsvChannel* BuilderOf(std::int32_t Output_ch) {
    if (Output_ch == 1) return &LogBuilder1;
    return Output_ch == 2 ? &LogBuilder2 : nullptr;
  }

  LogTable Time_ID_DLC_Data1;
  LogTable Time_ID_DLC_Data2;
  String LogHeaderTop;     // up to the date of a flush
  String LogHeaderBottom;  // after the date
  CsvChannel LogBuilder1;
  CsvChannel LogBuilder2;
  LogServices services_;
};

}  // namespace tolvane
