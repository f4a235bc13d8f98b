#include "tools/log/runs/complaints.h"

namespace tolvane::logtool {

void Complaints::Tell(std::string_view path, std::uint64_t line, std::string_view what) {
  if (++count_ > kTold_MAX) return;
  std::string text = "tolvane-log: ";
  text.append(path).append(":");
  if (line > 0) text.append(std::to_string(line)).append(":");
  text.append(" ").append(what).append("\n");
  static_cast<void>(out_.Write(text));
}

void Complaints::Conclude() {
  if (count_ <= kTold_MAX) return;
  static_cast<void>(out_.Write("tolvane-log: " + std::to_string(count_ - kTold_MAX) +
                               " more faults like these\n"));
}

}  // namespace tolvane::logtool
