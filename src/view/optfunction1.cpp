#include "view/optfunction1.h"

#include <algorithm>

#include "run/number_text.h"

namespace tolvane::OptFunction1 {

namespace {

std::int32_t LastRange(const ELM327_Info& device) {
  return std::min(device.t_DisableID_MAX, kSettingRows - 1);
}

}  // namespace

std::int32_t Check_DisableID(std::int32_t id, const ELM327_Info& device) {
  for (std::int16_t i = 0; i <= LastRange(device); ++i) {
    if (device.t_DisableID_ON(i) == 1 && id >= device.t_DisableID_Start(i) &&
        id <= device.t_DisableID_End(i)) {
      return 1;
    }
  }
  return 0;
}

String Make_DisableID_Text(const ELM327_Info& device) {
  String text;
  for (std::int16_t i = 0; i <= LastRange(device); ++i) {
    if (device.t_DisableID_ON(i) != 1) continue;
    if (text.empty()) text = u"\r\n";
    text += u"メッセージ除外範囲 ";
    text += DecimalText(std::int64_t{i} + 1);
    text += u"： ";
    text += HexSettingText(device.t_DisableID_Start(i));
    text += u" ～ ";
    text += HexSettingText(device.t_DisableID_End(i));
    text += u"\r\n";
  }
  if (!text.empty() && device.t_Save_ID_DisableMode == 1) {
    text += u"除外設定をログ出力にも適用\r\n";
  }
  return text;
}

}  // namespace tolvane::OptFunction1
