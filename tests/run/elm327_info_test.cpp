#include "run/elm327_info.h"

#include <gtest/gtest.h>

namespace tolvane {
namespace {

/// A record in which no field has its default.
ELM327_Info UsedRecord() {
  ELM327_Info device(u"C:\\Tolvane");
  for (auto* text : {&device.Application_title, &device.Copy_light, &device.Application_title2,
                     &device.Copy_light2, &device.Homepage_URL, &device.t_LogSaveFilePath,
                     &device.t_LogComment, &device.t_SaveFilePath}) {
    *text = u"used";
  }
  for (auto* number : {&device.install_version,
                       &device.ExcelInstallCheck,
                       &device.ExcelInstallVersion,
                       &device.AccessInstallCheck,
                       &device.AccessInstallVersion,
                       &device.t_bitRate,
                       &device.t_msgID_type,
                       &device.t_MsgFmtTyp,
                       &device.t_silent_mode,
                       &device.t_ViewCaution,
                       &device.t_Timer_Mode,
                       &device.t_LogSaveFormat,
                       &device.t_Excel_soft,
                       &device.t_Excel_Format,
                       &device.t_LogSaveFilePath_mode,
                       &device.t_LogSave_Enable,
                       &device.t_LogSave_subFolder,
                       &device.t_SaveFormat,
                       &device.t_SaveFilePath_mode,
                       &device.t_Save_ID_DisableMode,
                       &device.t_CmbBOX_device_SelectNo,
                       &device.t_select_Vender,
                       &device.t_DataChangeColorTime,
                       &device.t_DataChangeColor,
                       &device.t_DataChangeColorEnable,
                       &device.t_MsgLateColor_Ratio,
                       &device.t_MsgLateColor_Time,
                       &device.t_MsgLateColor,
                       &device.t_MsgLateColorEnable,
                       &device.t_MsgBlackout_Ratio,
                       &device.t_MsgBlackout_Color,
                       &device.t_MsgBlackout_Enable,
                       &device.t_DisableID_MAX,
                       &device.t_MsgMarker_MAX}) {
    *number = 99;
  }
  device.t_dividend_ratio = 9.9;
  for (auto* table :
       {&device.t_DisableID_ON, &device.t_DisableID_Start, &device.t_DisableID_End,
        &device.t_MsgMarkerID, &device.t_MsgMarkerStartByte, &device.t_MsgMarkerEndByte,
        &device.t_MsgMarkerColor, &device.t_MsgMarker_ON}) {
    for (std::int16_t i = 0; i < 8; ++i) (*table)(i, 99);
  }
  return device;
}

ELM327_Info FreshRecord() {
  ELM327_Info device = UsedRecord();
  device.Param_ALL_Clear();
  return device;
}

TEST(ELM327_Info, DefaultsOfIdentityAndInstallation) {
  const ELM327_Info device = FreshRecord();
  EXPECT_EQ(device.install_version, 123);
  EXPECT_EQ(device.Application_title, u"Tolvane Ver1.23");
  EXPECT_EQ(device.Application_title2, u"Tolvane");
  EXPECT_EQ(device.Copy_light, u"Copyright (C) 2026 Tolvane Project");
  EXPECT_EQ(device.Copy_light2, u"Tolvane Project");
  EXPECT_EQ(device.Homepage_URL, u"https://tolvane.example/");
  EXPECT_EQ(device.ExcelInstallCheck, 0);
  EXPECT_EQ(device.ExcelInstallVersion, 0);
  EXPECT_EQ(device.AccessInstallCheck, 0);
  EXPECT_EQ(device.AccessInstallVersion, 0);
}

TEST(ELM327_Info, VersionIsTheOneThatTheBuildGivesToFilesAndReleases) {
  const ELM327_Info device = FreshRecord();
  const String version = TOLVANE_PROJECT_VERSION;  // "1.23"
  EXPECT_EQ(device.Application_title, u"Tolvane Ver" + version);
  const std::size_t dot = version.find(u'.');
  ASSERT_EQ(dot + 3, version.size());
  std::int32_t number = 0;
  for (const char16_t digit : version) {
    if (digit != u'.') number = 10 * number + (digit - u'0');
  }
  EXPECT_EQ(device.install_version, number);
}

TEST(ELM327_Info, DefaultsOfCommunication) {
  const ELM327_Info device = FreshRecord();
  EXPECT_EQ(device.t_bitRate, 2);
  EXPECT_EQ(device.t_msgID_type, 0);
  EXPECT_EQ(device.t_MsgFmtTyp, 0);
  EXPECT_EQ(device.t_silent_mode, 0);
  EXPECT_EQ(device.t_ViewCaution, 1);
  EXPECT_EQ(device.t_Timer_Mode, 0);
  EXPECT_EQ(device.t_dividend_ratio, 1.0);
}

TEST(ELM327_Info, DefaultsOfLogsAndSnapshots) {
  const ELM327_Info device = FreshRecord();
  EXPECT_EQ(device.t_LogSaveFormat, 1);
  EXPECT_EQ(device.t_Excel_soft, 1);
  EXPECT_EQ(device.t_Excel_Format, 1);
  EXPECT_EQ(device.t_LogSaveFilePath_mode, 0);
  EXPECT_EQ(device.t_LogSaveFilePath, u"C:\\Tolvane");
  EXPECT_EQ(device.t_LogSave_Enable, 1);
  EXPECT_EQ(device.t_LogSave_subFolder, 0);
  EXPECT_EQ(device.t_LogComment, u"ＣＡＮ受信ログ");
  EXPECT_EQ(device.t_SaveFormat, 1);
  EXPECT_EQ(device.t_SaveFilePath_mode, 0);
  EXPECT_EQ(device.t_SaveFilePath, u"C:\\Tolvane");
  EXPECT_EQ(device.t_Save_ID_DisableMode, 0);
  EXPECT_EQ(device.t_CmbBOX_device_SelectNo, 0);
  EXPECT_EQ(device.t_select_Vender, 0);
}

TEST(ELM327_Info, DefaultsOfHighlights) {
  const ELM327_Info device = FreshRecord();
  EXPECT_EQ(device.t_DataChangeColorTime, 60000);
  EXPECT_EQ(device.t_DataChangeColor, 0x0000FF);
  EXPECT_EQ(device.t_DataChangeColorEnable, 1);
  EXPECT_EQ(device.t_MsgLateColor_Ratio, 30);
  EXPECT_EQ(device.t_MsgLateColor_Time, 60000);
  EXPECT_EQ(device.t_MsgLateColor, 0x0000FF);
  EXPECT_EQ(device.t_MsgLateColorEnable, 1);
  EXPECT_EQ(device.t_MsgBlackout_Ratio, 250);
  EXPECT_EQ(device.t_MsgBlackout_Color, 0x969696);
  EXPECT_EQ(device.t_MsgBlackout_Enable, 1);
}

TEST(ELM327_Info, AllEightRangesAndMarkersAreOffAndMarkersCoverByteOne) {
  const ELM327_Info device = FreshRecord();
  EXPECT_EQ(device.t_DisableID_MAX, 7);
  EXPECT_EQ(device.t_MsgMarker_MAX, 7);
  for (std::int16_t i = 0; i <= device.t_DisableID_MAX; ++i) {
    EXPECT_EQ(device.t_DisableID_ON(i), 0) << i;
    EXPECT_EQ(device.t_DisableID_Start(i), 0) << i;
    EXPECT_EQ(device.t_DisableID_End(i), 0) << i;
    EXPECT_EQ(device.t_MsgMarker_ON(i), 0) << i;
    EXPECT_EQ(device.t_MsgMarkerID(i), 0) << i;
    EXPECT_EQ(device.t_MsgMarkerStartByte(i), 1) << i;
    EXPECT_EQ(device.t_MsgMarkerEndByte(i), 1) << i;
    EXPECT_EQ(device.t_MsgMarkerColor(i), 0xFFB3F3) << i;
  }
}

TEST(ELM327_Info, ClearingKeepsTheUnusedDriverField) {
  ELM327_Info device(u"C:\\Tolvane");
  device.t_Hardware_Driver_Enable = 5;
  device.Param_ALL_Clear();
  EXPECT_EQ(std::any_cast<int>(device.t_Hardware_Driver_Enable), 5);
}

TEST(ELM327_Info, ArrayClearIncludesTheUpperBoundAndIgnoresNegativeBounds) {
  Column<std::int32_t, 8> column;
  ELM327_Info::Arayy_ALL_Clear_zero_long(7, 9, column);
  ELM327_Info::Arayy_ALL_Clear_zero_long(2, 4, column);
  EXPECT_EQ(column(0), 4);
  EXPECT_EQ(column(2), 4);
  EXPECT_EQ(column(3), 9);
  EXPECT_EQ(column(7), 9);
  ELM327_Info::Arayy_ALL_Clear_zero_long(-1, 1, column);
  EXPECT_EQ(column(0), 4);
}

}  // namespace
}  // namespace tolvane
