#include "tests/window/window_fixture.h"

#include <algorithm>

#include "tests/window/control_ids.h"
#include "tools/drive/screen_picture.h"
#include "tools/drive/text.h"
#include "tools/drive/what_runs.h"

namespace tolvane::window {

std::ostream& operator<<(std::ostream& stream, const WindowState& state) {
  return stream << "connect " << state.connect_enabled << ", disconnect "
                << state.disconnect_enabled << ", list " << state.list_enabled << ", menus "
                << state.settings_menus_enabled << ", comment locked " << state.comment_locked
                << ", view locked " << state.view_locked << ", caution " << state.caution_visible
                << ", always enabled " << state.always_enabled << ", protocol \""
                << Utf8(state.protocol) << "\", status \"" << Utf8(state.status) << '"';
}

WindowState IdleState() {
  return {.connect_enabled = true,
          .disconnect_enabled = false,
          .list_enabled = true,
          .settings_menus_enabled = true,
          .comment_locked = false,
          .view_locked = false,
          .caution_visible = false,
          .always_enabled = true,
          .protocol = L"---",
          .status = L""};
}

WindowState ConnectedState() {
  return {.connect_enabled = false,
          .disconnect_enabled = true,
          .list_enabled = false,
          .settings_menus_enabled = false,
          .comment_locked = true,
          .view_locked = true,
          .caution_visible = true,
          .always_enabled = true,
          .protocol = L"500k bps",
          .status = L"通信中　ログ出力(csv)"};
}

RealProgram::RealProgram()
    : folder_(OwnFolder() / L"..\\..\\program", OwnFolder() / L"program-under-test") {}

void RealProgram::PlugIn(std::string_view ini, const std::vector<const wchar_t*>& libraries) {
  ExpectFaults();
  bench_.emplace(folder_.Path(), ini, libraries);
  faults_seen_ = 0;
}

DrivenWindow RealProgram::StartProgram() {
  program_.emplace(folder_.Executable());
  if (!program_->Started()) return {};
  const DrivenWindow window = program_->WaitForMainWindow();
  if (!window.Exists()) ADD_FAILURE() << "no main window came; these run:\n" << Utf8(WhatRuns());
  return window;
}

std::optional<ShownMessage> RealProgram::StartToMessage() {
  program_.emplace(folder_.Executable());
  if (!program_->Started()) return std::nullopt;
  const std::optional<ShownMessage> message = WaitForMessage(program_->Id());
  if (!message) ADD_FAILURE() << "no message came; these run:\n" << Utf8(WhatRuns());
  return message;
}

void RealProgram::Connect(const DrivenWindow& window) {
  connected_at_ = bench_ ? bench_->Report().size() : 0;
  ASSERT_TRUE(window.Click(id::Bt_Connect));
  ASSERT_TRUE(WaitUntil([&] { return window.Text(id::TB_Status).starts_with(L"通信中"); }))
      << Utf8(window.Text(id::TB_Status));
}

void RealProgram::Disconnect(const DrivenWindow& window) {
  ASSERT_TRUE(window.Click(id::Bt_Disconnect));
  ASSERT_TRUE(WaitUntil([&] { return window.Enabled(id::Bt_Connect); }));
  ExpectFaults();
}

void RealProgram::ExpectFaults() {
  if (!bench_) return;
  const Faults faults = FaultsOf(bench_->Report());
  EXPECT_EQ(Faults(faults.begin() + static_cast<std::ptrdiff_t>(faults_seen_), faults.end()),
            expected_faults_);
  faults_seen_ = faults.size();
  expected_faults_.clear();
}

std::int64_t RealProgram::AwaitWholeTraffic(std::string_view adapter) const {
  const std::string mark = " end " + std::string(adapter) + " delivered=";
  std::string told;
  const bool over = WaitUntil([&] {
    const std::string report = bench_->Report();
    const std::size_t at = report.find(mark, connected_at_);
    if (at == std::string::npos || report.find('\n', at) == std::string::npos) return false;
    told = report.substr(at + mark.size());
    return true;
  });
  return over ? std::stoll(told) : -1;
}

bool RealProgram::WaitForLines(const DrivenWindow& window, std::size_t lines) {
  return WaitUntil([&] {
    const std::wstring page = window.Text(id::RTB_MainView);
    return static_cast<std::size_t>(std::count(page.begin(), page.end(), L'\n')) >= lines;
  });
}

WindowState RealProgram::State(const DrivenWindow& window) const {
  const ProgramProbe probe(OwnFolder() / L"tolvane_probe.dll", window.Handle());
  const auto menus = {probe.Enabled(id::menu_common_setting), probe.Enabled(id::menu_opt_function1),
                      probe.Enabled(id::menu_opt_log1)};
  const bool menus_enabled = *menus.begin() == true;
  for (const std::optional<bool>& menu : menus) {
    EXPECT_EQ(menu, std::optional(menus_enabled)) << "the three settings menus differ";
  }
  return {.connect_enabled = window.Enabled(id::Bt_Connect),
          .disconnect_enabled = window.Enabled(id::Bt_Disconnect),
          .list_enabled = window.Enabled(id::Cmb_Serect_Device),
          .settings_menus_enabled = menus_enabled,
          .comment_locked = window.ReadOnly(id::TB_LogComment),
          .view_locked = window.ReadOnly(id::RTB_MainView),
          .caution_visible = window.Visible(id::Pic_Caution),
          .always_enabled = window.Enabled(id::Bt_SaveFile) && window.Enabled(id::Bt_ViewClear) &&
                            probe.Enabled(id::menu_file_close) == true &&
                            probe.Enabled(id::menu_help_version) == true,
          .protocol = window.Text(id::TB_Protocol),
          .status = window.Text(id::TB_Status)};
}

void RealProgram::KeepPicture(HWND window, std::string_view suffix) {
  const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
  const std::filesystem::path pictures = OwnFolder() / L"pictures";
  std::filesystem::create_directories(pictures);
  std::string name = std::string(test.test_suite_name()) + "." + test.name();
  std::replace(name.begin(), name.end(), '/', '-');
  name.append("-").append(suffix).append(".bmp");
  // A page in a run may never stand still.
  (void)AwaitPainted(window);
  EXPECT_TRUE(SaveScreenPicture(window, pictures / Wide(name)));
}

}  // namespace tolvane::window
