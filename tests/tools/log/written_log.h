#pragma once

#include <string>

#include "tests/logging/log_test.h"
#include "tests/tools/log/memory_files.h"

namespace tolvane::logtool {

/// Logs that the program's own writer has written.
class WrittenLog : public LogTest {
 protected:
  void Begin29BitRun() {
    device.t_msgID_type = kMsgIdType29Bit;
    StartRun();
  }

  /// A file of the written run, by the name that the writer gave it.
  std::string Path(const std::string& number) const { return "KL26112009-" + number + ".csv"; }

  /// Hands what was written over to the tool.
  void TakeFiles() {
    for (const String& path : files.Files(u"C:\\Tolvane")) {
      const String name = path.substr(path.rfind(u'\\') + 1);
      log_files.texts[std::string(name.begin(), name.end())] = *files.Bytes(path);
    }
  }

  MemoryFiles log_files;
};

}  // namespace tolvane::logtool
