#include "simulator/bench_config.h"

#include <algorithm>
#include <limits>
#include <map>
#include <optional>

#include "simulator/section_reader.h"
#include "simulator/values.h"

namespace tolvane::simulator {
namespace {

constexpr std::int64_t kAny = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kInt32Low = std::numeric_limits<std::int32_t>::min();
constexpr std::int64_t kInt32High = 0xFFFFFFFF;  // status codes are written 0xC0000008

constexpr std::array<std::pair<std::string_view, IdFormat>, 3> kFormats{
    {{"standard", IdFormat::kStandard},
     {"extended", IdFormat::kExtended},
     {"both", IdFormat::kBoth}}};
constexpr std::array<std::pair<std::string_view, LoadPlan::Content>, 2> kContents{
    {{"counter", LoadPlan::Content::kCounter}, {"random", LoadPlan::Content::kRandom}}};
constexpr std::array<std::pair<std::string_view, BusPlan::Source>, 4> kSources{
    {{"vehicle", BusPlan::Source::kVehicle},
     {"log", BusPlan::Source::kLog},
     {"generator", BusPlan::Source::kGenerator},
     {"live", BusPlan::Source::kLive}}};
constexpr std::array<std::pair<std::string_view, bool>, 2> kClocks{
    {{"real", false}, {"reads", true}}};
constexpr std::array<std::pair<std::string_view, bool>, 2> kDataBytes{
    {{"length", false}, {"whole", true}}};

/// Cuts the text up to `mark`, trimmed, off the front of `rest`.
std::string_view TakePart(std::string_view& rest, char mark) {
  const std::size_t end = std::min(rest.find(mark), rest.size());
  const std::string_view part = Trim(rest.substr(0, end));
  rest = Trim(rest.substr(std::min(end + 1, rest.size())));
  return part;
}

std::optional<std::int32_t> ParseInt32(std::string_view text) {
  const auto number = ParseInteger(text);
  if (!number || *number < kInt32Low || *number > kInt32High) return std::nullopt;
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(*number));
}

/// "-3" or "-3 after 2".
std::optional<CallResult> ParseCallResult(const IniFile::Entry& entry) {
  CallResult call{.call = entry.key};
  std::string_view rest = entry.value;
  const auto result = ParseInt32(TakePart(rest, ' '));
  if (!result) return std::nullopt;
  call.result = *result;
  if (rest.empty()) return call;
  if (TakePart(rest, ' ') != "after") return std::nullopt;
  const auto after = ParseInteger(rest);
  if (!after || *after < 0) return std::nullopt;
  call.after = *after;
  return call;
}

void TakeCallResults(SectionReader& reader, std::vector<CallResult>& results) {
  for (const IniFile::Entry* entry : reader.LookAtCalls()) {
    if (auto result = ParseCallResult(*entry)) {
      results.push_back(*std::move(result));
    } else {
      reader.Complain(*entry, "not 'result' or 'result after count'");
    }
  }
}

/// "12.5:-500, 20:100": at bus second, by milliseconds.
void TakeClockSteps(SectionReader& reader, std::vector<ClockFaults::Step>& steps) {
  const IniFile::Entry* const entry = reader.Look("clock_steps");
  if (entry == nullptr) return;
  for (std::string_view rest = entry->value; !rest.empty();) {
    std::string_view by = TakePart(rest, ',');
    const auto at_s = ParseDecimal(TakePart(by, ':'));
    const auto by_ms = ParseInt32(by);
    if (!at_s || *at_s < 0 || *at_s > 1e9 || !by_ms) {
      reader.Complain(*entry, "not 'second:milliseconds, ...'");
      return;
    }
    steps.push_back({static_cast<std::int64_t>(*at_s * 1e6), std::int64_t{*by_ms} * 1000});
  }
}

/// The keys of [faults] and of every adapter; queue and speed stand in [bench].
AdapterPlan TakeAdapter(SectionReader& reader, const TapPlan& tap, const std::string& section) {
  AdapterPlan plan{.tap = tap};
  reader.Enter(section, "faults");
  reader.Take("clock_start", plan.clock.start, 0, kInt32High);
  reader.Take("clock_wrap", plan.clock.wrap, 1, std::int64_t{1} << 32);
  reader.Take("clock_ppm", plan.clock.ppm, -900'000, 900'000);
  TakeClockSteps(reader, plan.clock.steps);
  reader.TakeSeconds("pulled_at", plan.tap.pulled_at_us);
  reader.TakeSeconds("silence_from", plan.tap.silence_from_us);
  reader.TakeSeconds("silence_to", plan.tap.silence_to_us);
  reader.TakeSeconds("burst_at", plan.burst.at_us);
  reader.Take("burst_frames", plan.burst.frames, 0, kAny);
  reader.Take("or_id", plan.or_id, 0, kInt32High);
  reader.Take("force_dlc", plan.force_dlc, 0, 255);
  reader.TakeChoice("data", plan.whole_data, kDataBytes);
  TakeCallResults(reader, plan.results);
  return plan;
}

void TakeBench(SectionReader& reader, BenchConfig& config, TapPlan& tap) {
  reader.Enter("bench");
  reader.Take("queue", tap.queue, 1, 1'000'000);
  reader.Take("gaps", tap.gaps, 0, 100'000);
  reader.TakeDecimal("speed", tap.speed, 0.001, 1e3);
  reader.TakeChoice("clock", config.counted_clock, kClocks);
  reader.Take("clock_step_us", config.clock_step_us, 1, 1'000'000'000);
  reader.Take("report", config.report);
}

void TakeBus(SectionReader& reader, BusPlan& bus) {
  reader.Enter("bus");
  reader.TakeChoice("source", bus.source, kSources);
  reader.Take("log", bus.log);
  if (bus.source == BusPlan::Source::kLive && bus.log.empty()) {
    reader.Complain(*reader.Look("source"), "a live bus needs a log");
  }
  reader.Take("repeat", bus.repeat, 0, kAny);
  LoadPlan& load = bus.load;
  reader.Take("seed", load.seed, std::numeric_limits<std::int64_t>::min(), kAny);
  reader.TakeChoice("format", load.format, kFormats);
  reader.Take("rate", load.rate, 0, 10'000'000);
  reader.Take("bit_rate", bus.bit_rate, 1'000, 10'000'000);
  load.bit_rate = bus.bit_rate;
  reader.Take("generator_bit_rate", load.bit_rate, 1'000, 10'000'000);
  reader.Take("frames", load.frames, 0, kAny);
  reader.Take("ids", load.ids, 1, kMaxExtendedId);
  reader.Take("first_id", load.first_id, 0, kMaxExtendedId);
  reader.Take("payload", load.payload, 0, 8);
  reader.Take("burst", load.burst, 1, 1'000'000);
  reader.TakeChoice("content", load.content, kContents);
}

void TakeCanusb(SectionReader& reader, const std::string& section, CanusbPlan& plan) {
  plan.serial = "TV10000" + std::string(section.substr(section.rfind(' ') + 1));
  plan.version = "V1.02N0.93";
  reader.Take("serial", plan.serial);
  reader.Take("version", plan.version);
}

void TakeWords(SectionReader& reader, platform::IfcanConfig& config) {
  const IniFile::Entry* const entry = reader.Look("config");
  if (entry == nullptr) return;
  std::array<std::int32_t, 7> words{};
  std::string_view rest = entry->value;
  for (std::int32_t& word : words) {
    const auto number = ParseInt32(TakePart(rest, ','));
    if (!number) {
      reader.Complain(*entry, "not seven numbers");
      return;
    }
    word = *number;
  }
  config.mode = words[0];
  std::copy_n(words.begin() + 1, 5, config.passed_through.begin());
  config.baud_rate = words[6];
}

void TakeIfcan(SectionReader& reader, IfcanPlan& plan) {
  constexpr std::int32_t k500k = 295;
  plan.config = {.mode = 0, .passed_through = {11, 12, 13, 14, 15}, .baud_rate = k500k};
  TakeWords(reader, plan.config);
  platform::IfcanPortInformation& information = plan.information;
  information = {.ulStructLength = sizeof(information),
                 .ulVendorID = 4660,
                 .ulDeviceID = 4851,
                 .ulSubsystemID = 8340,
                 .ulRevisionID = 1,
                 .ulBoardID = 0,
                 .ulModelNumber = 4851,
                 .ulChannelNumber = 1,
                 .ulPhysicalLayer = 1};
  const auto take = [&](std::string_view key, std::int32_t& word) {
    reader.Take(key, word, kInt32Low, kInt32High);
  };
  take("struct_length", information.ulStructLength);
  take("vendor", information.ulVendorID);
  take("device", information.ulDeviceID);
  take("subsystem", information.ulSubsystemID);
  take("revision", information.ulRevisionID);
  take("board", information.ulBoardID);
  take("model", information.ulModelNumber);
  take("channel", information.ulChannelNumber);
  take("physical_layer", information.ulPhysicalLayer);
}

void TakeCanlib(SectionReader& reader, CanlibPlan& plan) {
  constexpr std::int64_t kLowest = std::numeric_limits<std::int64_t>::min();
  plan.adapter.tap.hears_errors_and_own = true;
  plan.name = "Kvaser virtual bench (channel " + std::to_string(plan.channel) + ")";
  plan.serial = 10'000 + static_cast<std::uint32_t>(plan.channel);
  plan.firmware = 0x0003'0012'0000'0225;  // 3.18.0
  plan.upc = 0x0073'3013'0009'8107;
  reader.Take("name", plan.name);
  reader.Take("serial", plan.serial, kInt32Low, kInt32High);
  reader.Take("firmware", plan.firmware, kLowest, kAny);
  reader.Take("upc", plan.upc, kLowest, kAny);
}

/// The numbers of the sections "`kind` N", ascending.
std::map<std::int32_t, std::string> Numbered(const IniFile& ini, std::string_view kind) {
  std::map<std::int32_t, std::string> found;
  for (const std::string& section : ini.sections) {
    std::string_view rest = section;
    if (TakePart(rest, ' ') != kind) continue;
    const auto number = ParseInteger(rest);
    if (number && *number >= 0 && *number <= 9'999) {
      found.emplace(static_cast<std::int32_t>(*number), section);
    }
  }
  return found;
}

}  // namespace

BenchConfig ReadBenchConfig(std::string_view ini_text) {
  const IniFile ini = ParseIni(ini_text);
  SectionReader reader(ini);
  BenchConfig config;
  TapPlan tap;
  TakeBench(reader, config, tap);
  TakeBus(reader, config.bus);
  reader.Enter("canusb");
  reader.Take("search_upper_half", config.search_upper_half, 0, 0xFFFF);
  TakeCallResults(reader, config.canusb_results);
  for (const auto& [number, section] : Numbered(ini, "canusb")) {
    TakeCanusb(
        reader, section,
        config.canusb.emplace_back(CanusbPlan{.adapter = TakeAdapter(reader, tap, section)}));
  }
  for (const auto& [number, section] : Numbered(ini, "interface")) {
    TakeIfcan(reader, config.ifcan.emplace_back(
                          IfcanPlan{.adapter = TakeAdapter(reader, tap, section), .port = number}));
  }
  for (const auto& [number, section] : Numbered(ini, "kvaser")) {
    TakeCanlib(reader, config.canlib.emplace_back(CanlibPlan{
                           .adapter = TakeAdapter(reader, tap, section), .channel = number}));
    config.channels = number + 1;
  }
  reader.Enter("kvaser");
  reader.Take("channels", config.channels, 0, kInt32High);
  TakeCallResults(reader, config.canlib_results);
  config.problems = reader.Problems();
  return config;
}

BenchConfig DefaultBenchConfig() {
  return ReadBenchConfig("[canusb 1]\n[interface 1]\n[kvaser 0]\n");
}

}  // namespace tolvane::simulator
