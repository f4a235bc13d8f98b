// A tick with every byte and every cycle of every row highlighted, and writing such a page as rich
// text. Targets on a machine with two cores: the 11-bit tick (2,047 rows) at most 1.0 ms, its page
// as rich text at most 2 ms, a 29-bit row at most 1.5 times an 11-bit row.
#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/memory/system/support_library.h"
#include "tests/view/tick_bed.h"
#include "view/page_rtf.h"
#include "view/tables/highlight_columns.h"

namespace tolvane {
namespace {

template <WorkerKind kKind>
class LitPage {
 public:
  using Bed = TickBed<kKind>;
  using Highlight = HighlightColumns<typename Bed::ViewTable>;

  explicit LitPage(bool fractions) {
    bed_.timer.interval = 0;
    if constexpr (Bed::kIs29) {
      for (std::int32_t key = 0; key <= 4000; ++key) Light(0x100000 + key * 577, fractions);
    } else {
      for (std::int32_t id = 1; id <= 2047; ++id) Light(id, fractions);
    }
  }

  void Tick() {
    bed_.calls.clear();
    tick_.TimerBackView_Timer(bed_.device);
  }
  [[nodiscard]] const platform::RichTextPage& Page() const { return *bed_.view.page; }

 private:
  // Bytes and cycles moved some time ago, each row at another time, and the timer's step of 0 keeps
  // them there: the fades of a bus in use, the same at each tick.
  void Light(std::int32_t id, bool fractions) {
    const std::int16_t row = bed_.Receive(id, 8, kData, 1000.0);
    const double cycle = 10 + row % 1000 + (fractions ? 0.25 : 0.0);
    for (int i = 1; i < 3; ++i) bed_.Receive(id, 8, kData, 1000.0 + i * cycle);
    auto& highlights = *bed_.highlights;
    for (std::size_t k = 0; k < 8; ++k) {
      Highlight::d_timerCounter[k](highlights)(row,
                                               1 + (row * 29 + 7000 * static_cast<int>(k)) % 60000);
    }
    Highlight::dt_timerCounter(highlights)(row, 1 + row * 14);
  }

  static constexpr Bytes8 kData = {0x08, 0x91, 0xA2, 0xB3, 0xC4, 0xD5, 0xE6, 0xF7};

  Bed bed_;
  platform::memory::SupportLibrary support_;
  tolvane::Tick<typename Bed::Table> tick_{
      kKind,
      {bed_.timer, support_, bed_.events, bed_.view, bed_.RxFlag, bed_.Device_Timer_Kind},
      *bed_.frames,
      *bed_.highlights};
};

template <WorkerKind kKind>
void LitTick(benchmark::State& state, std::int64_t rows, bool fractions) {
  LitPage<kKind> page(fractions);
  for (auto _ : state) page.Tick();
  state.SetItemsProcessed(state.iterations() * rows);
  state.counters["runs"] = static_cast<double>(page.Page().colours.Runs().size());
}

void LitPageAsRtf(benchmark::State& state) {
  LitPage<WorkerKind::FormBG> page(false);
  page.Tick();
  std::string rtf;
  for (auto _ : state) WritePageRtf(page.Page(), rtf);
  state.counters["bytes"] = static_cast<double>(rtf.size());
}

void Tick11Bit(benchmark::State& state) { LitTick<WorkerKind::FormBG>(state, 2047, false); }
void Tick29Bit(benchmark::State& state) { LitTick<WorkerKind::FormBG2_29>(state, 4001, false); }
void Tick29BitFractions(benchmark::State& state) {
  LitTick<WorkerKind::FormBG_29>(state, 4001, true);
}

BENCHMARK(Tick11Bit)->Unit(benchmark::kMicrosecond);
BENCHMARK(Tick29Bit)->Unit(benchmark::kMicrosecond);
BENCHMARK(Tick29BitFractions)->Unit(benchmark::kMicrosecond);
BENCHMARK(LitPageAsRtf)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tolvane

BENCHMARK_MAIN();
