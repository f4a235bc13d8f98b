#pragma once

#include <any>
#include <cstddef>
#include <cstdint>

#include "platform/string.h"
#include "run/adapter_kind.h"
#include "run/column.h"

namespace tolvane {

/// A colour as the settings hold it: red in the low byte, then green, then blue.
constexpr std::int32_t Rgb(std::int32_t red, std::int32_t green, std::int32_t blue) {
  return red | green << 8 | blue << 16;
}

constexpr std::int32_t kMsgIdType29Bit = 128;  // t_msgID_type of 29-bit mode

constexpr std::int32_t kLogFormatSpreadsheet = 1;  // t_LogSaveFormat
constexpr std::int32_t kLogFormatCsv = 2;

/// Rows of the settings that are tables, the exclusion ranges and the markers, whatever a highest
/// index says.
constexpr std::int16_t kSettingRows = 8;
using SettingColumn = Column<std::int32_t, kSettingRows>;

constexpr std::int32_t kLogComment_MAX = 50;  // UTF-16 units of t_LogComment and of its box

/// Everything that the user can set, what start-up found out about the machine, and the product's
/// identity. One instance lives as long as the process: `device` of Form1. The settings dialogs,
/// the reader of config.dat, start-up and the device selection write it. The start of a run and the
/// closing of the program write the comment, and BaseFolder of logging replaces a folder that is
/// gone. Without a spreadsheet program start-up sets the log format to csv. Values that come from a
/// settings file are unchecked, so any field may hold anything. run/settings_list.h lists what
/// config.dat keeps, with the defaults. Flags are 0 or 1 and are compared with 1. Times are in
/// milliseconds, ratios in percent.
class ELM327_Info {
 public:
  /// `executable_folder` without a trailing backslash: the default of both folder settings.
  explicit ELM327_Info(String executable_folder);

  // Identity and what start-up found.
  std::int32_t install_version{};  // 100 times the displayed number
  String Application_title;
  String Copy_light;
  String Application_title2;
  String Copy_light2;
  String Homepage_URL;
  std::int32_t ExcelInstallCheck{};     // 0 none, 1 Excel only, 2 Ket only, 3 both
  std::int32_t ExcelInstallVersion{};   // major version of Excel, 0 without it
  std::int32_t AccessInstallCheck{};    // 1 when there is an Access server
  std::int32_t AccessInstallVersion{};  // its major version

  // Communication.
  std::int32_t t_bitRate{};      // 0 to 8, in the order of bit_rate.h: 1M, 800k, ...
  std::int32_t t_msgID_type{};   // 0 11-bit, 128 29-bit
  std::int32_t t_MsgFmtTyp{};    // 0 also 11-bit frames in 29-bit mode, 1 29-bit frames only
  std::int32_t t_silent_mode{};  // 0 acknowledge, 1 silent; Interface and Kvaser only
  std::int32_t t_ViewCaution{};  // 1 shows Pic_Caution while connected
  std::int32_t t_Timer_Mode{};   // 0 the adapter's timer, 1 the computer's clock
  double t_dividend_ratio{};     // 0.1 to 10, applied to the adapter's timer

  // Logs and snapshots.
  std::int32_t t_LogSaveFormat{};         // 1 spreadsheet, 2 comma-separated text
  std::int32_t t_Excel_soft{};            // with both servers present: 1 Excel, 2 Ket
  std::int32_t t_Excel_Format{};          // 1 xls, 2 xlsx
  std::int32_t t_LogSaveFilePath_mode{};  // 0 the executable's folder, 1 desktop, 2 the named one
  String t_LogSaveFilePath;               // without trailing backslash
  std::int32_t t_LogSave_Enable{};
  std::int32_t t_LogSave_subFolder{};  // 1 makes a subfolder per run, named after the comment
  String t_LogComment;                 // at most kLogComment_MAX
  std::int32_t t_SaveFormat{};         // snapshots: 1 rich text, 2 plain text
  std::int32_t t_SaveFilePath_mode{};  // as t_LogSaveFilePath_mode
  String t_SaveFilePath;
  std::int32_t t_Save_ID_DisableMode{};  // 1 excludes from the logs too, not only from the page

  // The selected adapter. Not in the settings file.
  std::any t_Hardware_Driver_Enable;        // nothing reads or writes it
  std::int32_t t_CmbBOX_device_SelectNo{};  // 1-based line of Cmb_Serect_Device
  std::int32_t t_select_Vender{};           // kVenderNone, or of adapter_traits

  // Highlights.
  std::int32_t t_DataChangeColorTime{};  // ms
  std::int32_t t_DataChangeColor{};
  std::int32_t t_DataChangeColorEnable{};
  std::int32_t t_MsgLateColor_Ratio{};
  std::int32_t t_MsgLateColor_Time{};  // ms
  std::int32_t t_MsgLateColor{};
  std::int32_t t_MsgLateColorEnable{};
  std::int32_t t_MsgBlackout_Ratio{};
  std::int32_t t_MsgBlackout_Color{};
  std::int32_t t_MsgBlackout_Enable{};

  // Exclusion ranges and markers; the bounds are highest indices.
  std::int32_t t_DisableID_MAX{};
  std::int32_t t_MsgMarker_MAX{};
  SettingColumn t_DisableID_ON;
  SettingColumn t_DisableID_Start;
  SettingColumn t_DisableID_End;  // inclusive
  SettingColumn t_MsgMarkerID;
  SettingColumn t_MsgMarkerStartByte;  // 1 to 8
  SettingColumn t_MsgMarkerEndByte;
  SettingColumn t_MsgMarkerColor;
  SettingColumn t_MsgMarker_ON;

  /// Writes every default. Called once, at the start of start-up. t_Hardware_Driver_Enable stays.
  void Param_ALL_Clear();

  /// Sets elements 0 to `Arayy_MAX`, the upper bound included; a negative bound sets none.
  template <std::size_t N>
  static void Arayy_ALL_Clear_zero_long(std::int32_t Arayy_MAX, std::int32_t SetValue,
                                        Column<std::int32_t, N>& Arayy) {
    Arayy.Fill(Arayy_MAX, SetValue);
  }

  /// Where the program, its settings files and, by default, its logs live. No trailing backslash.
  [[nodiscard]] const String& ExecutableFolder() const { return executable_folder_; }

 private:
  String executable_folder_;
};

}  // namespace tolvane
