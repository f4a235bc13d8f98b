#include "tests/fuzz/hostile_machine.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "logging/spreadsheet_server.h"
#include "platform/byte_text.h"
#include "platform/memory/rich_text/rtf_reader.h"
#include "tests/fuzz/input.h"
#include "tests/fuzz/taking.h"
#include "tests/helpers/installed_program.h"
#include "view/page_rtf.h"

namespace tolvane::fuzz {
namespace {

constexpr std::int32_t kRichSnapshot = 1;  // t_SaveFormat
constexpr std::int32_t kPlainSnapshot = 2;

/// Each line end two characters, as it comes out of rich text.
String WithWholeLineEnds(StringView text) {
  String whole;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool is_second = text[i] == u'\n' && i > 0 && text[i - 1] == u'\r';
    if (is_second) continue;
    const bool is_end = text[i] == u'\r' || text[i] == u'\n';
    whole += is_end ? StringView(u"\r\n") : text.substr(i, 1);
  }
  return whole;
}

/// The colour of each character, -1 for none; of a line end that of the first one counts.
std::vector<std::int32_t> ColourByCharacter(const platform::ColourRuns& runs, StringView text) {
  std::vector<std::int32_t> colours(text.size(), -1);
  std::int32_t last = 0;
  for (const platform::ColourRun& run : runs.Runs()) {
    Require(run.start >= last && run.start < run.end);
    Require(run.end <= static_cast<std::int32_t>(text.size()));
    last = run.end;
    for (std::int32_t i = run.start; i < run.end; ++i) {
      colours[static_cast<std::size_t>(i)] = run.colour & 0xFFFFFF;
    }
  }
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i] == u'\n' && text[i - 1] == u'\r') colours[i] = colours[i - 1];
  }
  return colours;
}

/// The document is that of the page.
void JudgeRtf(const std::string& rtf, const platform::RichTextPage& page) {
  const auto colours = ColourByCharacter(page.colours, page.text);
  const auto backgrounds = ColourByCharacter(page.backgrounds, page.text);
  const auto read = platform::memory::ReadRtf(WideText(rtf));
  Require(read.has_value() && read->text == WithWholeLineEnds(page.text));
  if (read->text != page.text) return;
  Require(ColourByCharacter(read->colours, read->text) == colours);
  Require(ColourByCharacter(read->backgrounds, read->text) == backgrounds);
}

using Disk = std::map<String, std::string>;

Disk DiskOf(const platform::memory::FileSystem& files) {
  Disk disk;
  for (const String& path : files.Files(u"C:")) disk[path] = files.Bytes(path).value_or("");
  return disk;
}

void RequireKept(const Disk& before, const Disk& now) {
  for (const auto& [path, old] : before) {
    const auto kept = now.find(path);
    Require(kept != now.end() && kept->second == old);
  }
}

/// The bytes of the one file that came, if any; all others are what they were.
std::optional<std::string> NewFile(const Disk& before, const Disk& now) {
  RequireKept(before, now);
  std::optional<std::string> bytes;
  for (const auto& [path, content] : now) {
    if (before.contains(path)) continue;
    Require(!bytes);
    bytes = content;
  }
  return bytes;
}

}  // namespace

HostileMachine::HostileMachine(const std::string& config,
                               const std::optional<std::string>& view_list,
                               std::optional<std::int32_t> version)
    : servers(version), form(Platform(), memory.MainWindow(), kFolder), view_list_(view_list) {
  InstallProgram(memory);
  memory.files.AddFile(kFolder + u"\\config.dat", config);
  if (view_list) memory.files.AddFile(kFolder + u"\\lglist.dat", *view_list);
  memory.message_box.Answer(true);
  memory.canusbdrv.serials = {"TV100001"};
  memory.IFCan.ports = {{.number = 1}};
  memory.canlib32.channels = {0};
  memory.canusbdrv.frames.OnTake([this] { Feed(memory.canusbdrv, &BusFrame::ForCanusb); });
  memory.IFCan.frames.OnTake([this] { Feed(memory.IFCan, &BusFrame::ForInterface); });
  memory.canlib32.frames.OnTake([this] { Feed(memory.canlib32, &BusFrame::ForKvaser); });
  memory.window.Cmb_Serect_Device.OnClick([this] { form.Cmb_Serect_Device_Click(); });
  memory.window.window.OnUnload([this] {
    std::int32_t Cancel = 0;
    form.Form_QueryUnload(Cancel);
    if (Cancel != 1) form.Form_Unload();
  });
}

void HostileMachine::Start() {
  form.Form_Load();
  if (IsLeft()) return;
  const auto read = platform::memory::ReadRtf(WideText(view_list_.value_or("")));
  Require(memory.RTB_MainView.Page().text == (read ? read->text : String()));
  JudgePage();
}

