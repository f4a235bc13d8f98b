// How a start ends with files that cannot be used, and what the list of adapters shows of what is
// plugged in.
#include <array>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/window/control_ids.h"
#include "tests/window/damaged_library.h"
#include "tests/window/message_icon.h"
#include "tests/window/window_fixture.h"
#include "tools/drive/screen_picture.h"
#include "tools/drive/text.h"

namespace tolvane::window {
namespace {

using enum Damage;
using Lines = std::vector<std::wstring>;

constexpr const wchar_t* kTitle = L"Tolvane Ver1.23";
constexpr std::wstring_view kNoSupportLibrary =
    L"qxt100.dll が見つかりません。\r\nqxt100.dll は同梱のものを使用してください。\r\n"
    L"アプリケーションを終了します。";
constexpr std::wstring_view kNoDevice =
    L"デバイスが見つかりません。\r\nアプリケーションを終了します。";
constexpr std::wstring_view kDeviceFails =
    L"機器が正常に動作していません。\r\nアプリケーションを終了します。";
constexpr std::string_view kOneOfEach = "[canusb 1]\n[interface 1]\n[kvaser 0]\n";

struct VendorLibrary {
  const wchar_t* file;
  std::string_view called_export;
};
constexpr std::array<VendorLibrary, 3> kVendorLibraries{{{L"canusbdrv.dll", "canusb_Read"},
                                                         {L"IFCan.dll", "CanReceiveMessage"},
                                                         {L"canlib32.dll", "canRead"}}};
constexpr std::string_view kSupportExport = "ColorAttenuation";

/// What is wrong with each vendor's library, in the order of kVendorLibraries.
using Damages = std::array<Damage, 3>;

std::string Content(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

class StartOutcome : public RealProgram {
 protected:
  /// The bench with all three libraries in place, each with its damage.
  void PlugInDamaged(std::string_view ini, const Damages& damages) {
    PlugIn(ini, {kVendorLibraries[0].file, kVendorLibraries[1].file, kVendorLibraries[2].file});
    for (std::size_t i = 0; i < damages.size(); ++i) {
      const auto& [file, called_export] = kVendorLibraries[i];
      ASSERT_TRUE(CopyDamaged(OwnFolder() / L"..\\..\\simulator" / file, SystemFolder() / file,
                              damages[i], called_export));
    }
  }

  DrivenWindow StartReady() {
    const DrivenWindow window = StartProgram();
    EXPECT_TRUE(window.Exists());
    EXPECT_TRUE(WaitUntil([&] { return window.Enabled(id::Bt_Connect); }));
    return window;
  }

  void End(const DrivenWindow& window) {
    window.Close();
    EXPECT_EQ(program_->WaitForEnd(), 0u);
  }
};

struct FailingStart {
  const char* label;
  std::string_view ini;
  Damages damages;
  Damage support_damage;
  std::wstring_view text;
};

std::ostream& operator<<(std::ostream& stream, const FailingStart& row) {
  return stream << row.label;
}

class StartOutcomes : public StartOutcome, public testing::WithParamInterface<FailingStart> {};

// A library that cannot be used finds nothing, so with none that can the start ends at the search.
const FailingStart kFailingStarts[] = {
    {"SupportIsNoLibrary", kOneOfEach, {}, kNoLibrary, kNoSupportLibrary},
    {"SupportOfOtherMachine", kOneOfEach, {}, kOtherMachine, kNoSupportLibrary},
    {"SupportLacksExport", kOneOfEach, {}, kLacksExport, kNoSupportLibrary},
    {"UnusableTextMachineExport",
     kOneOfEach,
     {kNoLibrary, kOtherMachine, kLacksExport},
     kNone,
     kNoDevice},
    {"UnusableMachineExportText",
     kOneOfEach,
     {kOtherMachine, kLacksExport, kNoLibrary},
     kNone,
     kNoDevice},
    {"UnusableExportTextMachine",
     kOneOfEach,
     {kLacksExport, kNoLibrary, kOtherMachine},
     kNone,
     kNoDevice},
    {"SerialOfSixCharacters", "[canusb 1]\nserial = TV1234\n[canusb 2]\n", {}, kNone, kNoDevice},
    {"EverySearchFails",
     "[canusb]\ncanusb_getFirstAdapter = 0\n[canusb 1]\n[interface 1]\nCanOpenPort = -1\n"
     "[kvaser]\ncanGetNumberOfChannels = -1\n[kvaser 0]\n",
     {},
     kNone,
     kNoDevice},
    {"SecondVersionQueryFails",
     "[canusb 1]\ncanusb_VersionInfo = -1 after 1\n",
     {},
     kNone,
     kDeviceFails},
};

TEST_P(StartOutcomes, EndTheProgramWithTheirMessageAndTheToldFiles) {
  const FailingStart& row = GetParam();
  ASSERT_NO_FATAL_FAILURE(PlugInDamaged(row.ini, row.damages));
  const bool fails_at_libraries = row.support_damage != kNone;
  const std::filesystem::path kept = folder_.Path() / L"lglist.dat";
  const std::filesystem::path settings = folder_.Path() / L"config.dat";
  std::ofstream(kept, std::ios::binary) << "{\\rtf1 what the user had\\par}";
  if (fails_at_libraries) {
    ASSERT_TRUE(CopyDamaged(OwnFolder() / L"..\\..\\program\\qxt100.dll",
                            folder_.Path() / L"qxt100.dll", row.support_damage, kSupportExport));
    std::ofstream(settings, std::ios::binary) << "untouched";
  }

  const std::optional<ShownMessage> message = StartToMessage();
  ASSERT_TRUE(message);
  EXPECT_EQ(Utf8(message->title), Utf8(kTitle));
  EXPECT_EQ(Utf8(message->text), Utf8(row.text));
  EXPECT_TRUE(
      WaitUntil([&] { return ShowsIcon(message->box, IDI_HAND); }, std::chrono::seconds(5)));
  EXPECT_FALSE(ShowsIcon(message->box, IDI_QUESTION));
  KeepPicture(message->box, "message");
  ASSERT_TRUE(Press(*message, IDOK));
  EXPECT_TRUE(program_->WaitForEnd());

  const std::string page = Content(kept);
  EXPECT_TRUE(page.starts_with("{\\rtf1")) << page;
  EXPECT_EQ(page.find("what the user had"), std::string::npos);
  const std::string record = Content(settings);
  if (fails_at_libraries) {
    EXPECT_EQ(record, "untouched");
    return;
  }
  // The log is on, without subfolder; the comment comes from the still empty box; the ratio is 1.
  using namespace std::string_literals;
  EXPECT_TRUE(record.ends_with("\1\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\xF0\x3F"s));
}

INSTANTIATE_TEST_SUITE_P(Table, StartOutcomes, testing::ValuesIn(kFailingStarts),
                         [](const auto& row) { return row.param.label; });

struct GoodBesideBad {
  const char* label;
  Damages damages;
  const wchar_t* line;
};

std::ostream& operator<<(std::ostream& stream, const GoodBesideBad& row) {
  return stream << row.label;
}

class GoodLibrary : public StartOutcome, public testing::WithParamInterface<GoodBesideBad> {};

const GoodBesideBad kGoodBesideBad[] = {
    {"Canusb", {kNone, kLacksExport, kNoLibrary}, L"CANUSB TV100001"},
    {"Interface", {kOtherMachine, kNone, kLacksExport}, L"Interface PCI-485120 port:1"},
    {"Kvaser", {kNoLibrary, kOtherMachine, kNone}, L"Kvaser virtual bench (channel 0)"},
};

TEST_P(GoodLibrary, StartsTheProgramBesideUnusableOnes) {
  ASSERT_NO_FATAL_FAILURE(PlugInDamaged(kOneOfEach, GetParam().damages));
  const DrivenWindow window = StartReady();
  EXPECT_EQ(window.ListLines(id::Cmb_Serect_Device), Lines{GetParam().line});
  End(window);
}

INSTANTIATE_TEST_SUITE_P(Table, GoodLibrary, testing::ValuesIn(kGoodBesideBad),
                         [](const auto& row) { return row.param.label; });

/// The text that a selected line shows in the version box.
std::wstring TextOfLine(const DrivenWindow& window, int line) {
  window.SelectLine(id::Cmb_Serect_Device, line);
  return window.Text(id::TB_ODB_Hard_Version);
}

std::wstring CardText(const std::wstring& product, const std::wstring& serial,
                      const std::wstring& firmware) {
  return L"P/N：" + product + L"  S/N：" + serial + L"  FW：" + firmware;
}
/// Of a card of which the bench file says nothing.
std::wstring CardText(const wchar_t* serial) {
  return CardText(L"733-01300-09810-7", serial, L"3.18.0");
}

TEST_F(StartOutcome, ListsThreeKindsInOrderWithTheirTexts) {
  ASSERT_NO_FATAL_FAILURE(
      PlugInDamaged("[canusb 1]\nserial = TV700001\nversion = V1.02N0.93\n"
                    "[canusb 2]\nserial = TV700002\nversion = V9.99N9.99\n"
                    "[interface 2]\ndevice = 4852\nsubsystem = 8331\nrevision = 3\nchannel = 2\n"
                    "[interface 5]\ndevice = 1\nphysical_layer = 0\n"
                    "[kvaser 0]\n[kvaser 1]\nfirmware = 0x0009002300070042\n"
                    "upc = 0x0041023456078909\n[kvaser 2]\n[kvaser]\nchannels = 5\n",
                    {}));
  const DrivenWindow window = StartReady();
  EXPECT_EQ(window.ListLines(id::Cmb_Serect_Device),
            (Lines{L"CANUSB TV700001", L"CANUSB TV700002", L"Interface PCI-485211 port:2",
                   L"Interface  port:5", L"Kvaser virtual bench (channel 0)",
                   L"Kvaser virtual bench (channel 1)", L"Kvaser virtual bench (channel 2)"}));
  EXPECT_EQ(window.SelectedLine(id::Cmb_Serect_Device), 0);
  EXPECT_EQ(window.Text(id::TB_ODB_Hard_Version), L"V1.02N0.93");
  (void)Send(window.Control(id::Cmb_Serect_Device), CB_SHOWDROPDOWN, TRUE, 0);
  EXPECT_TRUE(WaitUntil([] { return FindTopWindow(L"ComboLBox") != nullptr; }));
  EXPECT_TRUE(AwaitPainted(FindTopWindow(L"ComboLBox")));
  KeepPicture(window.Handle(), "list");
  (void)Send(window.Control(id::Cmb_Serect_Device), CB_SHOWDROPDOWN, FALSE, 0);

  EXPECT_EQ(TextOfLine(window, 1), L"V9.99N9.99");
  EXPECT_EQ(Utf8(TextOfLine(window, 2)), Utf8(L"Interface PCI-485211 RevID:3 ch:2 高速CAN対応"));
  EXPECT_EQ(TextOfLine(window, 3), L"Interface  RevID:1 ch:1");
  // Each Kvaser line shows the card of the next one, and the last that of the first.
  EXPECT_EQ(Utf8(TextOfLine(window, 4)), Utf8(CardText(L"410-23456-07890-9", L"10001", L"9.35.7")));
  EXPECT_EQ(Utf8(TextOfLine(window, 5)), Utf8(CardText(L"10002")));
  EXPECT_EQ(Utf8(TextOfLine(window, 6)), Utf8(CardText(L"10000")));
  EXPECT_NE(bench_->Report().find("canOpenChannel(4, 128) = -3\n"), std::string::npos)
      << "a channel that is told, but not there, is tried";
  KeepPicture(window.Handle(), "kvaser");
  EXPECT_EQ(TextOfLine(window, 0), L"V1.02N0.93");
  End(window);
}

TEST_F(StartOutcome, GoesOnWithAdaptersThatFailAtAnyStep) {
  ASSERT_NO_FATAL_FAILURE(PlugInDamaged(
      "[canusb]\ncanusb_getNextAdapter = -1 after 2\n"
      "[canusb 1]\n[canusb 2]\ncanusb_Open = -3\n[canusb 3]\ncanusb_VersionInfo = -1\n[canusb 4]\n"
      "[interface 1]\nCanOpenPort = -1\n[interface 2]\nCanGetPortInformation = 0xC0000005\n"
      "[interface 3]\nCanClosePort = 0xC000000E\n"
      "[kvaser 0]\ncanOpenChannel = -3\n[kvaser 1]\ncanGetChannelData.13 = -3\n"
      "[kvaser 2]\ncanBusOff = -15\ncanClose = -15\n[kvaser 4]\n",
      {}));
  const DrivenWindow window = StartReady();
  EXPECT_EQ(window.ListLines(id::Cmb_Serect_Device),
            (Lines{L"CANUSB TV100001", L"CANUSB TV100002", L"CANUSB TV100003", L"Interface  port:2",
                   L"Interface PCI-485120 port:3", L"Kvaser virtual bench (channel 0)", L"",
                   L"Kvaser virtual bench (channel 2)"}));
  EXPECT_EQ(window.Text(id::TB_ODB_Hard_Version), L"V1.02N0.93");
  EXPECT_EQ(TextOfLine(window, 2), L"???");
  EXPECT_EQ(TextOfLine(window, 1), L"???") << "a failed open leaves the text";
  EXPECT_EQ(TextOfLine(window, 3), L"Interface  RevID:0 ch:0");
  EXPECT_EQ(Utf8(TextOfLine(window, 4)), Utf8(L"Interface PCI-485120 RevID:1 ch:1 高速CAN対応"));
  // Channels 1, 2 and 4 have the handles 0, 1 and 2, which are then asked as channel numbers: so
  // the names are those of channels 0, 1, which has none, and 2.
  EXPECT_EQ(Utf8(TextOfLine(window, 5)), Utf8(CardText(L"10001")));
  EXPECT_EQ(Utf8(TextOfLine(window, 6)), Utf8(CardText(L"10002")));
  EXPECT_EQ(Utf8(TextOfLine(window, 7)), Utf8(CardText(L"10000")));
  End(window);
}

TEST_F(StartOutcome, ListsAtMostThirtyAdaptersAndChannelsAndPortsUpTo255) {
  std::string ini =
      "[canusb]\nsearch_upper_half = 0x8001\n"
      "[canusb 1]\nserial = ABCDEFGHIJKLMNOPQRSTUVWXYZ012345\n"
      "[canusb 2]\nserial = TV\\x83\\x65\\x83\\x58\\x83\\x67\n"
      "[interface 255]\n[interface 256]\n";
  Lines expected{L"CANUSB ABCDEFGHIJKLMNOPQRSTUVWXYZ012345", L"CANUSB TVテスト"};
  for (int n = 3; n <= 31; ++n) {
    const std::string serial = "SERIAL" + std::to_string(n);
    ini += "[canusb " + std::to_string(n) + "]\nserial = " + serial + "\n";
    if (n <= 30) expected.push_back(L"CANUSB " + Wide(serial));
  }
  expected.emplace_back(L"Interface PCI-485120 port:255");
  for (int n = 0; n <= 30; ++n) {
    ini += "[kvaser " + std::to_string(n) + "]\n";
    if (n < 30) {
      expected.push_back(L"Kvaser virtual bench (channel " + std::to_wstring(n) + L")");
    }
  }
  ASSERT_NO_FATAL_FAILURE(PlugInDamaged(ini, {}));
  const DrivenWindow window = StartReady();
  EXPECT_EQ(window.ListLines(id::Cmb_Serect_Device), expected);
  EXPECT_EQ(Utf8(TextOfLine(window, 60)), Utf8(CardText(L"10000")));
  EXPECT_EQ(TextOfLine(window, 1), L"V1.02N0.93");
  // The bytes of the serial go to the driver as they came.
  EXPECT_NE(bench_->Report().find("canusb_Open(\"TV\\x83"), std::string::npos);
  End(window);
}

}  // namespace
}  // namespace tolvane::window
