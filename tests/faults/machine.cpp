#include "tests/faults/machine.h"

#include <algorithm>
#include <ostream>
#include <string>

#include "run/number_text.h"
#include "tests/helpers/installed_program.h"

namespace tolvane::faults {
namespace {

constexpr std::int64_t kFramePeriodUs = 1'000;
constexpr std::int32_t kFirstId = 0x123;

std::string BenchFile(const Setup& setup) {
  const bool is_29 = setup.ids == kMsgIdType29Bit;
  return "[bench]\nqueue=30000\n[bus]\nsource=generator\nrate=1000\nids=" + std::to_string(kIds) +
         "\nfirst_id=" + std::to_string(kFirstId) +
         "\nformat=" + (is_29 ? "extended" : "standard") + "\n" + setup.adapters;
}

}  // namespace

class Machine::BusClock final : public simulator::BenchClock {
 public:
  explicit BusClock(const std::int64_t& now_us) : now_us_(now_us) {}
  std::int64_t NowUs() override { return now_us_; }

 private:
  const std::int64_t& now_us_;
};

Machine::Machine(const Setup& setup, const Disk& disk, FaultPlan& plan, std::stringbuf& report)
    : setup_(setup),
      plan_(plan),
      report_(report),
      canusb_bench_(NewBench("canusbdrv")),
      ifcan_bench_(NewBench("IFCan")),
      canlib_bench_(NewBench("canlib32")),
      form(Platform(), memory.MainWindow(), kFolder) {
  InstallProgram(memory);
  for (const auto& [path, bytes] : disk) {
    memory.files.AddFile(path, bytes);
    if (path.find(u"\\KL") != String::npos) logs_.Keep(path);
  }
  memory.window.Cmb_Serect_Device.OnClick([this] { form.Cmb_Serect_Device_Click(); });
  memory.qxt100.OnRead([this] { memory.qxt100.Now(static_cast<double>(now_us_ / 1000)); });
  memory.events.OnYield([this] { Yield(); });
  memory.window.window.OnUnload([this] {
    std::int32_t Cancel = 0;
    form.Form_QueryUnload(Cancel);
    if (Cancel == 1) return;
    form.Form_Unload();
    left_ = true;
  });
}

Machine::BenchPointer Machine::NewBench(const char* library) {
  auto report =
      std::make_unique<simulator::Report>(std::make_unique<std::ostream>(&report_), library);
  return std::make_unique<simulator::Bench>(simulator::ReadBenchConfig(BenchFile(setup_)), ".",
                                            std::move(report), std::make_unique<BusClock>(now_us_));
}

platform::Platform Machine::Platform() {
  const platform::Platform machine = memory.Platform();
  return {.events = machine.events,
          .timers = {.FormBG = FormBG_,
                     .FormBG2 = FormBG2_,
                     .FormBG_29 = FormBG_29_,
                     .FormBG2_29 = FormBG2_29_},
          .qxt100 = qxt100_,
          .winmm = winmm_,
          .canusbdrv = canusbdrv_,
          .IFCan = IFCan_,
          .canlib32 = canlib32_,
          .message_box = message_box_,
          .files = files_,
          .folders = folders_,
          .wall_clock = wall_clock_,
          .code_page = machine.code_page,
          .automation = office_,
          .clipboard = clipboard_,
          .single_instance = machine.single_instance,
          .cursors = cursors_,
          .run_protection = run_protection_};
}

void Machine::Set(WrittenLogs::Form log) {
  log_ = log;
  ELM327_Info& device = form.device;
  device.t_msgID_type = setup_.ids;
  device.t_Save_ID_DisableMode = setup_.excludes;
  device.t_LogSave_subFolder = setup_.subfolder;
  device.t_LogSave_Enable = log == WrittenLogs::Form::kNone ? 0 : 1;
  device.t_LogSaveFormat =
      log == WrittenLogs::Form::kWorkbook ? kLogFormatSpreadsheet : kLogFormatCsv;
  memory.window.TB_LogComment.Type(u"comment");
}

void Machine::Click(void (Form1::*handler)()) {
  memory.gate.Deliver([this, handler] { form.Do([this, handler] { (form.*handler)(); }); });
}

void Machine::Run(std::span<const Act> acts) {
  logs_.BeginRun(log_);
  last_.fill(-1);
  acts_ = acts;
  found_empty_ = false;
  Click(&Form1::Bt_ViewClear_Click);  // what the page then shows is of this run
  Click(&Form1::Bt_Connect_Click);
  plan_.Number(true);
}

/// A yield in a tick, in a file's search or behind a read that failed is none of the acts' own.
void Machine::Yield() {
  if (!std::exchange(found_empty_, false) || form.RxFlag != 1) return;
  plan_.Number(true);
  if (acts_.empty()) {
    Click(&Form1::Bt_Disconnect_Click);
    return;
  }
  const Act& act = acts_.front();
  acts_ = acts_.subspan(1);
  Perform(act);
}

void Machine::Perform(const Act& act) {
  now_us_ += act.frames * kFramePeriodUs;
  plan_.Number(act.numbered);
  if (act.tick) {
    for (auto* timer : TimersOf(memory)) timer->Tick();
  }
  if (act.session_ends) EndSession();
}

void Machine::EndSession() {
  session_ended_ = true;
  form.Session_Ends();
}

void Machine::Delivered(std::span<const std::uint8_t, 8> data) {
  FrameNumber frame = 0;
  for (std::size_t i = 3; i > 0; --i) frame = frame * 0x100 + data[i - 1];
  last_[static_cast<std::size_t>(frame % kIds)] = frame;
  logs_.Accepted(frame);
}

bool Machine::Waits() const {
  const auto& window = memory.window;
  return !left_ && window.Bt_Connect.Enabled() && !window.Bt_Disconnect.Enabled();
}

Disk Machine::Files() const {
  Disk disk;
  for (const String& path : memory.files.Files(u"C:")) {
    disk.emplace_back(path, memory.files.Bytes(path).value_or(""));
  }
  return disk;
}

bool Machine::PageShows(FrameNumber frame) const {
  String row(HexText(kFirstId + frame % kIds).View());
  row += u"  8  ";
  for (std::int32_t byte = 0, rest = frame; byte < 8; ++byte, rest /= 0x100) {
    row += u' ';
    row += HexByteText(static_cast<std::uint8_t>(rest % 0x100));
  }
  return memory.RTB_MainView.Page().text.find(row) != String::npos;
}

Complaints Machine::JudgeRun(bool may_hold_back) const {
  Complaints complaints = logs_.Complaints(may_hold_back);
  const auto require = [&complaints](bool holds, const char* what) {
    if (!holds) complaints.emplace_back(what);
  };
  const auto& window = memory.window;
  require(form.RxFlag == 0, "the run goes on");
  require(Waits() || left_ || session_ended_, "no run can be begun");
  require(session_ended_ || !form.ClosingIsRefused(), "closing is refused");
  require(form.objExcel == nullptr && office_.LiveObjects() == 0, "a spreadsheet program is left");
  require(window.menu_common_setting.Enabled() && window.menu_opt_function1.Enabled() &&
              window.menu_opt_log1.Enabled() && window.Cmb_Serect_Device.Enabled() &&
              !window.TB_LogComment.Locked(),
          "controls are left locked");
  for (const auto* timer : TimersOf(memory)) {
    require(!timer->Enabled(), "a timer is left on");
  }
  for (const FrameNumber frame : last_) {
    require(session_ended_ || frame < 0 || PageShows(frame), "a frame is missing from the page");
  }
  return complaints;
}

Complaints Machine::JudgeWholeRun(std::span<const Act> acts) const {
  Complaints complaints = JudgeRun(false);
  std::int64_t brought = 0;
  for (const Act& act : acts) brought += act.frames;
  if (!acts_.empty()) complaints.emplace_back("the run was not begun, or ended early");
  if (logs_.Accepted() < brought) {
    complaints.push_back(std::to_string(logs_.Accepted()) + " of " + std::to_string(brought) +
                         " frames were accepted");
  }
  return complaints;
}

}  // namespace tolvane::faults
