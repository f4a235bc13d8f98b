#include "tools/log/runs/seams.h"

#include "tools/log/runs/counted.h"
#include "tools/log/runs/log_order.h"

namespace tolvane::logtool {

namespace {

constexpr std::size_t kTold_MAX = 10;

void TellMissing(const std::string& before, const std::string& path,
                 std::vector<std::string>& seams) {
  const std::uint32_t missing = NumbersBetween(before, path);
  if (missing == 0) return;
  seams.push_back("between " + before + " and " + path + " " + Counted(missing, "file") +
                  (missing == 1 ? " is" : " are") + " missing, by the names");
}

}  // namespace

std::vector<std::string> OddSeams(const LogRun& run, const RunReader& read) {
  const std::vector<std::uint64_t>& frames = read.FramesOfFiles();
  std::vector<std::string> seams;
  TellMissing(run.before, run.files.front().path, seams);
  for (std::size_t i = 1; i < run.files.size(); ++i) {
    const std::string& before = run.files[i - 1].path;
    const std::string& path = run.files[i].path;
    TellMissing(before, path, seams);
    if (!read.IsFull(i - 1) && frames[i] > 0) {
      seams.push_back(before + " has " + Counted(frames[i - 1], "record") +
                      " and is not full, but " + path + " goes on");
    }
  }
  if (seams.size() > kTold_MAX) {
    const std::size_t more = seams.size() - kTold_MAX;
    seams.resize(kTold_MAX);
    seams.push_back(Counted(more, "more place") + " like these");
  }
  // The program writes one more at each disconnect, if need be without records.
  if (read.IsFull(run.files.size() - 1)) {
    seams.push_back(run.files.back().path +
                    " is full, but no file goes on: the end of the run is missing, or was not "
                    "written");
  }
  if (const auto& turn = read.Stamps().TheTurn()) {
    seams.push_back(TextOf(*turn, read.MendsClock()));
  }
  return seams;
}

}  // namespace tolvane::logtool
