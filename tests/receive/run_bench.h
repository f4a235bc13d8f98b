#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/memory/automation/automation.h"
#include "platform/memory/dialogs/message_box.h"
#include "platform/memory/main_window/main_window.h"
#include "platform/memory/main_window/timer.h"
#include "platform/memory/rich_text/clipboard.h"
#include "platform/memory/rich_text/rich_text_view.h"
#include "platform/memory/system/code_page_932.h"
#include "platform/memory/system/cursors.h"
#include "platform/memory/system/event_loop.h"
#include "platform/memory/system/file_system.h"
#include "platform/memory/system/journal.h"
#include "platform/memory/system/run_protection.h"
#include "platform/memory/system/single_instance.h"
#include "platform/memory/system/special_folders.h"
#include "platform/memory/system/support_library.h"
#include "platform/memory/system/timer_resolution.h"
#include "platform/memory/system/wall_clock.h"
#include "platform/memory/vendor/canlib_library.h"
#include "platform/memory/vendor/canusb_library.h"
#include "platform/memory/vendor/ifcan_library.h"
#include "receive/open_traits.h"
#include "receive/workers.h"
#include "run/elm327_info.h"

namespace tolvane {

/// Each flush of a log reads the wall clock once, so its entry in the journal marks the flush.
class NotingWallClock final : public platform::WallClock {
 public:
  explicit NotingWallClock(platform::memory::Journal& journal) : journal_(journal) {}
  [[nodiscard]] platform::LocalTime Now() override {
    journal_.Note("flush");
    return clock_.Now();
  }
  [[nodiscard]] String GeneralDate(const platform::LocalTime& time) override {
    return clock_.GeneralDate(time);
  }
  [[nodiscard]] String ShortWeekday(const platform::LocalTime& time) override {
    return clock_.ShortWeekday(time);
  }

 private:
  platform::memory::Journal& journal_;
  platform::memory::WallClock clock_{
      {.year = 2026, .month = 11, .day = 20, .weekday = 5, .hour = 9, .minute = 5, .second = 7}};
};

/// A frame on the bus, whichever adapter brings it. `time` is in ms.
struct BusFrame {
  std::int32_t id;
  bool extended = false;
  std::int32_t time = 0;
  std::int32_t dlc = 8;
  std::array<std::uint8_t, 8> data = {1, 2, 3, 4, 5, 6, 7, 8};
};

/// The four workers on a memory platform, and the main window's share in a run. Each yield takes
/// the next of `events`; with none left the user disconnects.
class RunBench {
 public:
  /// Logs go to the bench's own disk in memory, or to `other_files`, which must outlive the bench.
  explicit RunBench(platform::FileServices* other_files = nullptr)
      : log_files(other_files != nullptr ? *other_files : files) {
    device.Param_ALL_Clear();
    device.t_LogSave_Enable = 0;
    files.AddFolder(u"C:\\Tolvane");
    window.Cmb_Serect_Device.AddItem(u"CANUSB LWR12345");
    window.Cmb_Serect_Device.ListIndex(0);
    window.TB_ODB_Hard_Version.Text(u"V1011");
    CAN_d.CAN_USB_SelectSerial = u"LWR12345";
    IFCan.ports = {{.number = 1}};
    IfCan_d.Interface_CAN_SelectNo = 1;
    canlib32.channels = {5};
    kvCan_d.KvCAN_SelectNo = 1;
    journal.Clear();
    loop.OnYield([this] {
      if (events.empty()) {
        RxFlag = 0;
        return;
      }
      const auto event = std::move(events.front());
      events.erase(events.begin());
      event();
    });
  }

  void LogToCsv() {
    device.t_LogSave_Enable = 1;
    device.t_LogSaveFormat = kLogFormatCsv;
  }

  void Play(AdapterKind binding, const std::vector<BusFrame>& frames, std::int64_t times = 1) {
    std::vector<platform::CanusbMessage> canusb;
    std::vector<platform::IfcanMessage> ifcan;
    std::vector<platform::memory::CanlibFrame> canlib;
    for (const BusFrame& frame : frames) {
      const auto [id, extended, time, dlc, data] = frame;
      canusb.push_back({id, time, static_cast<std::uint8_t>(extended ? 128 : 0),
                        static_cast<std::uint8_t>(dlc), data});
      ifcan.push_back({dlc, 0, extended ? id | INT32_MIN : id, data, time * 1000});
      canlib.push_back({id, data, dlc, extended ? 4 : 2, time});
    }
    if (binding == AdapterKind::kCanusb) canusbdrv.frames.Play(canusb, times);
    if (binding == AdapterKind::kInterface) IFCan.frames.Play(ifcan, times);
    if (binding == AdapterKind::kKvaser) canlib32.frames.Play(canlib, times);
  }

