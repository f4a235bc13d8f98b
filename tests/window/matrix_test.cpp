// Three kinds of adapters in four workers, in the real program: what each shows of one recording,
// which calls its library gets, and how it tells that the adapter does not open.
#include <array>
#include <fstream>
#include <string>
#include <vector>

#include "tests/window/dialog_fixture.h"
#include "tests/window/text.h"
// Last: its symbols are also names of controls elsewhere.
#include "src/platform/windows/resources/resource.h"

namespace tolvane::window {
namespace {

// Standard, extended and remote frames, two of them of one number, and what Kvaser alone tells: an
// error frame and a frame that the adapter itself has sent.
constexpr std::string_view kRecording =
    "(0.000) can0 123#0102\n"
    "(0.000) can0 00000123#AA\n"
    "(0.000) can0 456#R2\n"
    "(0.050) can0 20000004#0000000000000000\n"
    "(0.100) can0 123#0304\n"
    "(0.100) can0 00000123#BB\n"
    "(0.100) can0 456#R2\n"
    "(0.120) can0 7A0#77 T\n"
    "(0.150) can0 1FFFFFFF#0011223344556677\n"
    "(0.250) can0 1FFFFFFF#0011223344556678\n"
    "(0.250) can0 7FF#\n";

// Of each kind one that works and one that fails in a run, though not in the search.
constexpr std::string_view kAdapters =
    "[canusb 1]\n[canusb 2]\ncanusb_Open = -3\n"
    "[interface 1]\n[interface 2]\nCanGetConfig = 0xC0000002\n"
    "[kvaser 0]\n[kvaser 1]\ncanOpenChannel = -15 after 1\n"
    "[bus]\nsource = log\nlog = frames.log\n";

enum Kind { kCanusb, kInterface, kKvaser };
constexpr std::array kKinds{kCanusb, kInterface, kKvaser};
constexpr std::array kKindNames{"CANUSB", "Interface", "Kvaser"};
/// Lines of the device list.
constexpr int Good(Kind kind) { return 2 * kind; }
constexpr int Failing(Kind kind) { return 2 * kind + 1; }

struct Settings {
  int bit_rate = 2;
  bool ids_of_29_bits = false;
  bool extended_only = false;
  bool silent = false;
};

struct WorkerRow {
  const char* name;
  Settings settings;
  bool excluding;                             // 700 to 7FF, from log and page
  std::array<std::wstring, 3> pages;          // by Kind, without header and foot
  std::array<const wchar_t*, 3> second_line;  // of the box of a failed open, by Kind
};

constexpr const wchar_t* kProgramEnds = L"アプリケーションを終了します。";
constexpr const wchar_t* kConnectionEnds = L"接続を終了します。";
constexpr const wchar_t* kHeader = L"ID  DLC  D1 D2 D3 D4 D5 D6 D7 D8\r\n";
constexpr const wchar_t* kHeader29 = L"E    ID    DLC  D1 D2 D3 D4 D5 D6 D7 D8\r\n";
constexpr const wchar_t* kFoot =
    L"\r\nメッセージ除外範囲 1： 700 ～ 7FF\r\n除外設定をログ出力にも適用\r\n";

/// A row: what stands before the data, the data, blanks for the missing bytes, the cycle.
std::wstring Row(const std::wstring& head, const std::wstring& bytes, const wchar_t* cycle) {
  return head + bytes + std::wstring(24 - bytes.size(), L' ') + L"   " + cycle + L"ms\r\n";
}

const std::wstring k123 = Row(L"123  2  ", L" 03 04", L"100");
const std::wstring k456 = Row(L"456  2  ", L" 00 00", L"100");
const std::wstring k7FF = Row(L"7FF  0  ", L"", L"----");
const std::wstring kStandard123 = Row(L"  00000123  2  ", L" 03 04", L"100");
const std::wstring kExtended123 = Row(L"* 00000123  1  ", L" BB", L"100");
const std::wstring kRemote456 = Row(L"  00000456  2  ", L" 00 00", L"100");
// CANUSB: no remote frame meets a row of its own again.
const std::wstring kNew456 = Row(L"  00000456  2  ", L" 00 00", L"----");
// Kvaser: a frame of any further flag falls on the row of the first key, the remote one and behind
// it, unless it is excluded, the one that the adapter sent.
const std::wstring kRemoteOn123 = Row(L"  00000123  2  ", L" 00 00", L"----");
const std::wstring kSentOn123 = Row(L"  00000123  1  ", L" 77", L"----");
const std::wstring kLong7FF = Row(L"  000007FF  0  ", L"", L"----");
const std::wstring k1FFFFFFF = Row(L"* 1FFFFFFF  8  ", L" 00 11 22 33 44 55 66 78", L"100");

const WorkerRow kWorkers[] = {
    {"FormBG",
     {},
     false,
     {k123 + k7FF, k123 + k456 + k7FF, k123 + k7FF},
     {kProgramEnds, kConnectionEnds, kConnectionEnds}},
    {"FormBG_29",
     {.ids_of_29_bits = true},
     false,
     {kStandard123 + kExtended123 + kNew456 + kNew456 + kLong7FF + k1FFFFFFF,
      kStandard123 + kExtended123 + kRemote456 + kLong7FF + k1FFFFFFF,
      kSentOn123 + kExtended123 + kLong7FF + k1FFFFFFF},
     {kProgramEnds, kConnectionEnds, kConnectionEnds}},
    {"FormBG2",
     {.silent = true},
     true,
     {k123, k123 + k456, k123},
     {kProgramEnds, kConnectionEnds, kProgramEnds}},
    {"FormBG2_29",
     {.bit_rate = 8, .ids_of_29_bits = true, .extended_only = true, .silent = true},
     true,
     {kStandard123 + kExtended123 + kNew456 + kNew456 + k1FFFFFFF, kExtended123 + k1FFFFFFF,
      kRemoteOn123 + kExtended123 + k1FFFFFFF},
     {kProgramEnds, kConnectionEnds, kProgramEnds}},
};

/// What a bit rate is on the screen and for each library; empty or 0 where it is refused.
struct RateRow {
  const wchar_t* shown;
  const char* canusb;
  int interface_code;
  int kvaser;
};
constexpr std::array<RateRow, 9> kRates{{{L"1M bps", "1000", 39, -1},
                                         {L"800k bps", "800", 0, 0},
                                         {L"500k bps", "500", 295, -2},
                                         {L"250k bps", "250", 570, -3},
                                         {L"100k bps", "100", 2358, -5},
                                         {L"50k bps", "50", 7459, -7},
                                         {L"20k bps", "20", 0, 0},
                                         {L"10k bps", "10", 0, -9},
                                         {L"125k bps", "125", 1338, -4}}};

using Calls = std::vector<std::string>;

class Matrix : public OpenedWindows {
 protected:
  void StartOn(std::string_view ini) {
    std::ofstream(folder_.Path() / L"frames.log", std::ios::binary) << kRecording;
    PlugIn(ini, {L"canusbdrv.dll", L"IFCan.dll", L"canlib32.dll"});
    ASSERT_NO_FATAL_FAILURE(Start());
  }

