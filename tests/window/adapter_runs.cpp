#include "tests/window/adapter_runs.h"

#include <fstream>

#include "tests/window/control_ids.h"
#include "tools/drive/text.h"

namespace tolvane::window {
namespace {

constexpr std::string_view kAdapters =
    "[canusb 1]\n[canusb 2]\ncanusb_Open = -3\n"
    "[interface 1]\n[interface 2]\nCanGetConfig = 0xC0000002\n"
    "[kvaser 0]\n[kvaser 1]\ncanOpenChannel = -15 after 1\n"
    "[bus]\nsource = log\nlog = frames.log\n"
    "[faults]\ndata = whole\n";

}  // namespace

void AdapterRuns::StartOn(std::string_view recording) {
  std::ofstream(folder_.Path() / L"frames.log", std::ios::binary) << recording;
  PlugIn(kAdapters, {L"canusbdrv.dll", L"IFCan.dll", L"canlib32.dll"});
  ASSERT_NO_FATAL_FAILURE(Start());
}

void AdapterRuns::Set(const Settings& settings) {
  const DrivenWindow dialog = Open(id::menu_common_setting);
  for (const int control : {id::RB_BitRate_0 + settings.bit_rate,
                            settings.ids_of_29_bits ? id::RB_MsgType_1 : id::RB_MsgType_0,
                            settings.extended_only ? id::RB_MsgFmtTyp_1 : id::RB_MsgFmtTyp_0,
                            settings.silent ? id::RB_Silent_Mode_1 : id::RB_Silent_Mode_0}) {
    EXPECT_TRUE(dialog.Click(control));
  }
  PressOk(dialog);
}

void AdapterRuns::Select(int line) {
  main_.SelectLine(id::Cmb_Serect_Device, line);
  reported_ = bench_->Report().size();
}

// What else the libraries report has no brackets.
Calls AdapterRuns::CallsSinceSelection() const {
  Calls calls;
  std::string rest = bench_->Report().substr(reported_);
  for (std::size_t end; (end = rest.find('\n')) != std::string::npos; rest.erase(0, end + 1)) {
    const std::string line = rest.substr(rest.find(' ') + 1, end - rest.find(' ') - 1);
    if (line.find('(') != std::string::npos) calls.push_back(line);
  }
  return calls;
}

std::wstring AdapterRuns::ConnectToMessage(std::string_view picture) {
  EXPECT_TRUE(main_.Click(id::Bt_Connect));
  const std::optional<ShownMessage> message = WaitForMessage(program_->Id());
  if (!message) return L"no message";
  EXPECT_EQ(Utf8(message->title), "Tolvane Ver1.23");
  if (!picture.empty()) KeepPicture(message->box, picture);
  EXPECT_TRUE(Press(*message, IDOK));
  EXPECT_TRUE(WaitUntil([&] { return main_.Enabled(id::Bt_Connect); }));
  EXPECT_EQ(main_.Text(id::TB_Protocol), L"---");
  return message->text;
}

// Only Kvaser's handle is the same in each run.
Calls ExpectedCalls(Kind kind, const Settings& settings, const Calls& made) {
  const RateRow& rate = kRates[static_cast<std::size_t>(settings.bit_rate)];
  const std::size_t equals = made.empty() ? std::string::npos : made.front().rfind("= ");
  const std::string handle = equals == std::string::npos ? "?" : made.front().substr(equals + 2);
  const std::string call = "(" + handle;
  switch (kind) {
    case kCanusb:
      return {
          "canusb_Open(\"TV100001\", \"" + std::string(rate.canusb) + "\", 0, -1, 1) = " + handle,
          "canusb_Close" + call + ") = 1"};
    case kInterface:
      return {"CanOpenPort(\"IFCAN1\") = " + handle,
              "CanGetConfig" + call + ") = 0",
              "CanSetConfig" + call + (settings.silent ? ", 1" : ", 0") + ", 11, 12, 13, 14, 15, " +
                  std::to_string(rate.interface_code) + ") = 0",
              "CanActivate" + call + ") = 0",
              "CanDeactivate" + call + ") = 0",
              "CanClosePort" + call + ") = 0"};
    case kKvaser:
      break;
  }
  return {"canOpenChannel(0, 128) = 0",
          "canSetBusParams(0, " + std::to_string(rate.kvaser) + ", 5, 2, 1, 1, 0) = 0",
          std::string("canSetBusOutputControl(0, ") + (settings.silent ? "1" : "4") + ") = 0",
          "canBusOn(0) = 0",
          "canBusOff(0) = 0",
          "canClose(0) = 0"};
}

}  // namespace tolvane::window
