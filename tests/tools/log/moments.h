#pragma once

#include <vector>

namespace tolvane::logtool {

/// Of frames that come every so many ms: from 0 to `end`, which is not one of them.
inline std::vector<double> MomentsEvery(double cycle, double end) {
  std::vector<double> moments;
  for (double moment = 0.0; moment < end; moment += cycle) moments.push_back(moment);
  return moments;
}

}  // namespace tolvane::logtool
