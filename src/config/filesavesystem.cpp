#include "config/filesavesystem.h"

#include <algorithm>
#include <limits>

#include "config/configfilerecord.h"
#include "run/number_text.h"

namespace tolvane::FileSaveSystem {

namespace {

constexpr std::int32_t kOldestVersion = 121;  // older files are refused without a question

String ConfigPath(const ELM327_Info& device) { return device.ExecutableFolder() + u"\\config.dat"; }
String ViewListPath(const ELM327_Info& device) {
  return device.ExecutableFolder() + u"\\lglist.dat";
}

void CopyTable(const Column<std::int32_t, 8>& from, std::int32_t highest,
               ConfigFileRecord::Table& to) {
  for (std::int16_t i = 0; i <= std::min(highest, 7); ++i) {
    to[static_cast<std::size_t>(i)] = from(i);
  }
}

void CopyTable(const ConfigFileRecord::Table& from, std::int32_t highest,
               Column<std::int32_t, 8>& to) {
  for (std::int16_t i = 0; i <= std::min(highest, 7); ++i) {
    to(i, from[static_cast<std::size_t>(i)]);
  }
}

/// `from` and `to` are the settings and the record, in either direction.
template <typename From, typename To>
void CopyTables(const From& from, std::int32_t t_DisableID_MAX, std::int32_t t_MsgMarker_MAX,
                To& to) {
  CopyTable(from.t_DisableID_ON, t_DisableID_MAX, to.t_DisableID_ON);
  CopyTable(from.t_DisableID_Start, t_DisableID_MAX, to.t_DisableID_Start);
  CopyTable(from.t_DisableID_End, t_DisableID_MAX, to.t_DisableID_End);
  CopyTable(from.t_MsgMarker_ON, t_MsgMarker_MAX, to.t_MsgMarker_ON);
  CopyTable(from.t_MsgMarkerID, t_MsgMarker_MAX, to.t_MsgMarkerID);
  CopyTable(from.t_MsgMarkerStartByte, t_MsgMarker_MAX, to.t_MsgMarkerStartByte);
  CopyTable(from.t_MsgMarkerEndByte, t_MsgMarker_MAX, to.t_MsgMarkerEndByte);
  CopyTable(from.t_MsgMarkerColor, t_MsgMarker_MAX, to.t_MsgMarkerColor);
}

/// The settings that every accepted file holds, in either direction.
template <typename From, typename To>
void CopySettings(const From& from, To& to) {
  to.t_SaveFormat = from.t_SaveFormat;
  to.t_Save_ID_DisableMode = from.t_Save_ID_DisableMode;
  to.t_bitRate = from.t_bitRate;
  to.t_msgID_type = from.t_msgID_type;
  to.t_silent_mode = from.t_silent_mode;
  to.t_ViewCaution = from.t_ViewCaution;
  to.t_DataChangeColorTime = from.t_DataChangeColorTime;
  to.t_DataChangeColor = from.t_DataChangeColor;
  to.t_DataChangeColorEnable = from.t_DataChangeColorEnable;
  to.t_MsgLateColor_Ratio = from.t_MsgLateColor_Ratio;
  to.t_MsgLateColor_Time = from.t_MsgLateColor_Time;
  to.t_MsgLateColor = from.t_MsgLateColor;
  to.t_MsgLateColorEnable = from.t_MsgLateColorEnable;
  to.t_MsgBlackout_Ratio = from.t_MsgBlackout_Ratio;
  to.t_MsgBlackout_Color = from.t_MsgBlackout_Color;
  to.t_MsgBlackout_Enable = from.t_MsgBlackout_Enable;
  to.t_SaveFilePath_mode = from.t_SaveFilePath_mode;
  to.t_SaveFilePath = from.t_SaveFilePath;
  to.t_LogSaveFormat = from.t_LogSaveFormat;
  to.t_LogSaveFilePath_mode = from.t_LogSaveFilePath_mode;
  to.t_LogSaveFilePath = from.t_LogSaveFilePath;
  to.t_LogSave_Enable = from.t_LogSave_Enable;
  to.t_LogComment = from.t_LogComment;
  to.t_LogSave_subFolder = from.t_LogSave_subFolder;
}

/// The settings that came with later versions, in either direction, as far as `version` has them.
template <typename From, typename To>
void CopyLaterSettings(const From& from, std::int32_t version, To& to) {
  if (version >= 115) to.t_Excel_soft = from.t_Excel_soft;
  if (version >= 116) to.t_MsgFmtTyp = from.t_MsgFmtTyp;
  if (version >= 119) to.t_Timer_Mode = from.t_Timer_Mode;
  if (version >= 121) to.t_Excel_Format = from.t_Excel_Format;
  if (version >= 122) to.t_dividend_ratio = from.t_dividend_ratio;
}

ConfigFileRecord RecordOf(const ELM327_Info& device) {
  ConfigFileRecord record;
  record.Application_title = device.Application_title;
  record.Copy_light = device.Copy_light;
  record.reserved = 1;
  record.install_version = device.install_version;
  CopySettings(device, record);
  CopyTables(device, device.t_DisableID_MAX, device.t_MsgMarker_MAX, record);
  CopyLaterSettings(device, std::numeric_limits<std::int32_t>::max(), record);
  return record;
}

void TakeOver(const ConfigFileRecord& record, ELM327_Info& device) {
  CopySettings(record, device);
  CopyTables(record, device.t_DisableID_MAX, device.t_MsgMarker_MAX, device);
  CopyLaterSettings(record, record.install_version, device);
}

String VersionText(std::int32_t version) {
  return String(DecimalText(static_cast<double>(version) / 100.0).View());
}

bool UserTakesOver(std::int32_t file_version, const ELM327_Info& device,
                   platform::MessageBox& message_box) {
  return message_box.AskYesNo(
      u"古いバージョンの設定データを検出しました。データを引き継ぎますか？\r\n"
      u"ソフトのバージョン：" +
          VersionText(device.install_version) +
          u"\r\n"
          u"設定データのバージョン：" +
          VersionText(file_version),
      device.Application_title2);
}

bool IsAccepted(const ConfigFileRecord& record, const ELM327_Info& device,
                platform::MessageBox& message_box) {
  if (record.Copy_light.find(device.Copy_light2) == String::npos) return false;
  if (record.Application_title.find(device.Application_title2) == String::npos) return false;
  if (record.install_version < kOldestVersion) return false;
  return record.install_version >= device.install_version ||
         UserTakesOver(record.install_version, device, message_box);
}

}  // namespace

std::int32_t LoadConfigFile(ELM327_Info& device, platform::FileServices& files,
                            platform::CodePage& code_page, platform::MessageBox& message_box) {
  const String path = ConfigPath(device);
  if (!files.FileExists(path)) return kConfigMissing;
  const auto read = files.ReadBinary(path, kConfigFileRecord_MAX);
  if (!read) return kConfigMissing;
  const ConfigFileRecord record = DecodeConfigFileRecord(read->bytes, code_page);
  const bool accepted = IsAccepted(record, device, message_box);
  if (accepted) TakeOver(record, device);
  if (!read->closed) return accepted ? kConfigLateError : kConfigMissing;
  if (accepted) return kConfigLoaded;
  return files.DeleteFile(path, true) ? kConfigRefused : kConfigMissing;
}

std::int32_t SaveConfigFile(const ELM327_Info& device, platform::FileServices& files,
                            platform::CodePage& code_page) {
  if (!files.FolderExists(device.ExecutableFolder())) return kConfigSaved;
  const auto bytes = EncodeConfigFileRecord(RecordOf(device), code_page);
  return files.WriteBinary(ConfigPath(device), bytes) ? kConfigSaved : kConfigSaveError;
}

void SaveViewList(const ELM327_Info& device, platform::FileServices& files,
                  platform::RichTextView& RTB_MainView) {
  const String& folder = device.ExecutableFolder();
  if (folder.empty() || !files.FolderExists(folder)) return;
  // A failure keeps the old file, and closing goes on.
  (void)RTB_MainView.SaveFile(ViewListPath(device), platform::RichTextView::FileFormat::kRichText);
}

void LoadViewList(const ELM327_Info& device, platform::FileServices& files,
                  platform::RichTextView& RTB_MainView) {
  const String& folder = device.ExecutableFolder();
  if (folder.empty() || !files.FolderExists(folder)) return;
  const String path = ViewListPath(device);
  // A failure leaves the view as it was built.
  if (files.FileExists(path)) (void)RTB_MainView.LoadFile(path);
}

}  // namespace tolvane::FileSaveSystem
