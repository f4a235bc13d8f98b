#include <algorithm>
#include <cmath>

#include "platform/utf8.h"
#include "tools/log/info/report.h"
#include "tools/log/runs/counted.h"

namespace tolvane::logtool {

namespace {

constexpr std::size_t kGaps_MAX = 50;  // lines; the longest silences are told
constexpr std::size_t kLabelWidth = 14;

std::string Padded(std::string text, std::size_t width) {
  return text.size() < width ? std::string(width - text.size(), ' ') + text : text;
}

/// Cycles and their like, to three places.
std::string MsText(double ms) { return NumberText(std::round(ms * 1000.0) / 1000.0); }

class Table {
 public:
  Table(const RunReport& report, platform::CodePage& code_page)
      : report_(report), code_page_(code_page) {}

  std::string Text(std::size_t number) {
    text_ = "run " + std::to_string(number) + "\n";
    AddHead();
    AddFrames();
    AddMended();
    if (report_.statistics.Frames() > 0) {
      AddIdentifiers();
      AddGaps();
    }
    return text_;
  }

 private:
  void Line(std::string label, const std::string& what) {
    label.resize(std::max(label.size(), kLabelWidth), ' ');
    text_.append("  ").append(label).append(what).append("\n");
  }
  [[nodiscard]] std::string Decoded(const std::string& bytes) {
    return ToUtf8(code_page_.Decode(bytes));
  }

  void AddHead() {
    const LogHead& head = report_.run.Head();
    const std::vector<LogFile>& files = report_.run.files;
    std::string names = std::to_string(files.size()) + ": " + files.front().path;
    if (files.size() > 1) names += " to " + files.back().path;
    Line("files", names);
    if (!report_.run.IsWholeAtItsBegin()) {
      Line("", "they begin at " + NumberText(report_.statistics.First().time) +
                   " ms: those ahead of them are missing");
    }
    for (const std::string& seam : report_.seams) Line("", seam);
    Line("program", Decoded(head.program));
    Line("adapter", Decoded(head.adapter));
    Line("bit rate", Decoded(head.bit_rate));
    Line("comment", Decoded(head.comment));
    Line("written", Decoded(head.written) +
                        (files.size() > 1 ? " to " + Decoded(files.back().head.written) : ""));
  }

  void AddFrames() {
    const RunStatistics& run = report_.statistics;
    Line("frames", std::to_string(run.Frames()));
    Line("identifiers", std::to_string(report_.judged.identifiers.size()) +
                            (report_.run.Head().with_mark ? ", 29-bit mode" : ", 11-bit mode"));
    if (run.Frames() == 0) return;
    Line("first, last",
         NumberText(run.First().time) + " ms, " + NumberText(run.Last().time) + " ms");
    Line("span", MsText(run.First().To(run.Last()) / 1000.0) + " s");
    if (run.StepsBack() > 0) {
      Line("steps back",
           Counted(run.StepsBack(), "frame") + " with a time before that of the one ahead");
    }
  }

  void AddMended() {
    const CsvLog::Mended& mended = report_.mended;
    if (mended.bare_ids > 0) {
      Line("oddities", Counted(mended.bare_ids, "identifier") + " without zeros");
    }
    if (mended.strays > 0) {
      Line("oddities",
           Counted(mended.strays, "stray zero") + " in " + Counted(mended.stray_blocks, "block"));
    }
    if (const auto& jump = report_.clock.TheJump()) {
      Line("clock jump", MsText(jump->jump) + " ms behind " + MsText(jump->at) + " ms, right to " +
                             MsText(jump->doubt) + " ms if the bus was not silent there");
      Line("", std::string("it is no silence: it counts in no cycle, gap or span, and ") +
                   (report_.mends_clock ? "is taken out of the times"
                                        : "the times have it (see --mend-clock)"));
      Line("", "a silence that ends just there looks the same");
    }
  }

  void AddIdentifiers() {
    text_ +=
        "\n  identifier     frames  median ms   least ms longest ms     gaps     lost  length\n";
    for (const JudgedIdentifier& identifier : report_.judged.identifiers) {
      const IdentifierStatistics& its = *identifier.statistics;
      const bool has_cycle = its.cycles.Count() > 0;
      const auto cycle = [&](double ms) { return Padded(has_cycle ? MsText(ms) : "-", 11); };
      std::string name = IdentifierText(its) + (its.extended ? " *" : "");
      name.resize(10, ' ');
      text_ += "  " + name + Padded(std::to_string(its.frames), 11) + cycle(its.cycles.Median()) +
               cycle(its.cycles.Least()) + cycle(its.cycles.Longest()) +
               Padded(identifier.regular ? std::to_string(identifier.gaps) : "-", 9) +
               Padded(identifier.regular ? NumberText(identifier.lost) : "-", 9) + "  " +
               LengthsText(its.lengths) + "\n";
    }
  }

  void AddGaps() {
    const std::vector<Gap>& gaps = report_.judged.gaps;
    text_ += "\n  silent longer than " + NumberText(report_.multiple) + " cycles: ";
    if (!report_.judged.is_judged) {
      text_ += "not judged: no identifier comes regularly\n";
      return;
    }
    if (gaps.empty()) {
      text_ += "none\n";
      return;
    }
    text_ += std::to_string(gaps.size() + report_.judged.gaps_left_out) + "\n";
    std::vector<Gap> shown = gaps;
    if (shown.size() > kGaps_MAX) {
      std::ranges::stable_sort(shown, std::ranges::greater(),
                               [](const Gap& gap) { return gap.silence.length; });
      shown.resize(kGaps_MAX);
      std::ranges::stable_sort(shown, {}, [](const Gap& gap) { return gap.silence.passed; });
    }
    text_ += "  identifier       from ms         to ms    silent ms         lost\n";
    for (const Gap& gap : shown) AddGap(gap);
    const std::uint64_t left_out = gaps.size() - shown.size() + report_.judged.gaps_left_out;
    if (left_out > 0) text_ += "  and " + std::to_string(left_out) + " more, none of them longer\n";
  }

  void AddGap(const Gap& gap) {
    constexpr std::string_view kEdges[] = {"", "  until its first frame", "  to the end"};
    std::string name = gap.identifier == nullptr ? "all" : IdentifierText(*gap.identifier);
    name.resize(10, ' ');
    text_ += "  " + name + Padded(MsText(gap.silence.begin), 14) +
             Padded(MsText(gap.silence.end), 14) + Padded(MsText(gap.silence.length), 13) + " " +
             Padded(gap.lost ? "about " + NumberText(*gap.lost) : "-", 12);
    text_ += kEdges[static_cast<std::size_t>(gap.edge)];
    text_ += "\n";
  }

  const RunReport& report_;
  platform::CodePage& code_page_;
  std::string text_;
};

}  // namespace

std::string TableOf(const RunReport& report, std::size_t number, platform::CodePage& code_page) {
  return Table(report, code_page).Text(number);
}

}  // namespace tolvane::logtool
