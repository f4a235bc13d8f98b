#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/memory/memory_platform.h"
#include "run/control/form1.h"
#include "tests/helpers/installed_program.h"

namespace tolvane {

/// The program on a machine in memory, before its start: support library and the three vendors'
/// libraries installed, nothing plugged in, no settings. Handlers are bound as the front end binds
/// them.
class Form1Bench {
 public:
  Form1Bench() {
    InstallProgram(memory);
    memory.window.Cmb_Serect_Device.OnClick(
        [this] { form.Do([this] { form.Cmb_Serect_Device_Click(); }); });
    memory.window.window.OnUnload([this] {
      std::int32_t Cancel = 0;
      form.Form_QueryUnload(Cancel);
      if (Cancel != 1) form.Form_Unload();
    });
  }

  void Install(const String& folder, StringView file) { InstallFile(memory, folder, file); }
  void Remove(const String& folder, StringView file) { memory.files.Remove(Path(folder, file)); }
  static String Path(const String& folder, StringView file) {
    return folder + u"\\" + String(file);
  }
  [[nodiscard]] bool Wrote(StringView file) { return memory.files.FileExists(Path(kFolder, file)); }

  /// A start with one CANUSB adapter, which succeeds; the journal is then empty.
  void Start() {
    memory.canusbdrv.serials = {"LAW00001"};
    form.Form_Load();
    memory.journal.Clear();
  }

  /// The user's click or choice, led as the front end leads it. It waits while the program takes
  /// none.
  void Click(void (Form1::*handler)()) {
    memory.gate.Deliver([this, handler] { form.Do([this, handler] { (form.*handler)(); }); });
  }

  /// Lines of the journal that begin with `prefix`.
  [[nodiscard]] std::vector<std::string> Noted(const std::string& prefix) const {
    std::vector<std::string> found;
    for (const std::string& line : memory.journal.Lines()) {
      if (line.starts_with(prefix)) found.push_back(line);
    }
    return found;
  }

  platform::memory::MemoryPlatform memory;
  Form1 form{memory.Platform(), memory.MainWindow(), kFolder};
};

/// For long journals: prints the first line that differs.
inline void ExpectLines(const std::vector<std::string>& actual,
                        const std::vector<std::string>& expected) {
  const auto [a, e] = std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
  EXPECT_TRUE(a == actual.end() && e == expected.end())
      << "line " << a - actual.begin() << ": " << (a == actual.end() ? "(end)" : *a)
      << "\n  expected: " << (e == expected.end() ? "(end)" : *e);
}

}  // namespace tolvane
