#include "tools/log/command/command.h"

#include <memory>
#include <utility>

#include "platform/utf8.h"
#include "tolvane_product.h"
#include "tools/log/command/options.h"
#include "tools/log/info/report.h"
#include "tools/log/runs/counted.h"
#include "tools/log/runs/log_order.h"
#include "tools/log/runs/seams.h"

namespace tolvane::logtool {

namespace {

constexpr int kGood = 0;
constexpr int kFailed = 1;
constexpr int kMisunderstood = 2;

class Command {
 public:
  Command(const Options& options, const Outside& outside)
      : options_(options), outside_(outside), complaints_(outside.messages, options.keep) {}

  int Run() {
    const std::vector<LogRun> runs =
        FindRuns(InOrderOfWriting(options_.files), outside_.files, complaints_);
    if (!complaints_.EndReading()) {
      if (options_.verb == Verb::kInfo) {
        TellInfo(runs);
      } else {
        ConvertOne(runs);
      }
    }
    complaints_.Conclude();
    return complaints_.Count() > 0 || failed_ ? kFailed : kGood;
  }

 private:
  void Say(const std::string& text) {
    static_cast<void>(outside_.messages.Write("tolvane-log: " + text + "\n"));
  }
  void Fail(const std::string& text) {
    Say(text);
    failed_ = true;
  }

  void TellInfo(const std::vector<LogRun>& runs) {
    const std::string text =
        InfoOf(runs, options_.info, outside_.files, outside_.code_page, complaints_);
    if (complaints_.EndReading()) return;
    if (!outside_.output.Write(text)) Fail("the output cannot be written");
  }

  void ConvertOne(const std::vector<LogRun>& runs) {
    if (runs.size() > 1) {
      std::string text = "these files are of " + std::to_string(runs.size()) +
                         " runs; name those of one. They begin with:";
      for (const LogRun& run : runs) text += " " + run.files.front().path;
      return Fail(text);
    }
    if (runs.empty()) return;  // each file was complained of
    std::unique_ptr<ByteSink> file;
    if (!options_.out.empty()) {
      auto made = outside_.files.Create(options_.out);
      if (made.bytes == nullptr) return Fail(options_.out + ": " + made.why_not);
      file = std::move(made.bytes);
    }
    const bool is_whole = ConvertTo(runs.front(), file != nullptr ? *file : outside_.output);
    file.reset();
    if (!is_whole && !options_.out.empty()) outside_.files.Remove(options_.out);
  }

  /// False when what was written is to be thrown away.
  [[nodiscard]] bool ConvertTo(const LogRun& run, ByteSink& out) {
    const auto anchor = AnchorOf(run, outside_.files, options_.mends_clock, outside_.unix_seconds);
    RunReader reader(run, outside_.files, complaints_, options_.mends_clock);
    const Converted result = Convert(reader, *options_.format, anchor, out);
    if (!result.is_written) Fail("the output cannot be written");
    if (complaints_.EndReading() || failed_) return false;
    TellWhatBecame(run, reader, result, anchor.has_value());
    if (!anchor) {
      Say("no absolute time, as the head's date is no day of a calendar with the year in front: " +
          ToUtf8(outside_.code_page.Decode(run.files[run.FirstWithRecord()].head.written)));
    }
    return true;
  }

  void TellWhatBecame(const LogRun& run, const RunReader& reader, const Converted& result,
                      bool has_dates) {
    Say(Counted(result.frames, "frame") + " of " + Counted(run.files.size(), "file") + ", from " +
        run.files.front().path + " to " + run.files.back().path);
    if (!run.IsWholeAtItsBegin()) {
      Say("they begin at " + NumberText(*run.Begins()) + " ms: those ahead of them are missing");
    }
    const std::size_t dated = run.FirstWithRecord();
    if (has_dates && result.frames > 0 && !reader.IsFull(dated)) {
      Say(run.files[dated].path +
          (run.HasRecordBehind(dated)
               ? " is not full, though others go on, so its date may be later than its last "
                 "record: absolute times may be late by that"
               : " is not full, so its date is that of the disconnect: absolute times are late by "
                 "the silence ahead of that"));
    }
    for (const std::string& seam : OddSeams(run, reader)) Say(seam);
    if (result.steps_back > 0) {
      Say("with a time before that of the frame ahead: " + Counted(result.steps_back, "frame"));
    }
    const CsvLog::Mended& mended = reader.WhatWasMended();
    if (mended.bare_ids > 0) {
      Say("mended: " + Counted(mended.bare_ids, "identifier") + " without zeros");
    }
    if (mended.strays > 0) {
      Say("mended: " + Counted(mended.strays, "stray zero") + " in " +
          Counted(mended.stray_blocks, "block") + " left out");
    }
    TellClock(run, reader);
    if (result.long_lengths > 0) {
      Say("with a length above 8, and eight bytes: " + Counted(result.long_lengths, "frame"));
    }
    if (result.negative_times > 0) {
      Say("with a negative time, written as 0: " + Counted(result.negative_times, "frame"));
    }
  }

  void TellClock(const LogRun& run, const RunReader& reader) {
    // Dates are counted back from the end of the first file with a record.
    const std::size_t dated = run.FirstWithRecord();
    const auto& turn = reader.Stamps().TheTurn();
    if (turn && !options_.mends_clock) {
      Say(reader.FileOfTurn() == dated
              ? "absolute times ahead of the step back are too late by its length"
              : "absolute times behind the step back are too early by its length");
    }
    const auto& jump = reader.Clock().TheJump();
    if (jump) {
      Say(std::string(options_.mends_clock ? "mended: " : "not mended, see --mend-clock: ") +
          "the clock jump of " + NumberText(jump->jump) + " ms behind " + NumberText(jump->at) +
          " ms, right to " + NumberText(jump->doubt) +
          " ms if the bus was not silent there (a silence that ends just there looks the same)");
      const bool is_in_dated = run.files[dated].ends.value_or(0.0) > jump->at;
      if (!options_.mends_clock) {
        Say(is_in_dated ? "absolute times ahead of the jump are too early by its length"
                        : "absolute times behind the jump are too late by its length");
      }
    } else if (options_.mends_clock && !turn) {
      Say("no clock jump to mend");
    }
  }

  const Options& options_;
  const Outside& outside_;
  Complaints complaints_;
  bool failed_ = false;
};

}  // namespace

int RunCommand(const std::vector<std::string>& words, const Outside& outside) {
  const ReadOptions read = OptionsOf(words);
  if (!read.options) {
    static_cast<void>(
        outside.messages.Write("tolvane-log: " + read.refusal + " (tolvane-log --help)\n"));
    return kMisunderstood;
  }
  const auto tell = [&](std::string_view text) {
    return outside.output.Write(text) ? kGood : kFailed;
  };
  switch (read.options->verb) {
    case Verb::kHelp:
      return tell(HelpText());
    case Verb::kVersion:
      return tell("tolvane-log " + ToUtf8(product::kVersionText) + "\n");
    case Verb::kInfo:
    case Verb::kConvert:
      return Command(*read.options, outside).Run();
  }
  return kMisunderstood;
}

}  // namespace tolvane::logtool
