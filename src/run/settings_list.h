#pragma once

#include <tolvane_product.h>

#include <cstdint>

#include "run/elm327_info.h"

namespace tolvane {

/// The one list of what the user sets: each field of config.dat in the order of the file, with the
/// value that Param_ALL_Clear gives it. The byte behind a row is where the field begins while all
/// texts are empty; a text moves what is behind it on by its bytes.
///
/// `visit` is called with a field and its default, and for a field that came later with the version
/// of the first files that hold it. Of a table it gets the highest index in front of the default
/// that all elements have. The first rows say whose file it is and are no settings.
template <typename Device, typename Visit>
void VisitSettings(Device& device, Visit&& visit) {
  std::int32_t reserved = 1;  // in every file, and never read

  visit(device.Application_title, u"Tolvane Ver" + String(product::kVersionText));  // 0
  visit(device.Copy_light, product::kCopyright);                                    // 2
  visit(device.t_SaveFormat, 1);                                                    // 4
  visit(device.t_Save_ID_DisableMode, 0);                                           // 8
  visit(reserved, 1);                                                               // 12
  visit(device.install_version, product::kVersion);                                 // 16
  visit(device.t_bitRate, 2);                                                       // 20
  visit(device.t_msgID_type, 0);                                                    // 24
  visit(device.t_MsgFmtTyp, 0, 116);                                                // 28
  visit(device.t_silent_mode, 0);                                                   // 32
  visit(device.t_ViewCaution, 1);                                                   // 36
  visit(device.t_Timer_Mode, 0, 119);                                               // 40
  visit(device.t_DataChangeColorTime, 60000);                                       // 44
  visit(device.t_DataChangeColor, Rgb(255, 0, 0));                                  // 48
  visit(device.t_DataChangeColorEnable, 1);                                         // 52
  visit(device.t_MsgLateColor_Ratio, 30);                                           // 56
  visit(device.t_MsgLateColor_Time, 60000);                                         // 60
  visit(device.t_MsgLateColor, Rgb(255, 0, 0));                                     // 64
  visit(device.t_MsgLateColorEnable, 1);                                            // 68
  visit(device.t_MsgBlackout_Ratio, 250);                                           // 72
  visit(device.t_MsgBlackout_Color, Rgb(150, 150, 150));                            // 76
  visit(device.t_MsgBlackout_Enable, 1);                                            // 80
  visit(device.t_DisableID_ON, device.t_DisableID_MAX, 0);                          // 84
  visit(device.t_DisableID_Start, device.t_DisableID_MAX, 0);                       // 116
  visit(device.t_DisableID_End, device.t_DisableID_MAX, 0);                         // 148
  visit(device.t_MsgMarker_ON, device.t_MsgMarker_MAX, 0);                          // 180
  visit(device.t_MsgMarkerID, device.t_MsgMarker_MAX, 0);                           // 212
  visit(device.t_MsgMarkerStartByte, device.t_MsgMarker_MAX, 1);                    // 244
  visit(device.t_MsgMarkerEndByte, device.t_MsgMarker_MAX, 1);                      // 276
  visit(device.t_MsgMarkerColor, device.t_MsgMarker_MAX, Rgb(243, 179, 255));       // 308
  visit(device.t_SaveFilePath_mode, 0);                                             // 340
  visit(device.t_SaveFilePath, device.ExecutableFolder());                          // 344
  visit(device.t_LogSaveFormat, kLogFormatSpreadsheet);                             // 346
  visit(device.t_Excel_Format, 1, 121);                                             // 350
  visit(device.t_Excel_soft, 1, 115);                                               // 354
  visit(device.t_LogSaveFilePath_mode, 0);                                          // 358
  visit(device.t_LogSaveFilePath, device.ExecutableFolder());                       // 362
  visit(device.t_LogSave_Enable, 1);                                                // 364
  visit(device.t_LogSave_subFolder, 0);                                             // 368
  visit(device.t_LogComment, StringView(u"ＣＡＮ受信ログ"));                        // 372
  visit(device.t_dividend_ratio, 1.0, 122);                                         // 374 to 381
}

}  // namespace tolvane
