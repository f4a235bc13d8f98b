#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane::window {

/// One CANUSB adapter on the synthetic vehicle.
inline constexpr std::string_view kOneCanusb = "[canusb 1]\n[bus]\nsource = vehicle\n";

/// The vendors' libraries of the simulated bench in the system folder, and the bench file that
/// programs started from now on read. Both are taken away with the object.
class SimulatedBench {
 public:
  /// `folder` takes the bench file and its report; `libraries` are file names such as
  /// "canusbdrv.dll"; `ini` says what is plugged in.
  SimulatedBench(const std::filesystem::path& folder, std::string_view ini,
                 const std::vector<const wchar_t*>& libraries);
  ~SimulatedBench();
  SimulatedBench(const SimulatedBench&) = delete;
  SimulatedBench& operator=(const SimulatedBench&) = delete;

  /// What the libraries have written about the calls so far.
  [[nodiscard]] std::string Report() const;

 private:
  std::filesystem::path report_;
};

}  // namespace tolvane::window
