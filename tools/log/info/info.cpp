#include "tools/log/info/info.h"

#include "tools/log/info/gaps.h"
#include "tools/log/info/report.h"
#include "tools/log/runs/run_reader.h"
#include "tools/log/runs/seams.h"

namespace tolvane::logtool {

namespace {

JudgedRun JudgedAnew(const LogRun& run, const RunStatistics& statistics, const InfoWishes& wishes,
                     LogFiles& files) {
  NoSink nobody;  // the faults were told at the first reading
  Complaints complaints(nobody, true);
  RunReader reader(run, files, complaints, wishes.mends_clock);
  GapFinder gaps(statistics, wishes.multiple);
  for (LogFrame frame; reader.Next(frame);) gaps.Add(frame, reader.Ahead());
  return gaps.Result();
}

}  // namespace

std::string InfoOf(const std::vector<LogRun>& runs, const InfoWishes& wishes, LogFiles& files,
                   platform::CodePage& code_page, Complaints& complaints) {
  std::string text = wishes.as_json ? "{\"runs\": [" : "";
  for (std::size_t i = 0; i < runs.size() && !complaints.EndReading(); ++i) {
    RunReader reader(runs[i], files, complaints, wishes.mends_clock);
    RunStatistics statistics;
    for (LogFrame frame; reader.Next(frame);) statistics.Add(frame, reader.Ahead());
    if (complaints.EndReading()) return {};
    const JudgedRun judged = JudgedAnew(runs[i], statistics, wishes, files);
    const RunReport report{.run = runs[i],
                           .statistics = statistics,
                           .judged = judged,
                           .frames_of_files = reader.FramesOfFiles(),
                           .seams = OddSeams(runs[i], reader),
                           .mended = reader.WhatWasMended(),
                           .clock = reader.Clock(),
                           .mends_clock = wishes.mends_clock,
                           .multiple = wishes.multiple};
    if (i > 0) text += wishes.as_json ? ",\n" : "\n";
    text += wishes.as_json ? JsonOf(report, code_page) : TableOf(report, i + 1, code_page);
  }
  if (wishes.as_json) {
    text += "], \"faults\": " + std::to_string(complaints.Count()) + "}\n";
  }
  return text;
}

}  // namespace tolvane::logtool
