#pragma once

#include <memory>
#include <string>

#include "tools/log/reading/bytes.h"

namespace tolvane::logtool {

/// The files of this machine. Paths are UTF-8, on Linux whatever bytes the system has.
class LogFiles {
 public:
  virtual ~LogFiles() = default;
  /// From the beginning. Null when it cannot be read.
  [[nodiscard]] virtual std::unique_ptr<ByteSource> Open(const std::string& path) = 0;
  /// A new one. Null when it cannot be made, and where there is one already.
  [[nodiscard]] virtual std::unique_ptr<ByteSink> Create(const std::string& path) = 0;
  virtual void Remove(const std::string& path) = 0;
};

}  // namespace tolvane::logtool
