// What users type into the boxes of the settings dialogs: whatever it is, the settings stay within
// their limits, and a dialog that shows them and is confirmed again changes nothing.
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "config/dialogs/formcommonsetting.h"
#include "config/dialogs/formoption1.h"
#include "config/dialogs/number_input.h"
#include "run/number_text.h"
#include "tests/fuzz/fuzz_entry.h"
#include "tests/fuzz/input.h"

namespace {

using namespace tolvane;
using namespace tolvane::fuzz;

void JudgeDecimal(StringView text) {
  const auto value = DecimalInput(text);
  const auto whole = WholeNumberInput(text, -100, 1000);
  Require(!whole || (value && *whole >= -100 && *whole <= 1000));
  Require(!whole || std::abs(*whole - *value) <= 0.5);
  if (!value || !std::isfinite(*value)) return;
  Require(whole.has_value() == (*value >= -100.5 && *value <= 1000.5));
  // The numbers that are shown without an exponent come back from their texts.
  const double size = std::abs(*value);
  if (size != 0 && (size < 0.0001 || size >= 1e14)) return;
  const auto again = DecimalInput(DecimalText(*value));
  Require(again && std::abs(*again - *value) <= size * 1e-14);
}

void JudgeHex(StringView text) {
  const auto value = HexInput(text);
  if (!value) return;
  const bool fits = *value == static_cast<std::int32_t>(*value);
  Require(fits || *value == INT64_MAX);
  if (fits) Require(HexInput(HexText(static_cast<std::int32_t>(*value))) == value);
  constexpr StringView kBlanks = u" \t\u3000";
  const std::size_t first = text.find_first_not_of(u" \t\u30000");
  const bool is_zero = first == StringView::npos;
  Require(fits == (is_zero || text.find_last_not_of(kBlanks) - first < 8));
}

bool IsWithin(std::int64_t value, std::int64_t low, std::int64_t high) {
  return value >= low && value <= high;
}

void JudgeLimits(const ELM327_Info& device) {
  for (const std::int32_t time : {device.t_DataChangeColorTime, device.t_MsgLateColor_Time}) {
    Require(IsWithin(time, 1000, 3'600'000) && time % 1000 == 0);
  }
  Require(IsWithin(device.t_MsgLateColor_Ratio, 1, 100));
  Require(IsWithin(device.t_MsgBlackout_Ratio, 150, 10000));
  Require(device.t_dividend_ratio >= 0.1 && device.t_dividend_ratio <= 10.0);
  constexpr std::int32_t kHighestId = 0x1FFFFFFF;
  for (std::int16_t row = 0; row < 8; ++row) {
    Require(IsWithin(device.t_DisableID_End(row), 0, kHighestId));
    Require(IsWithin(device.t_DisableID_Start(row), 0, device.t_DisableID_End(row)));
    Require(IsWithin(device.t_MsgMarkerID(row), 0, kHighestId));
    Require(IsWithin(device.t_MsgMarkerEndByte(row), 1, 8));
    Require(IsWithin(device.t_MsgMarkerStartByte(row), 1, device.t_MsgMarkerEndByte(row)));
  }
}

template <typename Dialog>
void ConfirmAsShown(ELM327_Info& device) {
  Dialog dialog;
  dialog.read_setting(device);
  dialog.Bt_OK_Click(device);
}

void JudgeCommonSettings(Input& input, ELM327_Info& device) {
  FormCommonSetting dialog;
  dialog.read_setting(device);
  for (TextControl* box :
       {&dialog.TB_DataChangeColorTime, &dialog.TB_MsgLateColor_Ratio, &dialog.TB_MsgLateColor_Time,
        &dialog.TB_Msg_Blackout_Ratio, &dialog.TB_dividend_ratio}) {
    box->text = input.Text();
    JudgeDecimal(box->text);
  }
  dialog.Bt_OK_Click(device);
  JudgeLimits(device);
  const ELM327_Info before = device;
  ConfirmAsShown<FormCommonSetting>(device);
  Require(device.t_DataChangeColorTime == before.t_DataChangeColorTime &&
          device.t_MsgLateColor_Ratio == before.t_MsgLateColor_Ratio &&
          device.t_MsgLateColor_Time == before.t_MsgLateColor_Time &&
          device.t_MsgBlackout_Ratio == before.t_MsgBlackout_Ratio);
  Require(std::abs(device.t_dividend_ratio - before.t_dividend_ratio) <= 1e-14 * 10);
}

void JudgeExtensionSettings(Input& input, ELM327_Info& device) {
  FormOption1 dialog;
  dialog.read_setting(device);
  for (std::size_t row = 0; row < FormOption1::kRows; ++row) {
    for (TextControl* box : {&dialog.TB_DisableID_Start[row], &dialog.TB_DisableID_End[row],
                             &dialog.TB_MsgMarkerID[row], &dialog.TB_MsgMarkerStartByte[row],
                             &dialog.TB_MsgMarkerEndByte[row]}) {
      if (input.AtEnd()) continue;
      box->text = input.Text();
      JudgeHex(box->text);
    }
  }
  dialog.Bt_OK_Click(device);
  JudgeLimits(device);
  const ELM327_Info before = device;
  ConfirmAsShown<FormOption1>(device);
  for (std::int16_t row = 0; row < 8; ++row) {
    Require(device.t_DisableID_Start(row) == before.t_DisableID_Start(row) &&
            device.t_DisableID_End(row) == before.t_DisableID_End(row) &&
            device.t_MsgMarkerID(row) == before.t_MsgMarkerID(row) &&
            device.t_MsgMarkerStartByte(row) == before.t_MsgMarkerStartByte(row) &&
            device.t_MsgMarkerEndByte(row) == before.t_MsgMarkerEndByte(row));
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  ELM327_Info device{u"C:\\Tolvane"};
  device.Param_ALL_Clear();
  JudgeCommonSettings(input, device);
  JudgeExtensionSettings(input, device);
  return 0;
}
