#include "tests/bench_run/bench_program.h"

#include <ostream>
#include <utility>

#include "tests/helpers/installed_program.h"

namespace tolvane::bench_run {
namespace {

constexpr std::int64_t kTickPeriodUs = 30'000;

/// Advances by a step at each read, and by other things that take time.
class ReadClock : public simulator::BenchClock {
 public:
  ReadClock(std::int64_t& now_us, std::int64_t step_us) : now_us_(now_us), step_us_(step_us) {}
  std::int64_t NowUs() override { return now_us_ += step_us_; }

 private:
  std::int64_t& now_us_;
  std::int64_t step_us_;
};

}  // namespace

BenchProgram::BenchProgram(const std::string& ini, const Pauses& pauses, std::stringbuf& report)
    : pauses_(pauses),
      report_(report),
      canusbdrv_(NewBench("canusbdrv", ini)),
      IFCan_(NewBench("IFCan", ini)),
      canlib32_(NewBench("canlib32", ini)),
      form_(Platform(), memory_.MainWindow(), kFolder) {
  InstallProgram(memory_);
  memory_.window.Cmb_Serect_Device.OnClick([this] { form_.Cmb_Serect_Device_Click(); });
  memory_.qxt100.OnRead([this] { memory_.qxt100.Now(static_cast<double>(now_us_ / 1000)); });
  memory_.events.OnYield([this] { Yield(); });
}

std::unique_ptr<simulator::Bench> BenchProgram::NewBench(const char* library,
                                                         const std::string& ini) {
  auto report =
      std::make_unique<simulator::Report>(std::make_unique<std::ostream>(&report_), library);
  return std::make_unique<simulator::Bench>(simulator::ReadBenchConfig(ini), ".", std::move(report),
                                            std::make_unique<ReadClock>(now_us_, pauses_.read_us));
}

platform::Platform BenchProgram::Platform() {
  const platform::Platform machine = memory_.Platform();
  return {.events = machine.events,
          .timers = machine.timers,
          .qxt100 = machine.qxt100,
          .winmm = machine.winmm,
          .canusbdrv = canusbdrv_,
          .IFCan = IFCan_,
          .canlib32 = canlib32_,
          .message_box = machine.message_box,
          .files = machine.files,
          .folders = machine.folders,
          .wall_clock = wall_clock_,
          .code_page = machine.code_page,
          .automation = machine.automation,
          .clipboard = machine.clipboard,
          .single_instance = machine.single_instance,
          .cursors = machine.cursors,
          .run_protection = machine.run_protection};
}

void BenchProgram::Run(std::int64_t length_us) {
  last_tick_us_ = now_us_;
  end_us_ = now_us_ + length_us;
  form_.Bt_Connect_Click();
}

void BenchProgram::Yield() {
  // An adapter that is not on the bus does not ask for the time.
  if (now_us_ == last_yield_us_) now_us_ += pauses_.read_us;
  last_yield_us_ = now_us_;
  if (form_.RxFlag == 1 && now_us_ >= end_us_) form_.Bt_Disconnect_Click();
  if (now_us_ - last_tick_us_ < kTickPeriodUs) return;
  for (auto* timer : TimersOf(memory_)) {
    if (!timer->Enabled()) continue;
    now_us_ += pauses_.tick_us;
    timer->Tick();
  }
  last_tick_us_ = now_us_;
}

std::vector<std::string> BenchProgram::Logs() const {
  std::vector<std::string> logs;
  for (const String& path : memory_.files.Files(kFolder)) {
    if (path.ends_with(u".csv")) logs.push_back(memory_.files.Bytes(path).value_or(""));
  }
  return logs;
}

}  // namespace tolvane::bench_run