  /// A whole run, as the connect button starts it. The status of an Interface run, else 0.
  std::int32_t Run(AdapterKind binding, WorkerKind kind) {
    std::int32_t status = 0;
    gate.Deliver([&] { status = Open(binding, kind); });
    return status;
  }
  std::int32_t Open(AdapterKind binding, WorkerKind kind) {
    RxFlag = 1;
    Worker& worker = workers.Of(kind);
    if (binding == AdapterKind::kInterface) {
      return worker.Open_InterfaceCAN(objExcel.get(), device, IfCan_u, IfCan_d);
    }
    if (binding == AdapterKind::kCanusb) {
      worker.Open_CANUSB(objExcel.get(), device, CAN_u, CAN_d);
    } else {
      worker.Open_KvaserCAN(objExcel.get(), device, kvCan_u, kvCan_d);
    }
    return 0;
  }
  std::int32_t Run(AdapterKind binding, WorkerKind kind, const std::vector<BusFrame>& frames) {
    Play(binding, frames);
    return Run(binding, kind);
  }

  /// Bytes of the n-th log of the run, from 1, in the executable's folder.
  [[nodiscard]] std::string Log(std::int32_t n = 1) const {
    const String name =
        u"C:\\Tolvane\\KL26112009-00" + String(1, static_cast<char16_t>(u'0' + n)) + u".csv";
    return files.Bytes(name).value_or("no file");
  }
  /// Its records, after the eight header lines.
  [[nodiscard]] std::string Records(std::int32_t n = 1) const {
    const std::string log = Log(n);
    std::size_t start = 0;
    for (int line = 0; line < 8; ++line) {
      start = log.find("\r\n", start);
      if (start == std::string::npos) return "no header";
      start += 2;
    }
    return log.substr(start);
  }

  platform::memory::Journal journal;
  platform::memory::CodePage932 code_page;
  platform::memory::FileSystem files{code_page};
  platform::FileServices& log_files;
  platform::memory::SpecialFolders folders{u"C:\\Desktop", u"C:\\Windows\\System32"};
  NotingWallClock wall_clock{journal};
  platform::EventGate gate;
  platform::memory::EventLoop loop{gate};
  platform::memory::SupportLibrary qxt100;
  platform::memory::TimerResolution winmm{journal};
  platform::memory::CanusbLibrary canusbdrv{journal};
  platform::memory::IfcanLibrary IFCan{journal};
  platform::memory::CanlibLibrary canlib32{journal};
  platform::memory::MessageBox message_box{journal, gate};
  platform::memory::MainWindow window{journal};
  platform::memory::RichTextView RTB_MainView{journal, files};
  platform::memory::AutomationServers automation{journal};
  platform::memory::Clipboard clipboard{journal};
  platform::memory::SingleInstance single_instance;
  platform::memory::Cursors cursors;
  platform::memory::RunProtection run_protection;
  platform::memory::Timer timers[4] = {
      platform::memory::Timer(journal, gate), platform::memory::Timer(journal, gate),
      platform::memory::Timer(journal, gate), platform::memory::Timer(journal, gate)};

  ELM327_Info device{u"C:\\Tolvane"};
  std::int32_t RxFlag = 0;
  std::function<void()> Session_End_Output;
  CANUSB CAN_u;
  CAN_DB CAN_d;
  InterfaceCAN IfCan_u;
  CAN_DB_Interface IfCan_d;
  KvaserCAN kvCan_u;
  CAN_DB_Kvaser kvCan_d;
  std::unique_ptr<platform::AutomationObject> objExcel;
  std::vector<std::function<void()>> events;

  platform::Platform outside = {.events = loop,
                                .timers = {timers[0], timers[1], timers[2], timers[3]},
                                .qxt100 = qxt100,
                                .winmm = winmm,
                                .canusbdrv = canusbdrv,
                                .IFCan = IFCan,
                                .canlib32 = canlib32,
                                .message_box = message_box,
                                .files = log_files,
                                .folders = folders,
                                .wall_clock = wall_clock,
                                .code_page = code_page,
                                .automation = automation,
                                .clipboard = clipboard,
                                .single_instance = single_instance,
                                .cursors = cursors,
                                .run_protection = run_protection};
  platform::MainWindow face = window.Face(RTB_MainView);
  RunParts parts = {outside, face, RxFlag, Session_End_Output};
  Workers workers{parts};
};

constexpr AdapterKind kAllBindings[] = {AdapterKind::kCanusb, AdapterKind::kInterface,
                                        AdapterKind::kKvaser};
constexpr WorkerKind kAllWorkers[] = {WorkerKind::FormBG, WorkerKind::FormBG2,
                                      WorkerKind::FormBG_29, WorkerKind::FormBG2_29};

/// Name of one of the twelve ways, for failures and test names.
inline std::string WayName(AdapterKind binding, WorkerKind worker) {
  const char* const kBindingNames[] = {"Canusb", "Interface", "Kvaser"};
  const char* const kWorkerNames[] = {"FormBG", "FormBG2", "FormBG29", "FormBG229"};
  return std::string(kBindingNames[static_cast<std::size_t>(binding)]) + "_" +
         kWorkerNames[static_cast<std::size_t>(worker)];
}

inline bool Is29Bit(WorkerKind worker) {
  return worker == WorkerKind::FormBG_29 || worker == WorkerKind::FormBG2_29;
}

}  // namespace tolvane