platform::Platform HostileMachine::Platform() {
  const platform::Platform machine = memory.Platform();
  return {.events = machine.events,
          .timers = machine.timers,
          .qxt100 = machine.qxt100,
          .winmm = machine.winmm,
          .canusbdrv = machine.canusbdrv,
          .IFCan = machine.IFCan,
          .canlib32 = machine.canlib32,
          .message_box = machine.message_box,
          .files = files,
          .folders = machine.folders,
          .wall_clock = machine.wall_clock,
          .code_page = machine.code_page,
          .automation = servers,
          .clipboard = machine.clipboard,
          .single_instance = machine.single_instance,
          .cursors = machine.cursors,
          .run_protection = machine.run_protection};
}

template <typename Library, typename Record>
void HostileMachine::Feed(Library& library, Record (BusFrame::*as)() const) {
  memory.qxt100.Advance(1);
  if (bus.empty()) return;
  library.frames.Play({(bus.front().*as)()});
  if (const auto taken = Taken(bus.front(), form.device)) {
    taken_.push_back(*taken);
    stamps_.push_back(bus.front().stamp);
    newest_[taken->id] = *taken;
  }
  bus.pop_front();
}

void HostileMachine::WhileWaiting(std::function<void()> handler) {
  memory.message_box.WhileShown([this, handler] {
    const bool before = std::exchange(in_box_, true);
    handler();
    in_box_ = before;
  });
  servers.WhileCalled([this, handler = std::move(handler)] {
    const bool before = std::exchange(in_call_, true);
    const std::int32_t swaps = memory.RTB_MainView.Swaps();
    handler();
    Require(swaps == memory.RTB_MainView.Swaps());
    in_call_ = before;
  });
}

void HostileMachine::Act(std::function<void()> action) {
  if (in_box_ || IsLeft()) return;
  memory.gate.Deliver([this, action = std::move(action)] {
    Require(!in_call_);
    if (!IsLeft()) action();
  });
}

void HostileMachine::Click(void (Form1::*handler)()) {
  Act([this, handler] {
    if (handler == &Form1::Bt_Connect_Click) {
      if (memory.window.Bt_Connect.Enabled()) Connect();
    } else if (handler == &Form1::Bt_SaveFile_Click) {
      Snapshot();
    } else if (handler != &Form1::Bt_Disconnect_Click || memory.window.Bt_Disconnect.Enabled()) {
      (form.*handler)();
    }
  });
}

bool HostileMachine::IsLeft() {
  bool takes_commands = false;
  form.Do([&takes_commands] { takes_commands = true; });
  return !takes_commands || session_ended_;
}

void HostileMachine::Tick() {
  for (auto* timer : TimersOf(memory)) {
    const std::int32_t swaps = memory.RTB_MainView.Swaps();
    timer->Tick();
    if (memory.RTB_MainView.Swaps() != swaps) JudgeRows();
  }
}

void HostileMachine::EndSession() {
  if (IsLeft()) return;
  session_ended_ = true;
  form.Session_Ends();
}

void HostileMachine::Connect() {
  taken_.clear();
  stamps_.clear();
  newest_.clear();
  files.Forget();
  servers.Forget();
  form.Bt_Connect_Click();
  JudgeRun();
  JudgeLog();
  JudgePage();
}

void HostileMachine::JudgeRun() const {
  const auto& window = memory.window;
  Require(form.RxFlag == 0 && !form.ClosingIsRefused() && form.objExcel == nullptr);
  Require(window.Bt_Connect.Enabled() && !window.Bt_Disconnect.Enabled());
  Require(window.menu_common_setting.Enabled() && window.menu_opt_function1.Enabled() &&
          window.menu_opt_log1.Enabled() && window.Cmb_Serect_Device.Enabled());
  Require(!memory.RTB_MainView.Locked() && !window.TB_LogComment.Locked());
  for (const auto* timer : TimersOf(memory)) Require(!timer->Enabled());
  Require(memory.run_protection.Begins() == memory.run_protection.Ends());
}

void HostileMachine::JudgeLog() const {
  const ELM327_Info& device = form.device;
  const JudgedFiles::Logs& logs = files.Seen();
  if (device.t_LogSave_Enable != 1) {
    Require(logs.frames.empty() && logs.failures == 0 && servers.Rows() == 0);
  } else if (UsesSpreadsheetServer(device)) {
    if (servers.Failures() == 0 && !session_ended_) Require(servers.Rows() == taken_.size());
  } else if (device.t_LogSaveFormat != kLogFormatCsv) {
    Require(session_ended_ || logs.frames.empty());
  } else {
    JudgeCsv();
  }
}

