#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>
#include <vector>

#include "tools/log/info/gaps.h"

namespace tolvane::logtool {

/// Statistics of frames that come every so many ms.
class GapsBed : public ::testing::Test {
 public:
  struct Message {
    std::uint32_t id;
    double cycle;
  };
  /// A message that comes from one moment to another, both included.
  struct Spell {
    std::uint32_t id;
    double begin;
    double end;
    double cycle = 10.0;
  };

 protected:
  /// From 0 to `end`, in the order of time; not where `is_cut` says so.
  template <typename IsCut>
  JudgedRun Judged(const std::vector<Message>& messages, double end, IsCut is_cut) {
    std::vector<LogFrame> frames;
    for (const Message& message : messages) {
      for (double time = 0.0; time <= end; time += message.cycle) {
        if (!is_cut(message.id, time))
          frames.push_back({.time = time,
                            .id = message.id,
                            .extended = false,
                            .bytes = 0,
                            .length = 0,
                            .data = {}});
      }
    }
    std::ranges::stable_sort(frames, {}, &LogFrame::time);
    for (const LogFrame& frame : frames) Add(frame, 0.0);
    return Judged();
  }
  /// One spell behind the other, in the order of time.
  JudgedRun Judged(const std::vector<Spell>& spells) {
    std::vector<std::pair<double, std::uint32_t>> frames;
    for (const Spell& spell : spells) {
      for (double time = spell.begin; time <= spell.end; time += spell.cycle)
        frames.emplace_back(time, spell.id);
    }
    std::ranges::stable_sort(frames, {}, &std::pair<double, std::uint32_t>::first);
    for (const auto& [time, id] : frames) Add(id, time);
    return Judged();
  }
  void Add(std::uint32_t id, double time) {
    Add({.time = time, .id = id, .extended = false, .bytes = 0, .length = 0, .data = {}}, 0.0);
  }
  void Add(const LogFrame& frame, double ahead) {
    run.Add(frame, ahead);
    added.emplace_back(frame, ahead);
  }
  JudgedRun Judged() {
    GapFinder finder(run, multiple);
    for (const auto& [frame, ahead] : added) finder.Add(frame, ahead);
    return finder.Result();
  }

  RunStatistics run;
  double multiple = 5.0;
  std::vector<std::pair<LogFrame, double>> added;
};

/// Gaps of one identifier, those of all left out.
inline std::vector<Gap> Own(const JudgedRun& judged, std::uint32_t id) {
  std::vector<Gap> own;
  std::ranges::copy_if(judged.gaps, std::back_inserter(own), [&](const Gap& gap) {
    return gap.identifier != nullptr && gap.identifier->id == id;
  });
  return own;
}

inline std::vector<Gap> Common(const JudgedRun& judged) {
  std::vector<Gap> common;
  std::ranges::copy_if(judged.gaps, std::back_inserter(common),
                       [](const Gap& gap) { return gap.identifier == nullptr; });
  return common;
}

/// Begin and end of each.
inline std::vector<std::pair<double, double>> Ends(const std::vector<Gap>& gaps) {
  std::vector<std::pair<double, double>> ends;
  for (const Gap& gap : gaps) ends.emplace_back(gap.silence.begin, gap.silence.end);
  return ends;
}

}  // namespace tolvane::logtool
