#include "tools/log/runs/seams.h"

#include "tools/log/runs/counted.h"
#include "tools/log/runs/log_order.h"

namespace tolvane::logtool {

namespace {

constexpr std::size_t kTold_MAX = 10;

}  // namespace

std::vector<std::string> OddSeams(const LogRun& run, const RunReader& read) {
  const std::vector<std::uint64_t>& frames = read.FramesOfFiles();
  std::vector<std::string> seams;
  for (std::size_t i = 1; i < run.files.size(); ++i) {
    const std::string& before = run.files[i - 1].path;
    const std::string& path = run.files[i].path;
    if (const std::uint32_t missing = NumbersBetween(before, path); missing > 0) {
      seams.push_back("between " + before + " and " + path + " " + Counted(missing, "file") +
                      (missing == 1 ? " is" : " are") + " missing, by the names");
    }
    // A bad line was a record too.
    const bool is_full = frames[i - 1] + read.FaultsOfFiles()[i - 1] >= kRecordsOfFullFile;
    if (!is_full && frames[i] > 0) {
      seams.push_back(before + " has " + Counted(frames[i - 1], "record") +
                      " and is not full, but " + path + " goes on");
    }
  }
  if (seams.size() > kTold_MAX) {
    const std::size_t more = seams.size() - kTold_MAX;
    seams.resize(kTold_MAX);
    seams.push_back(Counted(more, "more place") + " like these");
  }
  return seams;
}

}  // namespace tolvane::logtool