  void Set(const Settings& settings) {
    const DrivenWindow dialog = Open(menu_common_setting);
    for (const int id :
         {RB_BitRate_0 + settings.bit_rate, settings.ids_of_29_bits ? RB_MsgType_1 : RB_MsgType_0,
          settings.extended_only ? RB_MsgFmtTyp_1 : RB_MsgFmtTyp_0,
          settings.silent ? RB_Silent_Mode_1 : RB_Silent_Mode_0}) {
      EXPECT_TRUE(dialog.Click(id));
    }
    PressOk(dialog);
  }

  void Exclude() {
    const DrivenWindow dialog = Open(menu_opt_function1);
    dialog.Type(TB_DisableID_Start_0, L"700");
    dialog.Type(TB_DisableID_End_0, L"7FF");
    EXPECT_TRUE(dialog.Click(CB_DisableID_0));
    EXPECT_TRUE(dialog.Click(CB_Save_ID_DisableMode));
    PressOk(dialog);
  }

  /// Selects a line; what the libraries are asked from now on counts.
  void Select(int line) {
    main_.SelectLine(Cmb_Serect_Device, line);
    reported_ = bench_->Report().size();
  }

  /// The calls since the selection; what else the libraries report has no brackets.
  Calls CallsSinceSelection() const {
    Calls calls;
    std::string rest = bench_->Report().substr(reported_);
    for (std::size_t end; (end = rest.find('\n')) != std::string::npos; rest.erase(0, end + 1)) {
      const std::string line = rest.substr(rest.find(' ') + 1, end - rest.find(' ') - 1);
      if (line.find('(') != std::string::npos) calls.push_back(line);
    }
    return calls;
  }

