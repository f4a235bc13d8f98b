#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane::window {

/// The stand-in office program, registered for programs that look for one while the object lives.
class OfficeStandIn {
 public:
  /// `names` are words such as "Excel.Application --version 11.0 Ket.Application"; `folder` takes
  /// the record and the script.
  OfficeStandIn(const std::filesystem::path& folder, const std::wstring& names);
  ~OfficeStandIn();
  OfficeStandIn(const OfficeStandIn&) = delete;
  OfficeStandIn& operator=(const OfficeStandIn&) = delete;

  [[nodiscard]] bool Registered() const { return registered_; }

  /// What servers that start from now on do; lines of the script's section.
  void Script(std::string_view lines) const;

  /// The record's lines so far.
  [[nodiscard]] std::vector<std::string> Lines() const;

  /// Waits until every server has ended and forgets what they recorded.
  [[nodiscard]] bool Forget() const;
  /// Waits until every server has ended.
  [[nodiscard]] bool WaitForEnd() const;
  /// Waits until a line contains `text`.
  [[nodiscard]] bool WaitForLine(std::string_view text) const;

 private:
  std::filesystem::path record_;
  std::filesystem::path script_;
  bool registered_;
};

}  // namespace tolvane::window
