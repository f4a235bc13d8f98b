#include "config/dialogs/formoption1.h"

#include <gtest/gtest.h>

#include "platform/memory/dialogs/colour_dialog.h"

namespace tolvane {
namespace {

class FormOption1Test : public testing::Test {
 protected:
  FormOption1Test() { device.Param_ALL_Clear(); }

  void OpenTypeRange(std::size_t row, StringView start, StringView end) {
    form.read_setting(device);
    form.TB_DisableID_Start[row].text = String(start);
    form.TB_DisableID_End[row].text = String(end);
    form.CB_DisableID[row].checked = true;
    form.Bt_OK_Click(device);
  }

  ELM327_Info device{u"C:\\Tolvane"};
  FormOption1 form;
};

TEST_F(FormOption1Test, OpeningShowsIDsInCapitalHexadecimalWithZeroAsOneDigit) {
  device.t_DisableID_Start(0, 0);
  device.t_DisableID_End(0, 0xF);
  device.t_DisableID_Start(7, 0x10);
  device.t_DisableID_End(7, 0x1ABCDEF);
  device.t_DisableID_ON(7, 1);
  device.t_MsgMarkerID(3, 0x7FF);
  device.t_MsgMarkerEndByte(3, 8);
  device.t_MsgMarker_ON(3, 1);
  device.t_Save_ID_DisableMode = 1;
  form.read_setting(device);
  EXPECT_EQ(form.Caption, u"Tolvane Ver1.23　　- 拡張機能１ -");
  EXPECT_EQ(form.TB_DisableID_Start[0].text, u"0");
  EXPECT_EQ(form.TB_DisableID_End[0].text, u"00F");
  EXPECT_EQ(form.TB_DisableID_Start[7].text, u"010");
  EXPECT_EQ(form.TB_DisableID_End[7].text, u"1ABCDEF");
  EXPECT_FALSE(form.CB_DisableID[0].checked);
  EXPECT_TRUE(form.CB_DisableID[7].checked);
  EXPECT_TRUE(form.CB_Save_ID_DisableMode.checked);
  EXPECT_EQ(form.TB_MsgMarkerID[3].text, u"7FF");
  EXPECT_EQ(form.TB_MsgMarkerStartByte[3].text, u"1");
  EXPECT_EQ(form.TB_MsgMarkerEndByte[3].text, u"8");
  EXPECT_TRUE(form.CB_MsgMarker[3].checked);
  EXPECT_EQ(form.Bt_MarkerColor_Dialog[3].back_colour, 0xFFB3F3);
}

TEST_F(FormOption1Test, AMarkersColourGoesToItsOwnRow) {
  form.read_setting(device);
  const std::int32_t before = device.t_MsgMarkerColor(0);
  platform::memory::ColourDialog dialog;
  dialog.Answer(0x00FF00);
  form.Bt_MarkerColor_Dialog_Click(7, dialog);
  form.Bt_MarkerColor_Dialog_Click(6, dialog);  // cancelled
  form.Bt_OK_Click(device);
  EXPECT_EQ(device.t_MsgMarkerColor(7), 0x00FF00);
  for (std::int16_t row = 0; row < 7; ++row) EXPECT_EQ(device.t_MsgMarkerColor(row), before) << row;
}

struct Range {
  const char* label;
  StringView start;
  StringView end;
  std::int32_t expected_start;
  std::int32_t expected_end;
};

class FormOption1Ranges : public FormOption1Test, public testing::WithParamInterface<Range> {};

TEST_P(FormOption1Ranges, AreTakenWholeOrNotAtAllWhileTheCheckBoxIsStored) {
  const Range& range = GetParam();
  device.t_DisableID_Start(6, 0x111);
  device.t_DisableID_End(6, 0x222);
  OpenTypeRange(6, range.start, range.end);
  EXPECT_EQ(device.t_DisableID_ON(6), 1);
  EXPECT_EQ(device.t_DisableID_Start(6), range.expected_start);
  EXPECT_EQ(device.t_DisableID_End(6), range.expected_end);
}

const String kFortyDigits(40, u'F');
const Range kRanges[] = {
    {"Good", u"100", u"7ff", 0x100, 0x7FF},
    {"OneID", u"1FFFFFFF", u"1FFFFFFF", 0x1FFFFFFF, 0x1FFFFFFF},
    {"StartAboveEnd", u"7FF", u"100", 0x111, 0x222},
    {"EmptyBoxesAreZero", u"", u"", 0, 0},
    {"LettersCountAsZero", u"xyz", u"7FF", 0, 0x7FF},
    {"EndTooLarge", u"0", u"20000000", 0x111, 0x222},
    {"StartTooLarge", u"20000000", u"20000001", 0x111, 0x222},
    {"Negative32Bit", u"FFFFFFFF", u"7FF", 0x111, 0x222},
    {"FortyDigits", u"0", kFortyDigits, 0x111, 0x222},
};
INSTANTIATE_TEST_SUITE_P(Rows, FormOption1Ranges, testing::ValuesIn(kRanges),
                         [](const auto& row) { return row.param.label; });

TEST_F(FormOption1Test, TheLastExclusionRowIsNeverWrittenBack) {
  device.t_DisableID_ON(7, 1);
  device.t_DisableID_Start(7, 0x300);
  device.t_DisableID_End(7, 0x3FF);
  form.read_setting(device);
  form.CB_DisableID[7].checked = false;
  form.TB_DisableID_Start[7].text = u"1";
  form.TB_DisableID_End[7].text = u"2";
  form.Bt_OK_Click(device);
  EXPECT_EQ(device.t_DisableID_ON(7), 1);
  EXPECT_EQ(device.t_DisableID_Start(7), 0x300);
  EXPECT_EQ(device.t_DisableID_End(7), 0x3FF);
}

TEST_F(FormOption1Test, TheLastExclusionRowAloneIsGrey) {
  form.read_setting(device);
  for (std::size_t row = 0; row < FormOption1::kRows; ++row) {
    EXPECT_EQ(form.CB_DisableID[row].enabled, row != 7) << row;
    EXPECT_EQ(form.TB_DisableID_Start[row].enabled, row != 7) << row;
    EXPECT_EQ(form.TB_DisableID_End[row].enabled, row != 7) << row;
    EXPECT_TRUE(form.CB_MsgMarker[row].enabled) << row;
    EXPECT_TRUE(form.TB_MsgMarkerID[row].enabled) << row;
  }
}

TEST_F(FormOption1Test, ClearedBoxesSwitchOffEveryRowButTheLastRange) {
  for (std::int16_t row = 0; row < 8; ++row) {
    device.t_DisableID_ON(row, 1);
    device.t_MsgMarker_ON(row, 1);
  }
  device.t_Save_ID_DisableMode = 1;
  form.read_setting(device);
  for (Choice& box : form.CB_DisableID) box.checked = false;
  for (Choice& box : form.CB_MsgMarker) box.checked = false;
  form.CB_Save_ID_DisableMode.checked = false;
  form.Bt_OK_Click(device);
  for (std::int16_t row = 0; row < 8; ++row) {
    EXPECT_EQ(device.t_DisableID_ON(row), row == 7 ? 1 : 0) << row;
    EXPECT_EQ(device.t_MsgMarker_ON(row), 0) << row;
  }
  EXPECT_EQ(device.t_Save_ID_DisableMode, 0);
}

TEST_F(FormOption1Test, AllEightMarkersAreWritten) {
  form.read_setting(device);
  for (std::size_t i = 0; i < FormOption1::kRows; ++i) {
    form.CB_MsgMarker[i].checked = true;
    form.TB_MsgMarkerID[i].text = u"12" + String(1, static_cast<char16_t>(u'0' + i));
    form.TB_MsgMarkerStartByte[i].text = u"2";
    form.TB_MsgMarkerEndByte[i].text = u"8";
    form.Bt_MarkerColor_Dialog[i].back_colour = static_cast<std::int32_t>(i);
  }
  form.CB_Save_ID_DisableMode.checked = true;
  form.Bt_OK_Click(device);
  EXPECT_EQ(device.t_Save_ID_DisableMode, 1);
  for (std::int16_t i = 0; i < 8; ++i) {
    EXPECT_EQ(device.t_MsgMarker_ON(i), 1) << i;
    EXPECT_EQ(device.t_MsgMarkerID(i), 0x120 + i) << i;
    EXPECT_EQ(device.t_MsgMarkerStartByte(i), 2) << i;
    EXPECT_EQ(device.t_MsgMarkerEndByte(i), 8) << i;
    EXPECT_EQ(device.t_MsgMarkerColor(i), i) << i;
  }
}

struct MarkerInput {
  const char* label;
  StringView id;
  StringView start;
  StringView end;
  std::int32_t expected_id;
  std::int32_t expected_start;
  std::int32_t expected_end;
};

class FormOption1Markers : public FormOption1Test,
                           public testing::WithParamInterface<MarkerInput> {};

TEST_P(FormOption1Markers, KeepWhatIsBadWhileColourAndCheckBoxAreTaken) {
  const MarkerInput& input = GetParam();
  device.t_MsgMarkerID(0, 0x55);
  device.t_MsgMarkerStartByte(0, 4);
  device.t_MsgMarkerEndByte(0, 5);
  form.read_setting(device);
  form.CB_MsgMarker[0].checked = true;
  form.Bt_MarkerColor_Dialog[0].back_colour = 0x123456;
  form.TB_MsgMarkerID[0].text = String(input.id);
  form.TB_MsgMarkerStartByte[0].text = String(input.start);
  form.TB_MsgMarkerEndByte[0].text = String(input.end);
  form.Bt_OK_Click(device);
  EXPECT_EQ(device.t_MsgMarker_ON(0), 1);
  EXPECT_EQ(device.t_MsgMarkerColor(0), 0x123456);
  EXPECT_EQ(device.t_MsgMarkerID(0), input.expected_id);
  EXPECT_EQ(device.t_MsgMarkerStartByte(0), input.expected_start);
  EXPECT_EQ(device.t_MsgMarkerEndByte(0), input.expected_end);
}

const MarkerInput kMarkers[] = {
    {"Good", u"7ff", u"1", u"8", 0x7FF, 1, 8},
    {"EmptyIDIsNoNumber", u"", u"1", u"1", 0x55, 1, 1},
    {"IDTooLarge", u"20000000", u"1", u"1", 0x55, 1, 1},
    {"NegativeID", u"FFFFFFFF", u"1", u"1", 0x55, 1, 1},
    {"ThreeToTwo", u"1", u"3", u"2", 1, 4, 5},
    {"ByteNine", u"1", u"1", u"9", 1, 4, 5},
    {"ByteZero", u"1", u"0", u"1", 1, 4, 5},
    {"ByteLetters", u"1", u"a", u"8", 1, 4, 5},
    {"ByteEmpty", u"1", u"", u"", 1, 4, 5},
    {"ByteHalfRoundsToEven", u"1", u"2.5", u"3.5", 1, 2, 4},
};
INSTANTIATE_TEST_SUITE_P(Rows, FormOption1Markers, testing::ValuesIn(kMarkers),
                         [](const auto& row) { return row.param.label; });

}  // namespace
}  // namespace tolvane
