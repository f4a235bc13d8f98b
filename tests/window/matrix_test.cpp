// Three kinds of adapters in four workers, in the real program: what each shows of one recording,
// which calls its library gets, that its run refuses to be closed, and how it tells that the
// adapter does not open.
#include <array>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>

#include "tests/window/adapter_runs.h"
#include "tests/window/control_ids.h"
#include "tools/drive/text.h"

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
     {.ids_of_29_bits = true, .extended_only = true, .silent = true},
     true,
     {kStandard123 + kExtended123 + kNew456 + kNew456 + k1FFFFFFF, kExtended123 + k1FFFFFFF,
      kRemoteOn123 + kExtended123 + k1FFFFFFF},
     {kProgramEnds, kConnectionEnds, kProgramEnds}},
};

const char* AsStated(bool right) { return right ? "as stated" : "differs"; }

class Matrix : public AdapterRuns {
 protected:
  /// Every way of closing the window; a run refuses them all.
  void TryToClose() const {
    EXPECT_EQ(Send(main_.Handle(), WM_QUERYENDSESSION, 0, 0), FALSE);
    (void)Send(main_.Handle(), WM_CLOSE, 0, 0);
    (void)Send(main_.Handle(), WM_COMMAND, id::menu_file_close, 0);
    PostThreadMessageW(GetWindowThreadProcessId(main_.Handle(), nullptr), WM_QUIT, 0, 0);
    EXPECT_FALSE(std::filesystem::exists(folder_.Path() / L"lglist.dat"));
  }

  void Exclude() {
    const DrivenWindow dialog = Open(id::menu_opt_function1);
    dialog.Type(id::TB_DisableID_Start_0, L"700");
    dialog.Type(id::TB_DisableID_End_0, L"7FF");
    EXPECT_TRUE(dialog.Click(id::CB_DisableID_0));
    EXPECT_TRUE(dialog.Click(id::CB_Save_ID_DisableMode));
    PressOk(dialog);
  }

  /// Starts the program and calls `judge(worker, kind, cell)` for each worker and kind, with the
  /// worker's settings made. `cell` is the name of the two.
  template <typename Judge>
  void ForEachCell(Judge judge) {
    ASSERT_NO_FATAL_FAILURE(StartOn(kRecording));
    bool excluding = false;
    for (const WorkerRow& worker : kWorkers) {
      if (worker.excluding && !excluding) Exclude();
      excluding = worker.excluding;
      Set(worker.settings);
      for (const Kind kind : kKinds) {
        const std::string cell = std::string(kKindNames[kind]) + "-" + worker.name;
        SCOPED_TRACE(cell);
        ASSERT_NO_FATAL_FAILURE(judge(worker, kind, cell));
      }
    }
    End();
  }
};

TEST_F(Matrix, EachKindInEachWorkerShowsItsPageAndMakesItsCalls) {
  ForEachCell([this](const WorkerRow& worker, Kind kind, const std::string& cell) {
    Select(Good(kind));
    ASSERT_NO_FATAL_FAILURE(Connect(main_));
    EXPECT_EQ(Utf8(main_.Text(id::TB_Status)), Utf8(L"通信中　ログ出力(csv)"));
    EXPECT_EQ(main_.Text(id::TB_Protocol),
              kRates[static_cast<std::size_t>(worker.settings.bit_rate)].shown);
    const std::wstring expected = (worker.settings.ids_of_29_bits ? kHeader29 : kHeader) +
                                  worker.pages[kind] + (worker.excluding ? kFoot : L"");
    const bool shown = WaitUntil([&] { return main_.Text(id::RTB_MainView) == expected; },
                                 std::chrono::seconds(10));
    EXPECT_TRUE(shown) << Utf8(main_.Text(id::RTB_MainView)) << "instead of\n" << Utf8(expected);
    KeepPicture(main_.Handle(), cell);
    TryToClose();
    ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
    EXPECT_EQ(main_.Text(id::RTB_MainView), expected);
    EXPECT_EQ(main_.Text(id::TB_Status), L"");
    const Calls made = CallsSinceSelection();
    const Calls wanted = ExpectedCalls(kind, worker.settings, made);
    EXPECT_EQ(made, wanted);
    std::printf("matrix: %-20s page %-9s  %2zu calls %s\n", cell.c_str(), AsStated(shown),
                made.size(), AsStated(made == wanted));
  });
}

TEST_F(Matrix, EachKindInEachWorkerTellsAFailedOpen) {
  ForEachCell([this](const WorkerRow& worker, Kind kind, const std::string& cell) {
    Select(Failing(kind));
    EXPECT_EQ(Utf8(ConnectToMessage(cell)),
              Utf8(L"機器が正常に動作していません。\r\n") + Utf8(worker.second_line[kind]));
    const Calls made = CallsSinceSelection();
    if (kind != kInterface) {
      EXPECT_EQ(made.size(), 1u) << "nothing follows a failed open";
      EXPECT_EQ(main_.Text(id::TB_Status), L"");
      return;
    }
    ASSERT_EQ(made.size(), 5u);
    EXPECT_TRUE(made[0].starts_with("CanOpenPort(\"IFCAN2\") = "));
    EXPECT_TRUE(made[1].ends_with(") = -1073741822"));
    EXPECT_TRUE(made[2].starts_with("CanClosePort("));
    EXPECT_EQ(made[3], "CanDeactivate(-1) = -1073741814");
    EXPECT_EQ(made[4], "CanClosePort(-1) = -1073741814");
    EXPECT_EQ(main_.Text(id::TB_Status), L"The device handle is invalid.");
  });
}

}  // namespace
}  // namespace tolvane::window
