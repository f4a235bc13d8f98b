#include "tests/fuzz/hostile_user.h"

#include <iterator>

#include "config/dialogs/formcommonsetting.h"
#include "config/dialogs/formoption1.h"
#include "config/dialogs/formoptionlog1.h"

namespace tolvane::fuzz {
namespace {

constexpr int kDeepest = 6;  // actions within actions

using platform::memory::MainWindow;

struct Command {
  platform::memory::MenuItem MainWindow::*item;
  void (Form1::*handler)();
};

constexpr Command kCommands[] = {
    {&MainWindow::menu_View_All_Copy, &Form1::menu_View_All_Copy_Click},
    {&MainWindow::menu_View_Ctrl_Z, &Form1::menu_View_Ctrl_Z_Click},
    {&MainWindow::menu_View_Ctrl_X, &Form1::menu_View_Ctrl_X_Click},
    {&MainWindow::menu_View_Ctrl_C, &Form1::menu_View_Ctrl_C_Click},
    {&MainWindow::menu_View_Ctrl_V, &Form1::menu_View_Ctrl_V_Click},
    {&MainWindow::menu_View_DEL, &Form1::menu_View_DEL_Click},
    {&MainWindow::menu_View_Text_Red, &Form1::menu_View_Text_Red_Click},
    {&MainWindow::menu_View_Text_Blue, &Form1::menu_View_Text_Blue_Click},
    {&MainWindow::menu_View_Text_Black, &Form1::menu_View_Text_Black_Click},
    {&MainWindow::menu_View_Marker_Pink, &Form1::menu_View_Marker_Pink_Click},
    {&MainWindow::menu_View_Marker_Yellow, &Form1::menu_View_Marker_Yellow_Click},
    {&MainWindow::menu_View_Marker_black, &Form1::menu_View_Marker_black_Click},
    {&MainWindow::menu_View_Marker_white, &Form1::menu_View_Marker_white_Click},
    {&MainWindow::menu_View_Date, &Form1::menu_View_Date_Click}};

/// One of a group, or with the highest number none of them.
template <std::size_t N>
void Choose(std::array<Choice, N>& group, std::uint8_t which) {
  for (std::size_t i = 0; i < N; ++i) group[i].checked = which % (N + 1) == i;
}

}  // namespace

const HostileUser::Action HostileUser::kActions[] = {
    &HostileUser::Nothing,        &HostileUser::Tick,
    &HostileUser::Connect,        &HostileUser::Disconnect,
    &HostileUser::Clear,          &HostileUser::Snapshot,
    &HostileUser::Close,          &HostileUser::EndSession,
    &HostileUser::SelectDevice,   &HostileUser::TypeComment,
    &HostileUser::TypeOnPage,     &HostileUser::SelectText,
    &HostileUser::CommandOfPage,  &HostileUser::PutOnClipboard,
    &HostileUser::CommonSettings, &HostileUser::ExtensionSettings,
    &HostileUser::LogSettings,    &HostileUser::TimePasses,
    &HostileUser::HourPasses,     &HostileUser::Frames,
    &HostileUser::FullChannel,    &HostileUser::FaultOfFiles,
    &HostileUser::FaultOfServer,  &HostileUser::FaultOfAdapter};

void HostileUser::Play() {
  machine_.OnYield([this] { Act(); });
  machine_.WhileWaiting([this] { Act(); });
  while (!input_.AtEnd() && !machine_.IsLeft()) {
    machine_.memory.gate.DeliverWaiting();
    Act();
  }
}

void HostileUser::Act() {
  if (input_.AtEnd() || depth_ == kDeepest) {
    if (machine_.form.RxFlag == 1) Disconnect();
    return;
  }
  ++depth_;
  (this->*kActions[input_.Byte() % std::size(kActions)])();
  --depth_;
}

void HostileUser::SelectDevice() {
  const std::int32_t line = input_.Byte() % 5 - 1;
  machine_.Act([this, line] {
    auto& list = machine_.memory.window.Cmb_Serect_Device;
    if (list.Enabled()) list.ListIndex(line);
  });
}

void HostileUser::TypeComment() { machine_.memory.window.TB_LogComment.Type(input_.Text()); }

void HostileUser::TypeOnPage() { machine_.memory.RTB_MainView.UserTypes(input_.Text()); }

void HostileUser::SelectText() {
  const std::int32_t start = input_.Short();
  const std::int32_t length = input_.Short();
  machine_.Act([this, start, length] {
    machine_.memory.RTB_MainView.SelStart(start);
    machine_.memory.RTB_MainView.SelLength(length);
    machine_.form.RTB_MainView_SelChange();
  });
}

void HostileUser::CommandOfPage() {
  const Command& command = kCommands[input_.Byte() % std::size(kCommands)];
  machine_.Act([this, &command] {
    machine_.form.RTB_MainView_GotFocus();
    machine_.form.RTB_MainView_ContextMenu();
    if ((machine_.memory.window.*command.item).Enabled()) (machine_.form.*command.handler)();
  });
}

void HostileUser::PutOnClipboard() {
  const std::uint8_t how = input_.Byte();
  using Format = platform::Clipboard::Format;
  machine_.memory.clipboard.Put(input_.Text(),
                                how % 2 == 0 ? Format::kPlainText : Format::kRichText);
  machine_.memory.clipboard.HeldByAnother(how / 2);
}

void HostileUser::CommonSettings() {
  FormCommonSetting dialog;
  dialog.read_setting(machine_.form.device);
  Choose(dialog.RB_BitRate, input_.Byte());
  Choose(dialog.RB_MsgType, input_.Byte());
  Choose(dialog.RB_MsgFmtTyp, input_.Byte());
  Choose(dialog.RB_Silent_Mode, input_.Byte());
  Choose(dialog.RB_Timer_Mode, input_.Byte());
  dialog.TB_DataChangeColorTime.text = input_.Text();
  dialog.TB_Msg_Blackout_Ratio.text = input_.Text();
  dialog.TB_dividend_ratio.text = input_.Text();
  Confirm(dialog, machine_.memory.window.menu_common_setting);
}

void HostileUser::ExtensionSettings() {
  FormOption1 dialog;
  dialog.read_setting(machine_.form.device);
  const std::size_t row = input_.Byte() % FormOption1::kRows;
  const std::uint8_t checks = input_.Byte();
  dialog.CB_Save_ID_DisableMode.checked = (checks & 1) != 0;
  dialog.CB_DisableID[row].checked = (checks & 2) != 0;
  dialog.CB_MsgMarker[row].checked = (checks & 4) != 0;
  dialog.TB_DisableID_Start[row].text = input_.Text();
  dialog.TB_DisableID_End[row].text = input_.Text();
  dialog.TB_MsgMarkerID[row].text = input_.Text();
  dialog.TB_MsgMarkerStartByte[row].text = input_.Text();
  dialog.TB_MsgMarkerEndByte[row].text = input_.Text();
  Confirm(dialog, machine_.memory.window.menu_opt_function1);
}

void HostileUser::LogSettings() {
  FormOptionLog1 dialog;
  dialog.read_setting(machine_.form.device);
  const std::uint8_t checks = input_.Byte();
  dialog.CB_LogFile_Enable.checked = (checks & 1) != 0;
  dialog.CB_LogSave_subFolder.checked = (checks & 2) != 0;
  dialog.CB_Excel_soft_KO.checked = (checks & 4) != 0;
  Choose(dialog.RB_SV_Format, input_.Byte());
  Choose(dialog.RB_LogSV_Format, input_.Byte());
  Choose(dialog.RB_Excel_Format, input_.Byte());
  Choose(dialog.RB_LogSaveFilePath, input_.Byte());
  dialog.TB_LogSaveFilePath.text = input_.Text();
  Confirm(dialog, machine_.memory.window.menu_opt_log1);
}

void HostileUser::TimePasses() { machine_.memory.qxt100.Advance(input_.Number() / 256.0); }

void HostileUser::HourPasses() {
  platform::LocalTime now = platform::memory::MemoryPlatform::kFirstMonday;
  now.hour = input_.Byte() % 24;
  machine_.memory.wall_clock.Set(now);
}

void HostileUser::Frames() {
  const std::uint8_t form = input_.Byte();
  const bool extended = (form & 4) != 0;
  const std::int32_t vender = machine_.form.device.t_select_Vender;
  BusFrame frame{};
  frame.id = (form & 1) != 0 ? input_.Number() : input_.Short() & 0xFFF;
  if ((form & 2) != 0) {
    frame.flag = input_.Number();
  } else if (vender == kVenderInterface) {
    if (extended) frame.id |= INT32_MIN;
  } else if (vender == kVenderKvaser) {
    frame.flag = extended ? 4 : 2;
  } else {
    frame.flag = extended ? 128 : 0;
  }
  frame.dlc = (form & 8) != 0 ? input_.Number() : input_.Byte() % 10;
  stamp_ = (form & 16) != 0
               ? input_.Number()
               : static_cast<std::int32_t>(static_cast<std::uint32_t>(stamp_) + input_.Byte());
  frame.stamp = stamp_;
  if ((form & 32) != 0) {
    for (std::uint8_t& byte : frame.data) byte = input_.Byte();
  } else {
    frame.data.fill(input_.Byte());
  }
  const int count = form < 64 ? 1 : form < 128 ? 2 : input_.Byte() + 1;
  for (int i = 0; i < count; ++i) {
    machine_.bus.push_back(frame);
    if (form >= 192) frame.id = static_cast<std::int32_t>(static_cast<std::uint32_t>(frame.id) + 1);
  }
}

/// More frames of one identifier than a channel of the log takes. It costs as much as some hundred
/// other inputs, so nothing comes by it without meaning to.
void HostileUser::FullChannel() {
  if (input_.Bytes(4) != "FULL") return;
  constexpr std::size_t kFrames = 20'005;
  const bool is_11 = machine_.form.device.t_select_Vender == kVenderKvaser;
  const BusFrame frame{.id = 0x1A0, .flag = is_11 ? 2 : 0, .dlc = 1, .stamp = stamp_, .data = {7}};
  machine_.bus.insert(machine_.bus.end(), kFrames, frame);
}

void HostileUser::FaultOfFiles() {
  const std::uint8_t fault = input_.Byte();
  platform::memory::FileSystem& files = machine_.memory.files;
  const String& folder = machine_.form.device.ExecutableFolder();
  files.Protect(folder, (fault & 1) != 0);
  files.FailClose((fault & 2) != 0);
  files.FreeSpace((fault & 4) != 0 ? fault * 8U : std::size_t{1} << 30);
  files.Lock(folder + u"\\lglist.dat", (fault & 8) != 0);
  files.Lock(folder + u"\\config.dat", (fault & 8) != 0);
}

void HostileUser::FaultOfServer() { machine_.servers.FailAt(input_.Byte()); }

void HostileUser::FaultOfAdapter() {
  const std::uint8_t fault = input_.Byte();
  machine_.memory.canusbdrv.open_result = (fault & 1) != 0 ? -1 : 1;
  machine_.memory.canlib32.channels = {(fault & 2) != 0 ? -3 : 0};
  machine_.memory.IFCan.get_config_status = (fault & 4) != 0 ? -1 : 0;
  const bool only_bytes_of_length = (fault & 8) != 0;
  machine_.memory.canusbdrv.only_bytes_of_length = only_bytes_of_length;
  machine_.memory.canlib32.only_bytes_of_length = only_bytes_of_length;
  machine_.memory.IFCan.only_bytes_of_length = only_bytes_of_length;
}

}  // namespace tolvane::fuzz
