#pragma once

#include "tests/fuzz/hostile_machine.h"
#include "tests/fuzz/input.h"

namespace tolvane::fuzz {

/// Everything that can happen to the program from outside, one action for each byte of the input
/// and what belongs to it. Behind the input's end runs are ended.
class HostileUser {
 public:
  HostileUser(HostileMachine& machine, Input& input) : machine_(machine), input_(input) {}

  /// Everything that the input holds, now and in the yields of what it sets off.
  void Play();

 private:
  using Action = void (HostileUser::*)();
  static const Action kActions[];

  void Act();
  /// The user's OK in a dialog that this item of the menu has opened.
  template <typename Dialog>
  void Confirm(const Dialog& dialog, const platform::memory::MenuItem& item) {
    machine_.Act([this, dialog, &item] {
      if (item.Enabled()) dialog.Bt_OK_Click(machine_.form.device);
    });
  }

  void Nothing() {}
  void Tick() { machine_.Tick(); }
  void Connect() { machine_.Click(&Form1::Bt_Connect_Click); }
  void Disconnect() { machine_.Click(&Form1::Bt_Disconnect_Click); }
  void Clear() { machine_.Click(&Form1::Bt_ViewClear_Click); }
  void Snapshot() { machine_.Click(&Form1::Bt_SaveFile_Click); }
  void Close() { machine_.Click(&Form1::menu_file_close_Click); }
  void EndSession() { machine_.EndSession(); }
  void SelectDevice();
  void TypeComment();
  void TypeOnPage();
  void SelectText();
  void CommandOfPage();
  void PutOnClipboard();
  void CommonSettings();
  void ExtensionSettings();
  void LogSettings();
  void TimePasses();
  void HourPasses();
  void Frames();
  void FullChannel();
  void FaultOfFiles();
  void FaultOfServer();
  void FaultOfAdapter();

  HostileMachine& machine_;
  Input& input_;
  std::int32_t stamp_ = 0;
  int depth_ = 0;
};

}  // namespace tolvane::fuzz
