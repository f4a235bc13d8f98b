#include "platform/windows/dialogs/formoptionlog1_window.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include <tolvane_control_ids.h>
#include "platform/windows/dialogs/dialog_picture.h"
#include "platform/windows/system/text.h"
#include "platform/windows/window_parts/tool_tips.h"

namespace tolvane::platform::windows {
namespace {

using enum PartKind;

// Snapshots in the left column, logs in the right one; units of 96 dpi.
constexpr int kTop = 12;
constexpr int kInside = 12;
constexpr int kHead = 24;
constexpr int kStep = 24;
constexpr int kColumnWidth = 336;
constexpr int kInsideWidth = kColumnWidth - 2 * kInside;
constexpr int kLeftColumn = 12;
constexpr int kRightColumn = kLeftColumn + kColumnWidth + 12;
constexpr int kWidth = kRightColumn + kColumnWidth + 12;
constexpr int kLeftInside = kLeftColumn + kInside;
constexpr int kRightInside = kRightColumn + kInside;

constexpr int kTwoLines = kHead + 2 * kStep + 4;  // heights of groups
constexpr int kOneLine = kHead + kStep + 4;
constexpr int kPictureSize = id::PICTURE_FOLDER_SIZE;
static_assert(id::PICTURE_FOLDER_PATH_SIZE == kPictureSize);
constexpr int kPathGroup = kHead + 3 * kStep + 4 + kPictureSize + 12;
constexpr int kPicture2 = kPictureSize + 6;  // from the first picture's left edge
constexpr int kPathBox = 2 * kPicture2;
constexpr int kPathBoxWidth = kInsideWidth - kPathBox;
constexpr int kPathLine = kHead + 3 * kStep + 4;
constexpr int kPathBoxLine = kPathLine + (kPictureSize - kLine) / 2;

constexpr int kSnapshotFormat = kTop;
constexpr int kSnapshotPath = kSnapshotFormat + kTwoLines + 8;
constexpr int kLogEnable = kTop;
constexpr int kLogFormat = kLogEnable + kLine + 8;
constexpr int kExcelFormat = kLogFormat + kTwoLines + 8;
constexpr int kExcelSoft = kExcelFormat + kOneLine + 6;
constexpr int kLogPath = kExcelSoft + kLine + 8;
constexpr int kSubFolder = kLogPath + kPathGroup + 6;
constexpr int kBottom = kSubFolder + kLine;
constexpr int kHeight = kBottom + 16 + kButtonHeight + 12;

constexpr int kStatusLabel = 216;
constexpr int kStatusLeft = kLeftInside + kStatusLabel;
constexpr int kStatusWidth = 30;
constexpr int kVersion = kStatusLeft + kStatusWidth;
constexpr int kVersionWidth = kInsideWidth - kStatusLabel - kStatusWidth;
constexpr int kStatusTop = kBottom - 3 * kStep;
constexpr int kXlsWidth = 116;

constexpr DialogPart kSnapshotParts[] = {
    {kNoId, kGroup, L"スナップショットの形式", kLeftColumn, kSnapshotFormat, kColumnWidth,
     kTwoLines},
    {id::RB_SV_Format_1, kFirstRadio, L"リッチテキスト形式で保存 (.rtf)", kLeftInside,
     kSnapshotFormat + kHead, kInsideWidth, kLine},
    {id::RB_SV_Format_0, kRadio, L"テキスト形式で保存 （.txt）", kLeftInside,
     kSnapshotFormat + kHead + kStep, kInsideWidth, kLine},
    {kNoId, kGroup, L"スナップショットの保存先", kLeftColumn, kSnapshotPath, kColumnWidth,
     kPathGroup},
    {id::RB_SaveFilePath_0, kFirstRadio, L"実行ファイルのフォルダ内", kLeftInside,
     kSnapshotPath + kHead, kInsideWidth, kLine},
    {id::RB_SaveFilePath_1, kRadio, L"デスクトップ上", kLeftInside, kSnapshotPath + kHead + kStep,
     kInsideWidth, kLine},
    {id::RB_SaveFilePath_2, kRadio, L"指定したフォルダ", kLeftInside,
     kSnapshotPath + kHead + 2 * kStep, kInsideWidth, kLine},
    {id::Img_save_folder, kPicture, L"", kLeftInside, kSnapshotPath + kPathLine, kPictureSize,
     kPictureSize, L"スナップショットの保存先のフォルダを選ぶ"},
    {id::Img_save_folder_path, kPicture, L"", kLeftInside + kPicture2, kSnapshotPath + kPathLine,
     kPictureSize, kPictureSize, L"スナップショットの保存先のフォルダを選ぶ"},
    {id::TB_SaveFilePath, kTextBox, L"", kLeftInside + kPathBox, kSnapshotPath + kPathBoxLine,
     kPathBoxWidth, kLine, L"スナップショットの保存先のフォルダ"},
    {kNoId, kLabel, L"Excelインストール ・・・", kLeftInside, kStatusTop, kStatusLabel, kLine},
    {id::TB_Excel_Status, kStatus, L"", kStatusLeft, kStatusTop, kStatusWidth, kLine},
    {id::TB_Excel_Ver, kStatus, L"", kVersion, kStatusTop, kVersionWidth, kLine,
     L"Excelのバージョン"},
    {kNoId, kLabel, L"Kingsoft Officeインストール ・・・", kLeftInside, kStatusTop + kStep,
     kStatusLabel, kLine},
    {id::TB_Excel_Status2, kStatus, L"", kStatusLeft, kStatusTop + kStep, kStatusWidth, kLine},
    {kNoId, kLabel, L"Accessインストール ・・・", kLeftInside, kStatusTop + 2 * kStep, kStatusLabel,
     kLine},
    {id::TB_Access_Status, kStatus, L"", kStatusLeft, kStatusTop + 2 * kStep, kStatusWidth, kLine},
    {id::TB_Access_Ver, kStatus, L"", kVersion, kStatusTop + 2 * kStep, kVersionWidth, kLine,
     L"Accessのバージョン"},
};

constexpr DialogPart kLogParts[] = {
    {id::CB_LogFile_Enable, kCheck, L"ログファイルを保存する", kRightInside, kLogEnable,
     kInsideWidth, kLine},
    {id::GB_LogSave_Format, kGroup, L"ログファイルの形式", kRightColumn, kLogFormat, kColumnWidth,
     kTwoLines},
    {id::RB_LogSV_Format_0, kFirstRadio, L"Excel形式で保存", kRightInside, kLogFormat + kHead,
     kInsideWidth, kLine},
    {id::RB_LogSV_Format_1, kRadio, L"テキスト形式で保存 （.csv）", kRightInside,
     kLogFormat + kHead + kStep, kInsideWidth, kLine},
    {id::RB_LogSV_Format_2, kLeftover, L"Access形式で保存 （.mdb）", kRightInside,
     kLogFormat + kHead, kInsideWidth, kLine},
    {id::RB_LogSV_Format_3, kLeftover, L"Access形式で保存 （.mdb）", kRightInside,
     kLogFormat + kHead, kInsideWidth, kLine},
    {id::GB_Excel_Format, kGroup, L"Excelフォーマット", kRightColumn, kExcelFormat, kColumnWidth,
     kOneLine},
    {id::RB_Excel_Format_0, kFirstRadio, L"xls形式", kRightInside, kExcelFormat + kHead, kXlsWidth,
     kLine},
    {id::RB_Excel_Format_1, kRadio, L"xlsx形式 （2007以降）", kRightInside + kXlsWidth,
     kExcelFormat + kHead, kInsideWidth - kXlsWidth, kLine},
    {id::CB_Excel_soft_KO, kCheck, L"Kingsoft Officeを使用する", kRightInside, kExcelSoft,
     kInsideWidth, kLine},
    {id::GB_LogSave_path, kGroup, L"ログファイルの保存先", kRightColumn, kLogPath, kColumnWidth,
     kPathGroup},
    {id::RB_LogSaveFilePath_0, kFirstRadio, L"実行ファイルのフォルダ内", kRightInside,
     kLogPath + kHead, kInsideWidth, kLine},
    {id::RB_LogSaveFilePath_1, kRadio, L"デスクトップ上", kRightInside, kLogPath + kHead + kStep,
     kInsideWidth, kLine},
    {id::RB_LogSaveFilePath_2, kRadio, L"指定したフォルダ", kRightInside,
     kLogPath + kHead + 2 * kStep, kInsideWidth, kLine},
    {id::Img_Log_save_folder, kPicture, L"", kRightInside, kLogPath + kPathLine, kPictureSize,
     kPictureSize, L"ログファイルの保存先のフォルダを選ぶ"},
    {id::Img_Log_save_folder_path, kPicture, L"", kRightInside + kPicture2, kLogPath + kPathLine,
     kPictureSize, kPictureSize, L"ログファイルの保存先のフォルダを選ぶ"},
    {id::TB_LogSaveFilePath, kTextBox, L"", kRightInside + kPathBox, kLogPath + kPathBoxLine,
     kPathBoxWidth, kLine, L"ログファイルの保存先のフォルダ"},
    {id::CB_LogSave_subFolder, kCheck, L"コメントをサブフォルダにして保存する", kRightInside,
     kSubFolder, kInsideWidth, kLine},
};

struct PictureOf {
  int control;
  int picture;
};
constexpr PictureOf kPictures[] = {{id::Img_save_folder, id::PICTURE_FOLDER},
                                   {id::Img_save_folder_path, id::PICTURE_FOLDER_PATH},
                                   {id::Img_Log_save_folder, id::PICTURE_FOLDER},
                                   {id::Img_Log_save_folder_path, id::PICTURE_FOLDER_PATH}};

constexpr int kSnapshotTargets[] = {id::Img_save_folder, id::Img_save_folder_path,
                                    id::TB_SaveFilePath};
constexpr int kLogTargets[] = {id::Img_Log_save_folder, id::Img_Log_save_folder_path,
                               id::TB_LogSaveFilePath};
constexpr wchar_t kDropTip[] = L"保存先のフォルダをドラッグ＆ドロップしてください";

// What a drop consists of, the last one without a name of its own. A program that runs as
// administrator is sent nothing by the file manager, which does not, unless it lets it through.
constexpr UINT kDropMessages[] = {WM_DROPFILES, WM_COPYDATA, 0x0049};

std::vector<String> DroppedPaths(HDROP dropped) {
  const UINT count = DragQueryFileW(dropped, 0xFFFFFFFF, nullptr, 0);
  std::vector<String> paths;
  for (UINT i = 0; i < count; ++i) {
    String path(DragQueryFileW(dropped, i, nullptr, 0) + 1, u'\0');
    path.resize(DragQueryFileW(dropped, i, WideData(path), static_cast<UINT>(path.size())));
    paths.push_back(std::move(path));
  }
  return paths;
}

}  // namespace

FormOptionLog1Window::FormOptionLog1Window(const DialogSurroundings& surroundings, HelpWindow& help,
                                           StringResources& resources, ELM327_Info& device,
                                           FileServices& files)
    : SettingsDialogOf(surroundings, help, resources, device, {kWidth, kHeight},
                       id::HELP_OPTION_LOG1),
      files_(files),
      folder_dialog_(surroundings.gate) {}

void FormOptionLog1Window::AddControls() {
  folder_dialog_.Owner(Hwnd());
  Add(kSnapshotParts);
  Add(kLogParts);
  AddClosingButtons();
  static_assert(std::size(kPictures) == std::tuple_size_v<decltype(pictures_)>);
  for (std::size_t i = 0; i < pictures_.size(); ++i) {
    pictures_[i] =
        ShowPicture(Hwnd(), kPictures[i].control, kPictures[i].picture, kPictureSize, Scale());
  }
  const HWND tool_tips = CreateToolTips(Hwnd(), Scale());
  for (const int target : kSnapshotTargets) MakeDropTarget(tool_tips, target);
  for (const int target : kLogTargets) MakeDropTarget(tool_tips, target);
}

void FormOptionLog1Window::Bind(const ControlBinder& bind) {
  bind(id::RB_SV_Format_0, form_.RB_SV_Format);
  bind(id::RB_SaveFilePath_0, form_.RB_SaveFilePath);
  bind(id::TB_SaveFilePath, form_.TB_SaveFilePath);
  bind(id::CB_LogFile_Enable, form_.CB_LogFile_Enable);
  bind(id::GB_LogSave_Format, form_.GB_LogSave_Format);
  bind(id::RB_LogSV_Format_0, form_.RB_LogSV_Format);
  bind(id::GB_Excel_Format, form_.GB_Excel_Format);
  bind(id::RB_Excel_Format_0, form_.RB_Excel_Format);
  bind(id::GB_LogSave_path, form_.GB_LogSave_path);
  bind(id::RB_LogSaveFilePath_0, form_.RB_LogSaveFilePath);
  bind(id::TB_LogSaveFilePath, form_.TB_LogSaveFilePath);
  bind(id::CB_LogSave_subFolder, form_.CB_LogSave_subFolder);
  bind(id::CB_Excel_soft_KO, form_.CB_Excel_soft_KO);
  bind(id::TB_Excel_Status, form_.TB_Excel_Status);
  bind(id::TB_Excel_Ver, form_.TB_Excel_Ver);
  bind(id::TB_Excel_Status2, form_.TB_Excel_Status2);
  bind(id::TB_Access_Status, form_.TB_Access_Status);
  bind(id::TB_Access_Ver, form_.TB_Access_Ver);
}

void FormOptionLog1Window::OnClick(int control) {
  switch (control) {
    case id::CB_LogFile_Enable:
      return form_.CB_LogFile_Enable_Click(device_);
    case id::Img_save_folder:
    case id::Img_save_folder_path:
      return form_.Img_save_folder_Click(folder_dialog_, files_);
    case id::Img_Log_save_folder:
    case id::Img_Log_save_folder_path:
      return form_.Img_Log_save_folder_Click(folder_dialog_, files_);
    default:
      return;
  }
}

void FormOptionLog1Window::MakeDropTarget(HWND tool_tips, int target) {
  const HWND control = Child(target);
  AddToolTip(tool_tips, Hwnd(), control, kDropTip);
  DragAcceptFiles(control, TRUE);
  for (const UINT message : kDropMessages) {
    ChangeWindowMessageFilterEx(control, message, MSGFLT_ALLOW, nullptr);
  }
  SetWindowSubclass(control, &DropProcedure, static_cast<UINT_PTR>(target),
                    reinterpret_cast<DWORD_PTR>(this));
}

LRESULT CALLBACK FormOptionLog1Window::DropProcedure(HWND control, UINT message, WPARAM wparam,
                                                     LPARAM lparam, UINT_PTR target,
                                                     DWORD_PTR object) noexcept {
  if (message == WM_DROPFILES) {
    reinterpret_cast<FormOptionLog1Window*>(object)->OnDrop(static_cast<int>(target),
                                                            reinterpret_cast<HDROP>(wparam));
    return 0;
  }
  if (message == WM_NCDESTROY) RemoveWindowSubclass(control, &DropProcedure, target);
  return DefSubclassProc(control, message, wparam, lparam);
}

void FormOptionLog1Window::OnDrop(int target, HDROP dropped) {
  const DropHandle owned(dropped);
  Deliver([this, target, paths = DroppedPaths(dropped)] {
    TakeValues();
    if (std::ranges::find(kSnapshotTargets, target) != std::end(kSnapshotTargets)) {
      form_.Folder_Drop(paths, files_);
    } else {
      form_.Log_Folder_Drop(paths, files_);
    }
    ShowValues();
  });
}

}  // namespace tolvane::platform::windows
