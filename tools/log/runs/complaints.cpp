#include "tools/log/runs/complaints.h"

#include "tools/log/runs/counted.h"

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
  static_cast<void>(
      out_.Write("tolvane-log: " + Counted(count_ - kTold_MAX, "more fault") + " like these\n"));
}

}  // namespace tolvane::logtool
