#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/automation.h"
#include "platform/code_page.h"
#include "platform/event_loop.h"
#include "platform/file_services.h"
#include "platform/local_time.h"
#include "platform/string.h"
#include "run/elm327_info.h"
#include "view/stringbuilder.h"

namespace tolvane {

/// What the log files are made with.
struct LogServices {
  platform::EventLoop& events;
  platform::FileServices& files;
  platform::SpecialFolders& folders;
  platform::WallClock& wall_clock;
};

/// The log of a run: two channels of 20,001 records. The receive loop fills the current one; when
/// it is full it is written to a new file and the loop goes on in the other.
class Excel_OutputDB {
 public:
  static constexpr std::int32_t kRow_MAX = 20000;
  static constexpr std::int32_t kColumn_MAX = 11;

  explicit Excel_OutputDB(const LogServices& services);

  std::int32_t Excel_DB_ArayyCounter = 0;             // next row, from 0
  std::int32_t Excel_DB_ArayyCounter_MAX = kRow_MAX;  // last row of a channel
  std::int32_t Excel_DB_ArayyCh = 1;                  // current channel, 1 or 2
  double StartTime = 0.0;                             // kept, never used
  String str_bitrate;                                 // such as "500k bps"
  String hardware_information;                        // adapter text of the run

  void Param_ALL_Clear();

  /// Decides the subfolder of a run and makes it. False when a folder could not be made; then
  /// `FolderName` is as it was.
  [[nodiscard]] bool Get_SubFolder_Name(ELM327_Info& device, String& FolderName);

  /// 0 makes both headers from `device` and clears both builders, 1 and 2 clear one of them.
  void csv_DB_Initialize(std::int32_t cmd_ch, const ELM327_Info& device);

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

  /// Writes channel `Output_ch` to a new file. Any error ends the flush without a word.
  /// `objExcel` is null when the run has no spreadsheet server. May yield.
  void Excel_DataOutput(std::int32_t Output_ch, ELM327_Info& device,
                        platform::AutomationObject* objExcel, String& FileName_Date,
                        String& FileName_No, const String& FolderName);

 private:
  LogServices services_;
};

}  // namespace tolvane
