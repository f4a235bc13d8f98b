// Settings that no dialog writes, taken from a file: what a run makes of them.
#include <fstream>
#include <iterator>
#include <string>

#include "tests/window/control_ids.h"
#include "tests/window/dialog_fixture.h"
#include "tools/drive/text.h"

namespace tolvane::window {
namespace {

constexpr const wchar_t* kHeader = L"ID  DLC  D1 D2 D3 D4 D5 D6 D7 D8\r\n";
const std::wstring kRow = L"123  2   03 04" + std::wstring(18, L' ') + L"   100ms\r\n";

// Places among the numbers of config.dat, from 0.
constexpr std::size_t kSaveIdDisableMode = 1;
constexpr std::size_t kMsgFmtTyp = 6;
constexpr std::size_t kSilentMode = 7;

struct OddSettings {
  char save_id_disable_mode;
  char message_format;
  bool interface_shows;
  bool kvaser_shows;
};

class SettingsFile : public OpenedWindows {
 protected:
  /// Writes small numbers into the file that the program has left. They come after two texts,
  /// each with two bytes of length before it.
  void Patch(const OddSettings& row) {
    std::ifstream in(folder_.Path() / L"config.dat", std::ios::binary);
    std::string record{std::istreambuf_iterator<char>(in), {}};
    in.close();
    std::size_t numbers = 0;
    for (int text = 0; text < 2; ++text) {
      ASSERT_LT(numbers + 1, record.size());
      const auto low = static_cast<unsigned char>(record[numbers]);
      const auto high = static_cast<unsigned char>(record[numbers + 1]);
      numbers += 2 + low + std::size_t{high} * 256;
    }
    ASSERT_LT(numbers + 4 * kSilentMode, record.size());
    record[numbers + 4 * kSaveIdDisableMode] = row.save_id_disable_mode;
    record[numbers + 4 * kMsgFmtTyp] = row.message_format;
    record[numbers + 4 * kSilentMode] = 2;
    std::ofstream(folder_.Path() / L"config.dat", std::ios::binary) << record;
  }

  /// One run on a line of the list: both frames are given out, and the page shows `page`.
  void ExpectPage(int line, std::string_view adapter, const std::wstring& page) {
    main_.SelectLine(id::Cmb_Serect_Device, line);
    ASSERT_TRUE(main_.Click(id::Bt_ViewClear));
    const std::size_t before = bench_->Report().size();
    ASSERT_NO_FATAL_FAILURE(Connect(main_));
    EXPECT_EQ(AwaitWholeTraffic(adapter), 2);
    // The first frame has been there for ticks: one that must not be shown would be seen by now.
    const auto shown = [&] { return main_.Text(id::RTB_MainView); };
    EXPECT_TRUE(WaitUntil([&] { return shown() == page; })) << Utf8(shown());
    ASSERT_NO_FATAL_FAILURE(Disconnect(main_));
    EXPECT_EQ(Utf8(shown()), Utf8(page));
    const std::string report = bench_->Report().substr(before);
    EXPECT_EQ(report.find("canSetBusOutputControl"), std::string::npos) << report;
    if (adapter == "IFCAN1") {
      EXPECT_NE(report.find(", -2147483648, 11, 12, 13, 14, 15, 295) = 0"), std::string::npos)
          << report;
    }
  }
};

TEST_F(SettingsFile, ValuesThatNoDialogWritesHaveTheirToldEffects) {
  std::ofstream(folder_.Path() / L"frames.log", std::ios::binary)
      << "(0.0) can0 123#0102\n(0.1) can0 123#0304\n";
  PlugIn(
      "[interface 1]\nconfig = 0x80000000,11,12,13,14,15,295\n[kvaser 0]\n"
      "[bus]\nsource = log\nlog = frames.log\n",
      {L"IFCan.dll", L"canlib32.dll"});
  ASSERT_NO_FATAL_FAILURE(Start());
  End();
  // Neither mode chooses an excluding worker unless it is 1. An excluding one takes a frame in the
  // modes 0 and 1 only, and that of Interface boards in the formats 0 and 1 only. A silent mode of
  // 2 sets nothing: the board's own word stays, the driver is not asked.
  for (const OddSettings& row : {OddSettings{2, 2, true, true}, OddSettings{1, 2, false, true},
                                 OddSettings{2, 1, false, false}}) {
    SCOPED_TRACE("mode " + std::to_string(row.save_id_disable_mode) + ", format " +
                 std::to_string(row.message_format));
    ASSERT_NO_FATAL_FAILURE(Patch(row));
    ASSERT_NO_FATAL_FAILURE(Start());
    const auto page = [](bool shows) { return kHeader + (shows ? kRow : L""); };
    ASSERT_NO_FATAL_FAILURE(ExpectPage(0, "IFCAN1", page(row.interface_shows)));
    ASSERT_NO_FATAL_FAILURE(ExpectPage(1, "channel0", page(row.kvaser_shows)));
    End();
  }
}

}  // namespace
}  // namespace tolvane::window
