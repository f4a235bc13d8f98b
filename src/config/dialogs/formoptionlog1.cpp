#include "config/dialogs/formoptionlog1.h"

#include "config/dialogs/setting_pairs.h"
#include "run/number_text.h"

namespace tolvane {

namespace {

constexpr OptionValues<2> kSnapshotFormats{{2, 1}};
constexpr OptionValues<2> kLogFormats{{kLogFormatSpreadsheet, kLogFormatCsv}};
constexpr OptionValues<2> kExcelFormats{{1, 2}};
constexpr OptionValues<3> kFolderModes{{0, 1, 2}};
constexpr CheckValues kEnable;
constexpr CheckValues kSecondServer{.on = 2, .off = 1};
constexpr AsItStands kPath;

template <typename Form, typename Device, typename Way>
void EachPair(Form& form, Device& device, const Way& way) {
  way(form.RB_SV_Format, device.t_SaveFormat, kSnapshotFormats);
  way(form.RB_Excel_Format, device.t_Excel_Format, kExcelFormats);
  way(form.RB_SaveFilePath, device.t_SaveFilePath_mode, kFolderModes);
  way(form.TB_SaveFilePath, device.t_SaveFilePath, kPath);
  way(form.CB_LogFile_Enable, device.t_LogSave_Enable, kEnable);
  way(form.RB_LogSV_Format, device.t_LogSaveFormat, kLogFormats);
  way(form.RB_LogSaveFilePath, device.t_LogSaveFilePath_mode, kFolderModes);
  way(form.TB_LogSaveFilePath, device.t_LogSaveFilePath, kPath);
  way(form.CB_LogSave_subFolder, device.t_LogSave_subFolder, kEnable);
  way(form.CB_Excel_soft_KO, device.t_Excel_soft, kSecondServer);
}

// Bits of an attribute value: read-only, hidden, system, folder, archive. All others tell of
// storage, such as that of a synchronised or compressed folder, and say nothing about its use.
constexpr std::int32_t kAttributesLookedAt = 1 + 2 + 4 + 16 + 32;
constexpr std::int32_t kPlainFolder = 16;

struct OfficeVersion {
  std::int32_t at_least;
  StringView year;
};
constexpr OfficeVersion kOfficeVersions[] = {{16, u"2016"}, {15, u"2013"}, {14, u"2010"},
                                             {12, u"2007"}, {11, u"2003"}, {10, u"2002"},
                                             {9, u"2000"}};

String VersionName(StringView product, std::int32_t version) {
  for (const OfficeVersion& row : kOfficeVersions) {
    if (version >= row.at_least) return String(product).append(row.year);
  }
  return String(DecimalText(std::int64_t{version}));
}

void ShowInstalled(bool installed, TextControl& status) {
  status.text = installed ? u" OK" : u" NG";
  status.colour = installed ? Rgb(0, 160, 11) : Rgb(255, 0, 0);
}

void EnableLogControls(bool enabled, const ELM327_Info& device, FormOptionLog1& form) {
  form.GB_LogSave_Format.enabled = enabled;
  form.GB_LogSave_path.enabled = enabled;
  form.GB_Excel_Format.enabled = enabled;
  for (Choice& button : form.RB_Excel_Format) button.enabled = enabled;
  form.RB_LogSV_Format[0].enabled = enabled && device.ExcelInstallCheck >= 1;
  form.RB_LogSV_Format[1].enabled = enabled;
  for (Choice& button : form.RB_LogSaveFilePath) button.enabled = enabled;
  form.TB_LogSaveFilePath.enabled = enabled;
}

void TakeDroppedFolder(std::span<const String> paths, platform::FileServices& files,
                       TextControl& box) {
  if (paths.empty()) return;
  StringView path = paths.front();
  const auto attributes = files.Attributes(path);
  if (!attributes) return;
  if ((*attributes & kAttributesLookedAt) != kPlainFolder) {
    const auto name = path.rfind(u'\\');
    if (name != StringView::npos) path = path.substr(0, name + 1);
  }
  if (path.ends_with(u'\\')) path.remove_suffix(1);
  box.text = String(path);
}

}  // namespace

void FormOptionLog1::read_setting(const ELM327_Info& device) {
  Caption = device.Application_title + u"　　- ログ機能 -";

  const bool access = device.AccessInstallCheck == 1;
  ShowInstalled(access, TB_Access_Status);
  TB_Access_Ver.text = access ? VersionName(u"Access", device.AccessInstallVersion) : u"---";
  const bool excel = device.ExcelInstallCheck == 1 || device.ExcelInstallCheck == 3;
  ShowInstalled(excel, TB_Excel_Status);
  TB_Excel_Ver.text = excel ? VersionName(u"Excel", device.ExcelInstallVersion) : u"---";
  ShowInstalled(device.ExcelInstallCheck == 2 || device.ExcelInstallCheck == 3, TB_Excel_Status2);

  EachPair(*this, device, kShow);
  EnableLogControls(CB_LogFile_Enable.checked, device, *this);
  // Without a server there is only the text format, whatever the setting.
  if (device.ExcelInstallCheck < 1) RB_LogSV_Format[0].checked = false;
  if (device.ExcelInstallCheck == 0) RB_LogSV_Format[1].checked = true;
}

void FormOptionLog1::CB_LogFile_Enable_Click(const ELM327_Info& device) {
  EnableLogControls(CB_LogFile_Enable.checked, device, *this);
  CB_LogSave_subFolder.enabled = CB_LogFile_Enable.checked;
  CB_Excel_soft_KO.enabled = CB_LogFile_Enable.checked;
}

void FormOptionLog1::Folder_Drop(std::span<const String> paths, platform::FileServices& files) {
  TakeDroppedFolder(paths, files, TB_SaveFilePath);
}

void FormOptionLog1::Log_Folder_Drop(std::span<const String> paths, platform::FileServices& files) {
  TakeDroppedFolder(paths, files, TB_LogSaveFilePath);
}

void FormOptionLog1::Img_save_folder_Click(platform::FolderDialog& dialog,
                                           platform::FileServices& files) {
  if (const auto folder = dialog.ShowFolder(TB_SaveFilePath.text)) {
    Folder_Drop({&*folder, 1}, files);
  }
}

void FormOptionLog1::Img_Log_save_folder_Click(platform::FolderDialog& dialog,
                                               platform::FileServices& files) {
  if (const auto folder = dialog.ShowFolder(TB_LogSaveFilePath.text)) {
    Log_Folder_Drop({&*folder, 1}, files);
  }
}

void FormOptionLog1::Bt_OK_Click(ELM327_Info& device) const { EachPair(*this, device, kTake); }

}  // namespace tolvane