  /// Connects where that ends with a message box, and gives the box's text.
  std::wstring ConnectToMessage(std::string_view picture) {
    EXPECT_TRUE(main_.Click(Bt_Connect));
    const std::optional<ShownMessage> message = WaitForMessage(program_->Id());
    if (!message) return L"no message";
    EXPECT_EQ(Utf8(message->title), "Tolvane Ver1.23");
    if (!picture.empty()) KeepPicture(message->box, picture);
    EXPECT_TRUE(Press(*message, IDOK));
    EXPECT_TRUE(WaitUntil([&] { return main_.Enabled(Bt_Connect); }));
    EXPECT_EQ(main_.Text(TB_Protocol), L"---");
    return message->text;
  }

 private:
  std::size_t reported_ = 0;
};

/// The calls of one run at these settings. Handles count up, except Kvaser's.
Calls ExpectedCalls(Kind kind, const Settings& settings, const Calls& made) {
  const RateRow& rate = kRates[static_cast<std::size_t>(settings.bit_rate)];
  const std::size_t equals = made.empty() ? std::string::npos : made.front().rfind("= ");
  const std::string handle = equals == std::string::npos ? "?" : made.front().substr(equals + 2);
  const std::string call = "(" + handle;
  switch (kind) {
    case kCanusb:
      return {
          "canusb_Open(\"TV100001\", \"" + std::string(rate.canusb) + "\", 0, -1, 1) = " + handle,
          "canusb_Close" + call + ") = 1"};
    case kInterface:
      return {"CanOpenPort(\"IFCAN1\") = " + handle,
              "CanGetConfig" + call + ") = 0",
              "CanSetConfig" + call + (settings.silent ? ", 1" : ", 0") + ", 0, 0, 0, 0, 0, " +
                  std::to_string(rate.interface_code) + ") = 0",
              "CanActivate" + call + ") = 0",
              "CanDeactivate" + call + ") = 0",
              "CanClosePort" + call + ") = 0"};
    case kKvaser:
      break;
  }
  return {"canOpenChannel(0, 128) = 0",
          "canSetBusParams(0, " + std::to_string(rate.kvaser) + ", 5, 2, 1, 1, 0) = 0",
          std::string("canSetBusOutputControl(0, ") + (settings.silent ? "1" : "4") + ") = 0",
          "canBusOn(0) = 0",
          "canBusOff(0) = 0",
          "canClose(0) = 0"};
}

TEST_F(Matrix, EachKindInEachWorkerShowsItsPageAndMakesItsCalls) {
  ASSERT_NO_FATAL_FAILURE(StartOn(kAdapters));
  bool excluding = false;
  for (const WorkerRow& worker : kWorkers) {
    if (worker.excluding && !excluding) Exclude();
    excluding = worker.excluding;
    Set(worker.settings);
    for (const Kind kind : kKinds) {
      const std::string cell = std::string(kKindNames[kind]) + "-" + worker.name;
      SCOPED_TRACE(cell);
      Select(Good(kind));
      ASSERT_NO_FATAL_FAILURE(Connect(main_));
      EXPECT_EQ(Utf8(main_.Text(TB_Status)), Utf8(L"通信中　ログ出力(csv)"));
      EXPECT_EQ(main_.Text(TB_Protocol),
                kRates[static_cast<std::size_t>(worker.settings.bit_rate)].shown);
      const std::wstring expected = (worker.settings.ids_of_29_bits ? kHeader29 : kHeader) +
                                    worker.pages[kind] + (worker.excluding ? kFoot : L"");
      EXPECT_TRUE(
          WaitUntil([&] { return main_.Text(RTB_MainView) == expected; }, std::chrono::seconds(10)))
          << Utf8(main_.Text(RTB_MainView)) << "instead of\n"
          << Utf8(expected);
      KeepPicture(main_.Handle(), cell);
      ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
      EXPECT_EQ(main_.Text(RTB_MainView), expected);
      EXPECT_EQ(main_.Text(TB_Status), L"");
      const Calls made = CallsSinceSelection();
      EXPECT_EQ(made, ExpectedCalls(kind, worker.settings, made));
    }
  }
  End();
}

TEST_F(Matrix, EachKindInEachWorkerTellsAFailedOpen) {
  ASSERT_NO_FATAL_FAILURE(StartOn(kAdapters));
  bool excluding = false;
  for (const WorkerRow& worker : kWorkers) {
    if (worker.excluding && !excluding) Exclude();
    excluding = worker.excluding;
    Set(worker.settings);
    for (const Kind kind : kKinds) {
      const std::string cell = std::string(kKindNames[kind]) + "-" + worker.name;
      SCOPED_TRACE(cell);
      Select(Failing(kind));
      EXPECT_EQ(Utf8(ConnectToMessage(cell)),
                Utf8(L"機器が正常に動作していません。\r\n") + Utf8(worker.second_line[kind]));
      const Calls made = CallsSinceSelection();
      if (kind != kInterface) {
        EXPECT_EQ(made.size(), 1u) << "nothing follows a failed open";
        EXPECT_EQ(main_.Text(TB_Status), L"");
        continue;
      }
      ASSERT_EQ(made.size(), 5u);
      EXPECT_TRUE(made[0].starts_with("CanOpenPort(\"IFCAN2\") = "));
      EXPECT_TRUE(made[1].ends_with(") = -1073741822"));
      EXPECT_TRUE(made[2].starts_with("CanClosePort("));
      EXPECT_EQ(made[3], "CanDeactivate(-1) = -1073741814");
      EXPECT_EQ(made[4], "CanClosePort(-1) = -1073741814");
      EXPECT_EQ(main_.Text(TB_Status), L"The device handle is invalid.");
    }
  }
  End();
}

TEST_F(Matrix, EachBitRateReachesEachLibraryOrIsRefused) {
  ASSERT_NO_FATAL_FAILURE(StartOn(kAdapters));
  for (int bit_rate = 0; bit_rate < 9; ++bit_rate) {
    const RateRow& rate = kRates[static_cast<std::size_t>(bit_rate)];
    const Settings settings{.bit_rate = bit_rate, .silent = bit_rate % 2 == 1};
    Set(settings);
    for (const Kind kind : kKinds) {
      SCOPED_TRACE(std::string(kKindNames[kind]) + " " + Utf8(rate.shown));
      Select(Good(kind));
      const bool refused =
          (kind == kInterface && rate.interface_code == 0) || (kind == kKvaser && rate.kvaser == 0);
      if (refused) {
        EXPECT_EQ(Utf8(ConnectToMessage(kind == kInterface && bit_rate == 7 ? "refused" : "")),
                  Utf8(L"非対応の通信速度が選択されています。\r\n接続をを終了します。"));
        EXPECT_EQ(CallsSinceSelection(), Calls{});
        EXPECT_EQ(main_.Text(TB_Status), L"");
        continue;
      }
      ASSERT_NO_FATAL_FAILURE(Connect(main_));
      EXPECT_EQ(main_.Text(TB_Protocol), rate.shown);
      ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
      const Calls made = CallsSinceSelection();
      EXPECT_EQ(made, ExpectedCalls(kind, settings, made));
    }
  }
  End();
}

}  // namespace
}  // namespace tolvane::window
