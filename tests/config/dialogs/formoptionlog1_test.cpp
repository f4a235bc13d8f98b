#include "config/dialogs/formoptionlog1.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/memory/dialogs/folder_dialog.h"
#include "platform/memory/system/code_page_932.h"
#include "platform/memory/system/file_system.h"

namespace tolvane {
namespace {

constexpr std::int32_t kGreen = 0x0BA000;
constexpr std::int32_t kRed = 0x0000FF;

class FormOptionLog1Test : public testing::Test {
 protected:
  FormOptionLog1Test() { device.Param_ALL_Clear(); }

  ELM327_Info device{u"C:\\Tolvane"};
  FormOptionLog1 form;
};

TEST_F(FormOptionLog1Test, OpeningShowsTheDefaults) {
  device.ExcelInstallCheck = 1;
  device.ExcelInstallVersion = 16;
  form.read_setting(device);
  EXPECT_EQ(form.Caption, u"Tolvane Ver1.23　　- ログ機能 -");
  EXPECT_TRUE(form.RB_SV_Format[1].checked);
  EXPECT_FALSE(form.RB_SV_Format[0].checked);
  EXPECT_TRUE(form.RB_SaveFilePath[0].checked);
  EXPECT_EQ(form.TB_SaveFilePath.text, u"C:\\Tolvane");
  EXPECT_TRUE(form.CB_LogFile_Enable.checked);
  EXPECT_TRUE(form.RB_LogSV_Format[0].checked);
  EXPECT_FALSE(form.RB_LogSV_Format[1].checked);
  EXPECT_TRUE(form.RB_Excel_Format[0].checked);
  EXPECT_TRUE(form.RB_LogSaveFilePath[0].checked);
  EXPECT_EQ(form.TB_LogSaveFilePath.text, u"C:\\Tolvane");
  EXPECT_FALSE(form.CB_LogSave_subFolder.checked);
  EXPECT_FALSE(form.CB_Excel_soft_KO.checked);
}

struct Office {
  const char* label;
  std::int32_t excel_check;
  std::int32_t excel_version;
  std::int32_t access_check;
  std::int32_t access_version;
  StringView excel_status, excel_name, ket_status, access_status, access_name;
};

class FormOptionLog1Office : public FormOptionLog1Test,
                             public testing::WithParamInterface<Office> {};

TEST_P(FormOptionLog1Office, StatusLinesTellWhatStartUpFound) {
  const Office& office = GetParam();
  device.ExcelInstallCheck = office.excel_check;
  device.ExcelInstallVersion = office.excel_version;
  device.AccessInstallCheck = office.access_check;
  device.AccessInstallVersion = office.access_version;
  form.read_setting(device);
  EXPECT_EQ(form.TB_Excel_Status.text, office.excel_status);
  EXPECT_EQ(form.TB_Excel_Status.colour, office.excel_status == u" OK" ? kGreen : kRed);
  EXPECT_EQ(form.TB_Excel_Ver.text, office.excel_name);
  EXPECT_EQ(form.TB_Excel_Status2.text, office.ket_status);
  EXPECT_EQ(form.TB_Excel_Status2.colour, office.ket_status == u" OK" ? kGreen : kRed);
  EXPECT_EQ(form.TB_Access_Status.text, office.access_status);
  EXPECT_EQ(form.TB_Access_Status.colour, office.access_status == u" OK" ? kGreen : kRed);
  EXPECT_EQ(form.TB_Access_Ver.text, office.access_name);
}

const Office kOffices[] = {
    {"Nothing", 0, 0, 0, 0, u" NG", u"---", u" NG", u" NG", u"---"},
    {"KetOnly", 2, 0, 0, 0, u" NG", u"---", u" OK", u" NG", u"---"},
    {"Both2016", 3, 16, 1, 16, u" OK", u"Excel2016", u" OK", u" OK", u"Access2016"},
    {"Later", 1, 99, 1, 17, u" OK", u"Excel2016", u" NG", u" OK", u"Access2016"},
    {"V15", 1, 15, 1, 15, u" OK", u"Excel2013", u" NG", u" OK", u"Access2013"},
    {"V14", 1, 14, 1, 14, u" OK", u"Excel2010", u" NG", u" OK", u"Access2010"},
    {"V13", 1, 13, 1, 13, u" OK", u"Excel2007", u" NG", u" OK", u"Access2007"},
    {"V12", 1, 12, 1, 12, u" OK", u"Excel2007", u" NG", u" OK", u"Access2007"},
    {"V11", 1, 11, 1, 11, u" OK", u"Excel2003", u" NG", u" OK", u"Access2003"},
    {"V10", 1, 10, 1, 10, u" OK", u"Excel2002", u" NG", u" OK", u"Access2002"},
    {"V9", 1, 9, 1, 9, u" OK", u"Excel2000", u" NG", u" OK", u"Access2000"},
    {"V8", 1, 8, 1, 8, u" OK", u"8", u" NG", u" OK", u"8"},
    {"AccessNotCounted", 0, 16, 2, 16, u" NG", u"---", u" NG", u" NG", u"---"},
};
INSTANTIATE_TEST_SUITE_P(Rows, FormOptionLog1Office, testing::ValuesIn(kOffices),
                         [](const auto& row) { return row.param.label; });

TEST_F(FormOptionLog1Test, AnyOfTheServersGivesTheSpreadsheetFormat) {
  for (const std::int32_t installed : {-1, 0, 1, 2, 3}) {
    device.ExcelInstallCheck = installed;
    device.t_LogSaveFormat = kLogFormatSpreadsheet;
    form.read_setting(device);
    EXPECT_EQ(form.RB_LogSV_Format[0].enabled, installed >= 1) << installed;
    EXPECT_EQ(form.RB_LogSV_Format[0].checked, installed >= 1) << installed;
    form.RB_LogSV_Format[0].enabled = installed < 1;
    form.CB_LogFile_Enable_Click(device);
    EXPECT_EQ(form.RB_LogSV_Format[0].enabled, installed >= 1) << installed;
  }
}

TEST_F(FormOptionLog1Test, WithoutAServerTheTextFormatIsSelectedWhateverTheSetting) {
  device.t_LogSaveFormat = 1;
  form.read_setting(device);
  EXPECT_FALSE(form.RB_LogSV_Format[0].enabled);
  EXPECT_FALSE(form.RB_LogSV_Format[0].checked);
  EXPECT_TRUE(form.RB_LogSV_Format[1].checked);
}

bool LogControlsEnabled(const FormOptionLog1& form, bool expected) {
  bool all = form.GB_LogSave_Format.enabled == expected &&
             form.GB_LogSave_path.enabled == expected && form.GB_Excel_Format.enabled == expected &&
             form.RB_LogSV_Format[1].enabled == expected &&
             form.TB_LogSaveFilePath.enabled == expected;
  for (const Choice& button : form.RB_Excel_Format) all = all && button.enabled == expected;
  for (const Choice& button : form.RB_LogSaveFilePath) all = all && button.enabled == expected;
  return all;
}

TEST_F(FormOptionLog1Test, LoggingOffDisablesItsControlsButNotTheTwoBoxesUntilAClick) {
  device.ExcelInstallCheck = 3;
  device.t_LogSave_Enable = 0;
  form.read_setting(device);
  EXPECT_TRUE(LogControlsEnabled(form, false));
  EXPECT_FALSE(form.RB_LogSV_Format[0].enabled);
  EXPECT_TRUE(form.CB_LogSave_subFolder.enabled);
  EXPECT_TRUE(form.CB_Excel_soft_KO.enabled);

  form.CB_LogFile_Enable.checked = true;
  form.CB_LogFile_Enable_Click(device);
  EXPECT_TRUE(LogControlsEnabled(form, true));
  EXPECT_TRUE(form.RB_LogSV_Format[0].enabled);
  EXPECT_TRUE(form.CB_LogSave_subFolder.enabled);

  form.CB_LogFile_Enable.checked = false;
  form.CB_LogFile_Enable_Click(device);
  EXPECT_TRUE(LogControlsEnabled(form, false));
  EXPECT_FALSE(form.RB_LogSV_Format[0].enabled);
  EXPECT_FALSE(form.CB_LogSave_subFolder.enabled);
  EXPECT_FALSE(form.CB_Excel_soft_KO.enabled);
}

TEST_F(FormOptionLog1Test, AClickWithoutAServerLeavesTheSpreadsheetFormatDisabled) {
  form.read_setting(device);
  form.CB_LogFile_Enable_Click(device);
  EXPECT_FALSE(form.RB_LogSV_Format[0].enabled);
}

TEST_F(FormOptionLog1Test, OKWritesEveryControlAsItStands) {
  device.ExcelInstallCheck = 3;
  form.read_setting(device);
  form.RB_SV_Format[1].checked = false;
  form.RB_SV_Format[0].checked = true;
  form.RB_Excel_Format[0].checked = false;
  form.RB_Excel_Format[1].checked = true;
  form.RB_SaveFilePath[0].checked = false;
  form.RB_SaveFilePath[2].checked = true;
  form.TB_SaveFilePath.text = u"no such place\\";
  form.CB_LogFile_Enable.checked = false;
  form.RB_LogSV_Format[0].checked = false;
  form.RB_LogSV_Format[1].checked = true;
  form.RB_LogSaveFilePath[0].checked = false;
  form.RB_LogSaveFilePath[1].checked = true;
  form.TB_LogSaveFilePath.text = u"";
  form.CB_LogSave_subFolder.checked = true;
  form.CB_Excel_soft_KO.checked = true;
  form.Bt_OK_Click(device);
  EXPECT_EQ(device.t_SaveFormat, 2);
  EXPECT_EQ(device.t_Excel_Format, 2);
  EXPECT_EQ(device.t_SaveFilePath_mode, 2);
  EXPECT_EQ(device.t_SaveFilePath, u"no such place\\");
  EXPECT_EQ(device.t_LogSave_Enable, 0);
  EXPECT_EQ(device.t_LogSaveFormat, 2);
  EXPECT_EQ(device.t_LogSaveFilePath_mode, 1);
  EXPECT_EQ(device.t_LogSaveFilePath, u"");
  EXPECT_EQ(device.t_LogSave_subFolder, 1);
  EXPECT_EQ(device.t_Excel_soft, 2);
  form.CB_Excel_soft_KO.checked = false;
  form.Bt_OK_Click(device);
  EXPECT_EQ(device.t_Excel_soft, 1);
}

TEST_F(FormOptionLog1Test, OpeningShowsEverySettingAndABareOKKeepsIt) {
  device.ExcelInstallCheck = 2;
  device.t_SaveFormat = 2;
  device.t_SaveFilePath_mode = 1;
  device.t_SaveFilePath = u"D:\\pages";
  device.t_LogSaveFormat = 2;
  device.t_Excel_Format = 2;
  device.t_LogSaveFilePath_mode = 2;
  device.t_LogSaveFilePath = u"D:\\logs";
  device.t_LogSave_subFolder = 1;
  device.t_Excel_soft = 2;
  form.read_setting(device);
  EXPECT_TRUE(form.RB_LogSV_Format[0].enabled);
  EXPECT_FALSE(form.RB_LogSV_Format[0].checked);
  form.Bt_OK_Click(device);
  EXPECT_EQ(device.t_SaveFormat, 2);
  EXPECT_EQ(device.t_SaveFilePath_mode, 1);
  EXPECT_EQ(device.t_SaveFilePath, u"D:\\pages");
  EXPECT_EQ(device.t_LogSave_Enable, 1);
  EXPECT_EQ(device.t_LogSaveFormat, 2);
  EXPECT_EQ(device.t_Excel_Format, 2);
  EXPECT_EQ(device.t_LogSaveFilePath_mode, 2);
  EXPECT_EQ(device.t_LogSaveFilePath, u"D:\\logs");
  EXPECT_EQ(device.t_LogSave_subFolder, 1);
  EXPECT_EQ(device.t_Excel_soft, 2);
  EXPECT_TRUE(form.RB_SV_Format[0].checked);
  EXPECT_TRUE(form.RB_SaveFilePath[1].checked);
  EXPECT_TRUE(form.RB_LogSV_Format[1].checked);
  EXPECT_TRUE(form.RB_Excel_Format[1].checked);
  EXPECT_TRUE(form.RB_LogSaveFilePath[2].checked);
}

TEST_F(FormOptionLog1Test, AValueThatNoButtonHasSelectsNoneAndStaysAtOK) {
  device.ExcelInstallCheck = 1;
  device.t_SaveFormat = 3;
  device.t_SaveFilePath_mode = 3;
  device.t_LogSaveFormat = 3;
  device.t_Excel_Format = 3;
  device.t_LogSaveFilePath_mode = -1;
  form.read_setting(device);
  for (const Choice& button : form.RB_SV_Format) EXPECT_FALSE(button.checked);
  for (const Choice& button : form.RB_SaveFilePath) EXPECT_FALSE(button.checked);
  for (const Choice& button : form.RB_LogSV_Format) EXPECT_FALSE(button.checked);
  for (const Choice& button : form.RB_Excel_Format) EXPECT_FALSE(button.checked);
  for (const Choice& button : form.RB_LogSaveFilePath) EXPECT_FALSE(button.checked);
  form.Bt_OK_Click(device);
  EXPECT_EQ(device.t_SaveFormat, 3);
  EXPECT_EQ(device.t_SaveFilePath_mode, 3);
  EXPECT_EQ(device.t_LogSaveFormat, 3);
  EXPECT_EQ(device.t_Excel_Format, 3);
  EXPECT_EQ(device.t_LogSaveFilePath_mode, -1);
}

TEST_F(FormOptionLog1Test, BoxesAreCheckedByTheirOneValueAlone) {
  for (const std::int32_t value : {0, 3, -1}) {
    device.t_LogSave_Enable = value;
    device.t_LogSave_subFolder = value;
    device.t_Excel_soft = value;
    form.read_setting(device);
    EXPECT_FALSE(form.CB_LogFile_Enable.checked) << value;
    EXPECT_FALSE(form.TB_LogSaveFilePath.enabled) << value;
    EXPECT_FALSE(form.CB_LogSave_subFolder.checked) << value;
    EXPECT_FALSE(form.CB_Excel_soft_KO.checked) << value;
  }
}

class FormOptionLog1Drop : public FormOptionLog1Test {
 protected:
  FormOptionLog1Drop() {
    files.AddFolder(u"D:\\logs\\plain");
    files.AddFolder(u"D:\\logs\\shut");
    files.SetAttributes(u"D:\\logs\\shut", 16 + 1);
    files.AddFolder(u"D:\\logs\\odd");
    files.AddFile(u"D:\\logs\\notes.txt", "");
    files.AddFile(u"D:\\top.txt", "");
    form.TB_SaveFilePath.text = u"before";
    form.TB_LogSaveFilePath.text = u"before";
  }

