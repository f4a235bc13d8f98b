#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/string.h"

namespace tolvane::platform::memory {

/// Everything that was done to a window, in order, one line each: "Bt_Connect.Enabled = true",
/// "Form1.Unload()". One journal is shared by all that must be compared in one order.
class Journal {
 public:
  void Note(std::string line);
  void Assign(const std::string& control, const char* property, bool value);
  void Assign(const std::string& control, const char* property, StringView value);
  void Assign(const std::string& control, const char* property, double value);

  [[nodiscard]] const std::vector<std::string>& Lines() const { return lines_; }
  void Clear() { lines_.clear(); }
  /// Hands over the lines so far and goes on empty.
  [[nodiscard]] std::vector<std::string> Take() { return std::exchange(lines_, {}); }

 private:
  std::vector<std::string> lines_;
};

}  // namespace tolvane::platform::memory
