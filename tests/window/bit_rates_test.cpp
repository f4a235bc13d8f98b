// Each bit rate on each kind of adapter, in the real program.
#include <string>

#include "tests/window/adapter_runs.h"
#include "tests/window/control_ids.h"
#include "tools/drive/text.h"

namespace tolvane::window {
namespace {

class BitRates : public AdapterRuns {
 protected:
  [[nodiscard]] bool ShowsRow() const {
    return main_.Text(id::RTB_MainView).find(L"123  1   01") != std::wstring::npos;
  }
};

TEST_F(BitRates, ReachEachLibraryOrAreRefused) {
  ASSERT_NO_FATAL_FAILURE(StartOn("(0.000) can0 123#01\n"));
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
        EXPECT_EQ(main_.Text(id::TB_Status), L"");
        continue;
      }
      ASSERT_TRUE(main_.Click(id::Bt_ViewClear));
      ASSERT_NO_FATAL_FAILURE(Connect(main_));
      EXPECT_EQ(main_.Text(id::TB_Protocol), rate.shown);
      // The bus has 500 kbit/s: at any other rate it gives no frame, and the library says so.
      // Kvaser then gives an error frame, which is not shown.
      const bool right = rate.bit_rate == 500'000;
      EXPECT_EQ(AwaitWholeTraffic(kAdapterNames[kind]), right || kind == kKvaser ? 1 : 0);
      EXPECT_TRUE(WaitForLines(main_, 1)) << "no page of this run";
      if (right) {
        EXPECT_TRUE(WaitUntil([&] { return ShowsRow(); }));
      } else {
        expected_faults_ = {std::string(kAdapterNames[kind]) + " at " +
                            std::to_string(rate.bit_rate) + " bit/s on a bus of 500000"};
      }
      ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
      EXPECT_EQ(ShowsRow(), right);
      const Calls made = CallsSinceSelection();
      EXPECT_EQ(made, ExpectedCalls(kind, settings, made));
    }
  }
  End();
}

}  // namespace
}  // namespace tolvane::window
