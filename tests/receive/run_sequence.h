#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "tests/receive/run_bench.h"

namespace tolvane {

using Lines = std::vector<std::string>;

/// The handle that the bench's adapters give.
inline std::int32_t BenchHandle(AdapterKind binding) {
  switch (binding) {
    case AdapterKind::kCanusb:
      return 1;
    case AdapterKind::kInterface:
      return 101;
    case AdapterKind::kKvaser:
      break;
  }
  return 5;
}

/// What a run does to the outside, in order: 500k bps, csv log, the user disconnects at the first
/// yield. `adapter` is the handle.
inline Lines SequenceOf(AdapterKind binding, WorkerKind worker, std::int32_t adapter) {
  const std::string handle = std::to_string(adapter);
  const Lines shown = {"TB_Protocol.Text = \"500k bps\"",
                       "TB_Status.Text = \"通信中　ログ出力(csv)\""};
  const Lines timer_on = {"TimerBackView.Enabled = true"};
  const Lines receiving = {"timeBeginPeriod(1)", "timeEndPeriod(1)"};
  const Lines finishing = {"TB_Status.Text = \"終了処理中\""};
  const Lines flush = {"flush", "TimerBackView.Enabled = false"};
  const auto joined = [](std::initializer_list<Lines> parts) {
    Lines all;
    for (const Lines& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
  };
  if (binding == AdapterKind::kCanusb) {
    return joined({{"canusb_Open(\"LWR12345\", \"500\", 0, -1, 1)"},
                   shown,
                   timer_on,
                   receiving,
                   finishing,
                   {"canusb_Close(" + handle + ")"},
                   flush});
  }
  if (binding == AdapterKind::kInterface) {
    return joined({{"CanOpenPort(\"IFCAN1\")", "CanGetConfig(" + handle + ")"},
                   shown,
                   timer_on,
                   {"CanSetConfig(" + handle + ", 0, 11, 12, 13, 14, 15, 295)",
                    "CanActivate(" + handle + ")"},
                   receiving,
                   finishing,
                   flush,
                   {"CanDeactivate(" + handle + ")", "CanClosePort(" + handle + ")"}});
  }
  const Lines close = {"canBusOff(" + handle + ")", "canClose(" + handle + ")"};
  const bool status_first = worker == WorkerKind::FormBG2;
  return joined({{"canOpenChannel(0, 128)"},
                 shown,
                 {"canSetBusParams(" + handle + ", -2, 5, 2, 1, 1, 0)",
                  "canSetBusOutputControl(" + handle + ", 4)"},
                 timer_on,
                 {"canBusOn(" + handle + ")"},
                 receiving,
                 status_first ? finishing : close,
                 status_first ? close : finishing,
                 flush});
}

}  // namespace tolvane