/// Every frame that was taken stands in the logs once, as far as nothing kept them from being
/// written. What one file could not take comes with the next one of its channel, and the two
/// channels take turns.
void HostileMachine::JudgeCsv() const {
  const JudgedFiles::Logs& logs = files.Seen();
  if (logs.failures == 0 && !session_ended_) {
    Require(logs.frames == taken_);
    JudgeTimes();
    return;
  }
  std::vector<LoggedFrame> logged = logs.frames;
  std::vector<LoggedFrame> taken = taken_;
  std::ranges::sort(logged);
  std::ranges::sort(taken);
  const bool may_hold_back = logs.failures > 0 && logs.whole_since < 2;
  if (may_hold_back) {
    Require(session_ended_ || std::ranges::includes(taken, logged));
  } else if (session_ended_) {
    // A file that was just being written holds the same lines once more.
    Require(std::ranges::includes(logged, taken));
  } else {
    Require(logged == taken);
  }
}

/// By the timer of a CANUSB, which counts ms, the time line is what has passed since the first
/// frame, as long as the timer does not start over. Zeros of a file's identifiers may stand ahead
/// of a time.
void HostileMachine::JudgeTimes() const {
  const ELM327_Info& device = form.device;
  if (device.t_select_Vender != kVenderCanusb || device.t_Timer_Mode != 0 ||
      device.t_dividend_ratio != 1.0 || stamps_.empty() || stamps_.front() < 0 ||
      !std::ranges::is_sorted(stamps_)) {
    return;
  }
  for (std::size_t i = 0; i < stamps_.size(); ++i) {
    const std::string& time = files.Seen().times.at(i);
    const std::string passed = std::to_string(std::int64_t{stamps_[i]} - stamps_.front());
    Require(time.ends_with(passed));
    const std::size_t ahead = time.size() - passed.size();
    Require(ahead == 0 || time[ahead - 1] == ' ' || time[ahead - 1] == '0');
  }
}

/// Each row of a page with identifiers of 11 bits shows the newest frame of its identifier. With 29
/// bits a frame whose format its adapter does not name may go into a row of another one.
void HostileMachine::JudgeRows() const {
  if (form.device.t_msgID_type == kMsgIdType29Bit) return;
  const std::string page = NarrowText(memory.RTB_MainView.Page().text);
  std::string_view rest = page;
  for (bool is_head = true; !rest.empty(); is_head = false) {
    const std::size_t end = rest.find("\r\n");
    Require(end != std::string_view::npos);
    std::string_view row = rest.substr(0, end);
    rest.remove_prefix(end + 2);
    if (is_head) continue;
    if (!row.ends_with("ms")) return;  // the foot of the page
    const auto newest = newest_.find(TakeNumber<std::uint32_t>(row, 16));
    Require(newest != newest_.end());
    TakeText(row, "  ");
    const std::int32_t length = newest->second.length;
    Require(TakeNumber<std::int32_t>(row, 10) == (length & 0xFF));
    TakeText(row, "  ");
    if (length < 0 || length > 8) continue;
    for (std::int32_t byte = 0; byte < length; ++byte) {
      TakeText(row, " ");
      Require(TakeByte(row) == newest->second.data[static_cast<std::size_t>(byte)]);
    }
  }
}

/// Where the program says so there is one new file with the page in it, and otherwise none; all
/// others are what they were.
void HostileMachine::Snapshot() {
  const Disk before = DiskOf(memory.files);
  const platform::RichTextPage page = memory.RTB_MainView.Page();
  const std::size_t boxes = memory.message_box.Boxes().size();
  const std::int32_t format = form.device.t_SaveFormat;
  const int place = ++snapshots_;
  form.Bt_SaveFile_Click();
  if (session_ended_) return;  // behind the box, and closing has its own files
  if (place != snapshots_) {   // others came in its yields, and were judged themselves
    RequireKept(before, DiskOf(memory.files));
    return;
  }
  const auto written = NewFile(before, DiskOf(memory.files));
  const bool is_said = memory.message_box.Boxes().at(boxes).text == u"保存しました";
  Require(written.has_value() ==
          (is_said && (format == kRichSnapshot || format == kPlainSnapshot)));
  if (!written) return;
  if (format == kPlainSnapshot) {
    std::string bytes;
    memory.Platform().code_page.Encode(page.text, bytes);
    Require(*written == bytes);
  } else {
    JudgeRtf(*written, page);
  }
}

void HostileMachine::JudgePage() const {
  JudgeRtf(NarrowText(memory.RTB_MainView.TextRTF()), memory.RTB_MainView.Page());
}

}  // namespace tolvane::fuzz
