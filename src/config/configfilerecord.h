#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/code_page.h"
#include "platform/string.h"

namespace tolvane {

/// The one record that config.dat holds, its fields in the order of the file.
///
/// In the file the record is packed and little-endian, without padding, from byte 0:
///   number   4 bytes, two's complement
///   ratio    8 bytes, IEEE 754 double
///   text     2 bytes unsigned: count of the bytes that follow; then these bytes, in the system
///            code page, without terminator
///   table    8 numbers
/// 382 bytes and the bytes of five texts in all.
struct ConfigFileRecord {
  using Table = std::array<std::int32_t, 8>;

  String Application_title;
  String Copy_light;
  std::int32_t t_SaveFormat = 0;
  std::int32_t t_Save_ID_DisableMode = 0;
  std::int32_t reserved = 0;  // 1 in every file, never read
  std::int32_t install_version = 0;
  std::int32_t t_bitRate = 0;
  std::int32_t t_msgID_type = 0;
  std::int32_t t_MsgFmtTyp = 0;
  std::int32_t t_silent_mode = 0;
  std::int32_t t_ViewCaution = 0;
  std::int32_t t_Timer_Mode = 0;
  std::int32_t t_DataChangeColorTime = 0;
  std::int32_t t_DataChangeColor = 0;
  std::int32_t t_DataChangeColorEnable = 0;
  std::int32_t t_MsgLateColor_Ratio = 0;
  std::int32_t t_MsgLateColor_Time = 0;
  std::int32_t t_MsgLateColor = 0;
  std::int32_t t_MsgLateColorEnable = 0;
  std::int32_t t_MsgBlackout_Ratio = 0;
  std::int32_t t_MsgBlackout_Color = 0;
  std::int32_t t_MsgBlackout_Enable = 0;
  Table t_DisableID_ON{};
  Table t_DisableID_Start{};
  Table t_DisableID_End{};
  Table t_MsgMarker_ON{};
  Table t_MsgMarkerID{};
  Table t_MsgMarkerStartByte{};
  Table t_MsgMarkerEndByte{};
  Table t_MsgMarkerColor{};
  std::int32_t t_SaveFilePath_mode = 0;
  String t_SaveFilePath;
  std::int32_t t_LogSaveFormat = 0;
  std::int32_t t_Excel_Format = 0;
  std::int32_t t_Excel_soft = 0;
  std::int32_t t_LogSaveFilePath_mode = 0;
  String t_LogSaveFilePath;
  std::int32_t t_LogSave_Enable = 0;
  std::int32_t t_LogSave_subFolder = 0;
  String t_LogComment;
  double t_dividend_ratio = 0.0;

  friend bool operator==(const ConfigFileRecord&, const ConfigFileRecord&) = default;
};

constexpr std::size_t kConfigText_MAX = 65535;  // bytes
constexpr std::size_t kConfigFileRecord_MAX = 382 + 5 * kConfigText_MAX;

/// A text that takes more than kConfigText_MAX bytes is cut behind a whole character.
[[nodiscard]] std::vector<std::byte> EncodeConfigFileRecord(const ConfigFileRecord& record,
                                                            platform::CodePage& code_page);

/// Never fails: from the first field on that is not there whole, numbers are 0 and texts empty.
/// What lies behind the record is not looked at.
[[nodiscard]] ConfigFileRecord DecodeConfigFileRecord(std::span<const std::byte> bytes,
                                                      platform::CodePage& code_page);

}  // namespace tolvane