  platform::memory::CodePage932 code_page;
  platform::memory::FileSystem files{code_page};
};

TEST_F(FormOptionLog1Drop, APlainFolderIsTakenAndAnythingElseGivesWhatItLiesIn) {
  struct Row {
    const char* label;
    std::vector<String> paths;
    StringView expected;
  };
  const Row rows[] = {
      {"plain folder", {u"D:\\logs\\plain"}, u"D:\\logs\\plain"},
      {"backslash at the end", {u"D:\\logs\\plain\\"}, u"D:\\logs\\plain"},
      {"read-only folder", {u"D:\\logs\\shut"}, u"D:\\logs"},
      {"file", {u"D:\\logs\\notes.txt"}, u"D:\\logs"},
      {"file at the top", {u"D:\\top.txt"}, u"D:"},
      {"the first of two", {u"D:\\logs\\plain", u"D:\\logs"}, u"D:\\logs\\plain"},
      {"no file list", {}, u"before"},
      {"gone meanwhile", {u"D:\\logs\\gone"}, u"before"},
      {"the first one gone", {u"D:\\logs\\gone", u"D:\\logs"}, u"before"},
  };
  for (const Row& row : rows) {
    FormOptionLog1 dropped = form;
    dropped.Folder_Drop(row.paths, files);
    EXPECT_EQ(dropped.TB_SaveFilePath.text, row.expected) << row.label;
    EXPECT_EQ(dropped.TB_LogSaveFilePath.text, u"before") << row.label;

    dropped = form;
    dropped.Log_Folder_Drop(row.paths, files);
    EXPECT_EQ(dropped.TB_LogSaveFilePath.text, row.expected) << row.label;
    EXPECT_EQ(dropped.TB_SaveFilePath.text, u"before") << row.label;
  }
}

TEST_F(FormOptionLog1Drop, BitsThatTellOfStorageMakeAFolderNoOtherOne) {
  struct Row {
    const char* label;
    std::int32_t bits;
    bool taken;
  };
  const Row rows[] = {
      {"read-only", 0x1, false},
      {"hidden", 0x2, false},
      {"system", 0x4, false},
      {"archive", 0x20, false},
      {"temporary", 0x100, true},
      {"sparse", 0x200, true},
      {"of a synchronised folder", 0x400 + 0x80000, true},
      {"compressed", 0x800, true},
      {"offline", 0x1000, true},
      {"not indexed", 0x2000, true},
      {"encrypted", 0x4000, true},
      {"kept in the cloud alone", 0x1000 + 0x100000 + 0x400000, true},
      {"not indexed and hidden", 0x2000 + 0x2, false},
  };
  for (const Row& row : rows) {
    files.SetAttributes(u"D:\\logs\\odd", 16 + row.bits);
    form.Folder_Drop(std::vector<String>{u"D:\\logs\\odd"}, files);
    EXPECT_EQ(form.TB_SaveFilePath.text, row.taken ? u"D:\\logs\\odd" : u"D:\\logs") << row.label;
  }
}

/// The two boxes and the pictures next to them.
class FormOptionLog1Chooser : public FormOptionLog1Test {
 protected:
  FormOptionLog1Chooser() {
    files.AddFolder(u"D:\\logs");
    files.AddFolder(u"D:\\old\\logs");
    files.SetAttributes(u"D:\\old\\logs", 17);
    form.read_setting(device);
    form.TB_SaveFilePath.text = u"C:\\pages";
    form.TB_LogSaveFilePath.text = u"C:\\logs";
  }

