#include "tests/faults/scenarios.h"

#include <algorithm>
#include <array>

#include "platform/byte_text.h"

namespace tolvane::faults {
namespace {

constexpr const char* kCanusb = "[canusb 1]\n";
constexpr const char* kInterface = "[interface 1]\n";
constexpr const char* kKvaser = "[kvaser 0]\n";
constexpr const char* kAll = "[canusb 1]\n[interface 1]\n[kvaser 0]\n";
constexpr std::int32_t k11 = 0;
constexpr std::int32_t k29 = kMsgIdType29Bit;

// The first frame is on the bus when the adapter is. The ticks behind the last frames show them,
// also when the timer fails once or twice.
constexpr std::array<Act, 5> kShort{
    {{.frames = 5}, {.tick = true}, {.frames = 4}, {.tick = true}, {.tick = true}}};
// Both channels fill up, and the first one gets another file.
constexpr std::array<Act, 8> kTwoRollOvers{{{.frames = 2},
                                            {.tick = true},
                                            {.frames = 19'992, .numbered = false},
                                            {.frames = 8},
                                            {.frames = 19'995, .numbered = false},
                                            {.frames = 8},
                                            {.tick = true},
                                            {.tick = true}}};
constexpr std::array<Act, 4> kSessionEnd{
    {{.frames = 5}, {.tick = true}, {.frames = 4}, {.session_ends = true}}};

constexpr StringView kTyped = u"one two three\r\n";
constexpr StringView kSaved = u"保存しました";

void PlayShortRun(Machine& machine) { machine.Run(kShort); }
void PlayTwoRollOvers(Machine& machine) { machine.Run(kTwoRollOvers); }
void PlaySessionEnd(Machine& machine) { machine.Run(kSessionEnd); }

Complaints JudgeRun(const Machine& machine, const FaultPlan& plan) {
  constexpr std::array<std::string_view, 6> kFileCalls{
      "CreateTextFile", "TextStream.Write", "TextStream.Close", "get", "put", "call"};
  return machine.JudgeRun(
      std::ranges::any_of(kFileCalls, [&](std::string_view call) { return plan.HasFailed(call); }));
}

/// A start ends with a message, and only when nothing can be done without what failed.
Complaints JudgeStart(const Machine& machine, const FaultPlan& plan) {
  constexpr std::array<std::string_view, 8> kNeeded{"Load",
                                                    "System",
                                                    "canusb_getFirstAdapter",
                                                    "canusb_VersionInfo",
                                                    "CanOpenPort",
                                                    "canInitializeLibrary",
                                                    "canGetNumberOfChannels",
                                                    "canOpenChannel"};
  if (machine.Waits()) return {};
  if (!machine.IsLeft()) return {"the start neither ended nor went on"};
  if (std::ranges::none_of(kNeeded, [&](std::string_view call) { return plan.HasFailed(call); })) {
    return {"the start ended without need"};
  }
  const bool told = !machine.memory.message_box.Boxes().empty();
  if (!told && !plan.HasFailed("MessageBox")) return {"the start ended without a word"};
  return {};
}

void Select(Machine& machine, std::int32_t start, std::int32_t length) {
  machine.memory.RTB_MainView.SelStart(start);
  machine.memory.RTB_MainView.SelLength(length);
  machine.Click(&Form1::RTB_MainView_SelChange);
}

void PlayPageCommands(Machine& machine) {
  auto& page = machine.memory.RTB_MainView;
  page.Text(kTyped);
  Select(machine, 0, 3);
  machine.Click(&Form1::RTB_MainView_ContextMenu);
  machine.Click(&Form1::menu_View_Ctrl_C_Click);
  machine.Click(&Form1::menu_View_Ctrl_X_Click);
  machine.Click(&Form1::menu_View_Ctrl_Z_Click);
  machine.Click(&Form1::menu_View_All_Copy_Click);
  Select(machine, static_cast<std::int32_t>(kTyped.size()), 0);
  machine.Click(&Form1::menu_View_Ctrl_V_Click);
  machine.Click(&Form1::menu_View_Date_Click);
}

/// A clipboard that fails costs the page nothing that cannot be taken back.
Complaints JudgePageCommands(const Machine& machine, const FaultPlan&) {
  if (machine.memory.RTB_MainView.Page().text.starts_with(kTyped)) return {};
  return {"text is missing from the page"};
}

void PlaySnapshots(Machine& machine) {
  ELM327_Info& device = machine.form.device;
  for (const std::int32_t format : {1, 2}) {
    device.t_SaveFormat = format;
    device.t_SaveFilePath_mode = 0;
    machine.Click(&Form1::Bt_SaveFile_Click);
    device.t_SaveFilePath_mode = 2;
    device.t_SaveFilePath = u"C:\\missing";
    machine.Click(&Form1::Bt_SaveFile_Click);
  }
}

/// Each snapshot that is there is a whole one, and there are as many as were told of.
Complaints JudgeSnapshots(const Machine& machine, const FaultPlan&) {
  const auto& page = machine.memory.RTB_MainView;
  std::ptrdiff_t whole = 0;
  for (const auto& [path, bytes] : machine.Files()) {
    const bool is_plain = path.ends_with(u".txt");
    if (!is_plain && !path.ends_with(u".rtf")) continue;
    if (bytes != NarrowText(is_plain ? page.Text() : page.TextRTF())) return {"half a snapshot"};
    ++whole;
  }
  const auto told = std::ranges::count_if(machine.memory.message_box.Boxes(),
                                          [](const auto& box) { return box.text == kSaved; });
  return told <= whole ? Complaints{} : Complaints{"a snapshot is missing"};
}

void PlayClosing(Machine& machine) {
  machine.memory.RTB_MainView.UserTypes(kTyped);
  machine.memory.window.TB_LogComment.Type(u"another comment");
  machine.Click(&Form1::menu_file_close_Click);
}

Complaints JudgeClosing(const Machine& machine, const FaultPlan&) {
  return machine.IsLeft() ? Complaints{} : Complaints{"the program cannot be closed"};
}

void PlayIdleSessionEnd(Machine& machine) {
  machine.memory.RTB_MainView.UserTypes(kTyped);
  machine.memory.window.TB_LogComment.Type(u"another comment");
  machine.EndSession();
}

/// Whatever fails, the system waits for an answer that comes; the next start tells what was kept.
Complaints JudgeIdleSessionEnd(const Machine& machine, const FaultPlan&) {
  if (!machine.memory.message_box.Boxes().empty()) return {"a box holds the system back"};
  return machine.form.RxFlag == 0 ? Complaints{} : Complaints{"a run goes on"};
}

/// What failed in the run must not make the closing worse, and both may fail.
void PlayRunThenClosing(Machine& machine) {
  machine.Run(kShort);
  machine.Click(&Form1::menu_file_close_Click);
}

Complaints JudgeRunThenClosing(const Machine& machine, const FaultPlan& plan) {
  Complaints complaints = JudgeRun(machine, plan);
  if (!machine.IsLeft()) complaints.emplace_back("the program cannot be closed");
  return complaints;
}

using enum WrittenLogs::Form;

constexpr Scenario kScenarios[] = {
    {"Start", {kAll, k11}, kCsv, true, nullptr, JudgeStart},
    {"StartWithCanusb", {kCanusb, k11}, kCsv, true, nullptr, JudgeStart},
    {"StartWithInterface", {kInterface, k11}, kCsv, true, nullptr, JudgeStart},
    {"StartWithKvaser", {kKvaser, k11}, kCsv, true, nullptr, JudgeStart},
    {"StartWithForeignSettings",
     {.adapters = kKvaser, .ids = k11, .has_foreign_settings = true},
     kCsv,
     true,
     nullptr,
     JudgeStart},
    {"CsvCanusb11", {kCanusb, k11}, kCsv, false, PlayShortRun, JudgeRun},
    {"CsvBehindManyLogs",
     {.adapters = kCanusb, .ids = k11, .logs_of_the_hour = 40},
     kCsv,
     false,
     PlayShortRun,
     JudgeRun},
    {"CsvInterface29Excluding", {kInterface, k29, 1, 1}, kCsv, false, PlayShortRun, JudgeRun},
    {"CsvKvaser29", {kKvaser, k29}, kCsv, false, PlayShortRun, JudgeRun},
    {"CsvOverTwoRollOvers", {kKvaser, k11, 1}, kCsv, false, PlayTwoRollOvers, JudgeRun},
    {"Csv29OverTwoRollOvers",
     {kCanusb, k29},
     kCsv,
     false,
     PlayTwoRollOvers,
     JudgeRun,
     Pairs::kNear},
    {"Workbook", {kCanusb, k11}, kWorkbook, false, PlayShortRun, JudgeRun},
    {"WorkbookOverTwoRollOvers",
     {kInterface, k29},
     kWorkbook,
     false,
     PlayTwoRollOvers,
     JudgeRun,
     Pairs::kNear},
    {"SessionEndInARun", {kKvaser, k11}, kCsv, false, PlaySessionEnd, JudgeRun},
    {"SessionEndInAWorkbookRun", {kCanusb, k11}, kWorkbook, false, PlaySessionEnd, JudgeRun},
    {"SessionEndWhileIdle", {kCanusb, k11}, kCsv, false, PlayIdleSessionEnd, JudgeIdleSessionEnd},
    {"RunThenClosing", {kCanusb, k11}, kCsv, false, PlayRunThenClosing, JudgeRunThenClosing},
    {"PageCommands", {kCanusb, k11}, kNone, false, PlayPageCommands, JudgePageCommands},
    {"Snapshots", {kCanusb, k11}, kNone, false, PlaySnapshots, JudgeSnapshots},
    {"Closing", {kCanusb, k11}, kCsv, false, PlayClosing, JudgeClosing},
};

}  // namespace

std::span<const Scenario> Scenarios() { return kScenarios; }

std::span<const Act> ShortRun() { return kShort; }

}  // namespace tolvane::faults
