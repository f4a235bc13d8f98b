#include "simulator/report.h"

#include <utility>

#include "simulator/values.h"

namespace tolvane::simulator {
namespace {

std::string Milliseconds(std::int64_t us) {
  std::string thousandths = std::to_string(us % 1000);
  thousandths.insert(0, 3 - thousandths.size(), '0');
  return std::to_string(us / 1000) + '.' + thousandths;
}

}  // namespace

CallLine& CallLine::Text(std::string_view text) {
  Add('"' + EscapeText(text) + '"');
  return *this;
}

CallLine& CallLine::Number(std::int64_t number) {
  Add(std::to_string(number));
  return *this;
}

std::string CallLine::Gives(std::int32_t result) {
  return std::move(line_) + ") = " + std::to_string(result);
}

std::string CallLine::Gives(std::int32_t result, std::string_view output) {
  return Gives(result) + " \"" + EscapeText(output) + '"';
}

void CallLine::Add(std::string_view argument) {
  if (!first_) line_ += ", ";
  first_ = false;
  line_ += argument;
}

Report::Report(std::unique_ptr<std::ostream> out, std::string_view library)
    : out_(std::move(out)), library_(library) {
  Line("load");
}

Report::~Report() { Line("unload"); }

void Report::Line(std::string_view line) {
  last_fault_.clear();
  Write(line);
}

void Report::Write(std::string_view line) {
  if (out_ == nullptr) return;
  *out_ << library_ << ' ' << line << '\n';
  out_->flush();
}

void Report::Fault(std::string_view what) {
  if (last_fault_ == what) return;
  Line("fault: " + std::string(what));
  last_fault_ = what;
}

void Report::End(std::string_view adapter, std::int64_t delivered) {
  Write("end " + EscapeText(adapter) + " delivered=" + std::to_string(delivered));
}

void Report::Run(std::string_view adapter, const TapCounts& counts) {
  const std::string name = EscapeText(adapter);
  Line("run " + name + " reads=" + std::to_string(counts.reads) + " delivered=" +
       std::to_string(counts.delivered) + " dropped=" + std::to_string(counts.dropped) +
       " longest_gap_ms=" + Milliseconds(counts.longest_gap_us) +
       " queue_high_water=" + std::to_string(counts.high_water));
  Gaps(name, "frame", counts.gaps_behind_frame);
  Gaps(name, "empty", counts.gaps_behind_empty_read);
}

void Report::Gaps(std::string_view adapter, std::string_view behind,
                  const std::vector<ReadGap>& gaps) {
  for (const ReadGap& gap : gaps) {
    Line("gap " + std::string(adapter) + " behind=" + std::string(behind) +
         " ms=" + Milliseconds(gap.us) + " delivered=" + std::to_string(gap.delivered) +
         " at_ms=" + Milliseconds(gap.at_us));
  }
}

}  // namespace tolvane::simulator