  platform::memory::CodePage932 code_page;
  platform::memory::FileSystem files{code_page};
  platform::memory::FolderDialog dialog;
};

TEST_F(FormOptionLog1Chooser, AChosenFolderFillsTheBoxOfItsSideAlone) {
  dialog.Answer(u"D:\\logs");
  form.Img_save_folder_Click(dialog, files);
  EXPECT_EQ(form.TB_SaveFilePath.text, u"D:\\logs");
  EXPECT_EQ(form.TB_LogSaveFilePath.text, u"C:\\logs");
  dialog.Answer(u"D:\\");
  form.Img_Log_save_folder_Click(dialog, files);
  EXPECT_EQ(form.TB_SaveFilePath.text, u"D:\\logs");
  EXPECT_EQ(form.TB_LogSaveFilePath.text, u"D:");
}

TEST_F(FormOptionLog1Chooser, AChosenFolderFollowsTheRuleOfDroppedOnes) {
  dialog.Answer(u"D:\\old\\logs");
  form.Img_Log_save_folder_Click(dialog, files);
  EXPECT_EQ(form.TB_LogSaveFilePath.text, u"D:\\old") << "read-only";
  dialog.Answer(u"E:\\gone");
  form.Img_Log_save_folder_Click(dialog, files);
  EXPECT_EQ(form.TB_LogSaveFilePath.text, u"D:\\old") << "no such folder";
}

TEST_F(FormOptionLog1Chooser, ACancelledDialogChangesNothingAndEachBeginsInItsBox) {
  form.Img_save_folder_Click(dialog, files);
  form.Img_Log_save_folder_Click(dialog, files);
  EXPECT_EQ(form.TB_SaveFilePath.text, u"C:\\pages");
  EXPECT_EQ(form.TB_LogSaveFilePath.text, u"C:\\logs");
  EXPECT_EQ(dialog.Starts(), (std::vector<String>{u"C:\\pages", u"C:\\logs"}));
}

}  // namespace
}  // namespace tolvane
