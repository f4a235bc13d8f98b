#include "config/filesavesystem.h"

#include <utility>

#include "config/configfilerecord.h"
#include "run/number_text.h"

namespace tolvane::FileSaveSystem {

namespace {

constexpr std::int32_t kOldestVersion = 121;  // older files are refused without a question

String ConfigPath(const ELM327_Info& device) { return device.ExecutableFolder() + u"\\config.dat"; }
String ViewListPath(const ELM327_Info& device) {
  return device.ExecutableFolder() + u"\\lglist.dat";
}

/// The settings of the file; whose file it was is not taken over.
void TakeOver(ELM327_Info read, ELM327_Info& device) {
  read.Application_title = device.Application_title;
  read.Copy_light = device.Copy_light;
  read.install_version = device.install_version;
  device = std::move(read);
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

bool IsAccepted(const ELM327_Info& read, const ELM327_Info& device,
                platform::MessageBox& message_box) {
  if (read.Copy_light.find(device.Copy_light2) == String::npos) return false;
  if (read.Application_title.find(device.Application_title2) == String::npos) return false;
  if (read.install_version < kOldestVersion) return false;
  return read.install_version >= device.install_version ||
         UserTakesOver(read.install_version, device, message_box);
}

}  // namespace

std::int32_t LoadConfigFile(ELM327_Info& device, platform::FileServices& files,
                            platform::CodePage& code_page, platform::MessageBox& message_box) {
  const String path = ConfigPath(device);
  if (!files.FileExists(path)) return kConfigMissing;
  const auto file = files.ReadBinary(path, kConfigFileRecord_MAX);
  if (!file) return kConfigMissing;
  ELM327_Info read = device;
  DecodeConfigFileRecord(file->bytes, code_page, read);
  const bool accepted = IsAccepted(read, device, message_box);
  if (accepted) TakeOver(std::move(read), device);
  if (!file->closed) return accepted ? kConfigLateError : kConfigMissing;
  if (accepted) return kConfigLoaded;
  return files.DeleteFile(path, true) ? kConfigRefused : kConfigMissing;
}

std::int32_t SaveConfigFile(const ELM327_Info& device, platform::FileServices& files,
                            platform::CodePage& code_page) {
  if (!files.FolderExists(device.ExecutableFolder())) return kConfigSaved;
  const auto bytes = EncodeConfigFileRecord(device, code_page);
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
