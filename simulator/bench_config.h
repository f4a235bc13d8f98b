#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ifcan_library.h"
#include "simulator/adapter_clock.h"
#include "simulator/burst_source.h"
#include "simulator/bus_tap.h"
#include "simulator/load_generator.h"

namespace tolvane::simulator {

/// A library call that only returns a given result: "canOpenChannel = -3", or with "after 2" from
/// the third call on.
struct CallResult {
  std::string call;
  std::int32_t result = 0;
  std::int64_t after = 0;
};

/// What every kind of adapter can be told.
struct AdapterPlan {
  TapPlan tap{};
  ClockFaults clock{};
  BurstPlan burst{};
  std::vector<CallResult> results{};
  std::uint32_t or_id = 0;      // bits set in the id word of every frame given out
  std::int64_t force_dlc = -1;  // 0 to 255: the length given out with every frame
  bool whole_data = false;      // all eight data bytes are written, whatever the length says
};

struct CanusbPlan {
  AdapterPlan adapter{};
  std::string serial{};   // up to 32 bytes
  std::string version{};  // up to 63 bytes
};

struct IfcanPlan {
  AdapterPlan adapter{};
  std::int32_t port = 0;  // n of "IFCANn"
  platform::IfcanPortInformation information{};
  platform::IfcanConfig config{};
};

struct CanlibPlan {
  AdapterPlan adapter{};
  std::int32_t channel = 0;
  std::string name{};
  std::uint32_t serial = 0;
  std::uint64_t firmware = 0;  // low word first, as the library hands them out
  std::uint64_t upc = 0;
};

struct BusPlan {
  enum class Source : std::uint8_t { kVehicle, kLog, kGenerator, kLive };
  Source source = Source::kVehicle;
  std::string log;                  // UTF-8, from the file's own folder
  std::int64_t repeat = 1;          // 0: without end
  std::int64_t bit_rate = 500'000;  // adapters at any other receive nothing
  LoadPlan load;                    // its seed and format are the vehicle's too
};

struct BenchConfig {
  bool counted_clock = false;
  std::int64_t clock_step_us = 50;
  std::string report;  // UTF-8, from the file's own folder; empty: none
  BusPlan bus;
  std::vector<CanusbPlan> canusb;
  std::vector<CallResult> canusb_results;  // of calls that belong to no adapter
  std::int32_t search_upper_half = 0;      // bits 16 to 31 of the searches' result register
  std::vector<IfcanPlan> ifcan;
  std::vector<CanlibPlan> canlib;
  std::vector<CallResult> canlib_results;
  std::int32_t channels = 0;          // what Kvaser's library counts
  std::vector<std::string> problems;  // lines that say nothing useful; they are left out
};

/// What the text of a bench file says.
BenchConfig ReadBenchConfig(std::string_view ini_text);

/// One adapter of each kind on the synthetic vehicle.
BenchConfig DefaultBenchConfig();

}  // namespace tolvane::simulator
