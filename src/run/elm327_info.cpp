#include "run/elm327_info.h"

#include <tolvane_product.h>

#include <utility>

namespace tolvane {

ELM327_Info::ELM327_Info(String executable_folder)
    : executable_folder_(std::move(executable_folder)) {}

void ELM327_Info::Param_ALL_Clear() {
  install_version = product::kVersion;
  Application_title = u"Tolvane Ver" + String(product::kVersionText);
  Copy_light = product::kCopyright;
  Application_title2 = u"Tolvane";
  Copy_light2 = product::kCompany;
  Homepage_URL = product::kHomePage;
  ExcelInstallCheck = 0;
  ExcelInstallVersion = 0;
  AccessInstallCheck = 0;
  AccessInstallVersion = 0;

  t_bitRate = 2;
  t_msgID_type = 0;
  t_MsgFmtTyp = 0;
  t_silent_mode = 0;
  t_ViewCaution = 1;
  t_Timer_Mode = 0;
  t_dividend_ratio = 1.0;

  t_LogSaveFormat = kLogFormatSpreadsheet;
  t_Excel_soft = 1;
  t_Excel_Format = 1;
  t_LogSaveFilePath_mode = 0;
  t_LogSaveFilePath = executable_folder_;
  t_LogSave_Enable = 1;
  t_LogSave_subFolder = 0;
  t_LogComment = u"ＣＡＮ受信ログ";
  t_SaveFormat = 1;
  t_SaveFilePath_mode = 0;
  t_SaveFilePath = executable_folder_;
  t_Save_ID_DisableMode = 0;

  t_CmbBOX_device_SelectNo = 0;
  t_select_Vender = kVenderNone;

  t_DataChangeColorTime = 60000;
  t_DataChangeColor = Rgb(255, 0, 0);
  t_DataChangeColorEnable = 1;
  t_MsgLateColor_Ratio = 30;
  t_MsgLateColor_Time = 60000;
  t_MsgLateColor = Rgb(255, 0, 0);
  t_MsgLateColorEnable = 1;
  t_MsgBlackout_Ratio = 250;
  t_MsgBlackout_Color = Rgb(150, 150, 150);
  t_MsgBlackout_Enable = 1;

  t_DisableID_MAX = 7;
  t_MsgMarker_MAX = 7;
  Arayy_ALL_Clear_zero_long(7, 0, t_DisableID_ON);
  Arayy_ALL_Clear_zero_long(7, 0, t_DisableID_Start);
  Arayy_ALL_Clear_zero_long(7, 0, t_DisableID_End);
  Arayy_ALL_Clear_zero_long(7, 0, t_MsgMarker_ON);
  Arayy_ALL_Clear_zero_long(7, 0, t_MsgMarkerID);
  Arayy_ALL_Clear_zero_long(7, 1, t_MsgMarkerStartByte);
  Arayy_ALL_Clear_zero_long(7, 1, t_MsgMarkerEndByte);
  Arayy_ALL_Clear_zero_long(7, Rgb(243, 179, 255), t_MsgMarkerColor);
}

}  // namespace tolvane
