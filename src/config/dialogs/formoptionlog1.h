#pragma once

#include <array>
#include <span>

#include "config/dialogs/dialog_controls.h"
#include "platform/file_services.h"
#include "platform/folder_dialog.h"
#include "run/elm327_info.h"

namespace tolvane {

/// How snapshots and logs are stored, and which office software start-up found.
struct FormOptionLog1 {
  String Caption;
  std::array<Choice, 2> RB_SV_Format;  // 0 plain text, 1 rich text
  std::array<Choice, 3> RB_SaveFilePath;
  TextControl TB_SaveFilePath;
  Choice CB_LogFile_Enable;
  GroupBox GB_LogSave_Format;
  std::array<Choice, 2> RB_LogSV_Format;  // 0 spreadsheet, 1 comma-separated
  GroupBox GB_Excel_Format;
  std::array<Choice, 2> RB_Excel_Format;  // 0 xls, 1 xlsx
  GroupBox GB_LogSave_path;
  std::array<Choice, 3> RB_LogSaveFilePath;
  TextControl TB_LogSaveFilePath;
  Choice CB_LogSave_subFolder;
  Choice CB_Excel_soft_KO;
  TextControl TB_Excel_Status;
  TextControl TB_Excel_Ver;
  TextControl TB_Excel_Status2;
  TextControl TB_Access_Status;
  TextControl TB_Access_Ver;

  /// Fills every control. CB_LogSave_subFolder and CB_Excel_soft_KO keep their enabled state: they
  /// follow the log box only once it has been clicked.
  void read_setting(const ELM327_Info& device);

  /// A real click of the user, after which CB_LogFile_Enable has its new state.
  void CB_LogFile_Enable_Click(const ELM327_Info& device);

  /// The first of the dropped paths fills the box: a plain folder itself, anything else (a file, a
  /// folder with a further attribute) its parent. Nothing dropped or no such path leaves the box.
  void Folder_Drop(std::span<const String> paths, platform::FileServices& files);
  void Log_Folder_Drop(std::span<const String> paths, platform::FileServices& files);

  /// A click on either picture beside a box: the folder that the user chooses fills the box as a
  /// dropped one would.
  void Img_save_folder_Click(platform::FolderDialog& dialog, platform::FileServices& files);
  void Img_Log_save_folder_Click(platform::FolderDialog& dialog, platform::FileServices& files);

  /// Writes every control as it stands.
  void Bt_OK_Click(ELM327_Info& device) const;
};

}  // namespace tolvane
