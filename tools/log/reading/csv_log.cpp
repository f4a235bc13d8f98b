#include "tools/log/reading/csv_log.h"

namespace tolvane::logtool {

CsvLog::Mended& CsvLog::Mended::operator+=(const Mended& other) {
  bare_ids += other.bare_ids;
  stray_blocks += other.stray_blocks;
  strays += other.strays;
  return *this;
}

bool CsvLog::ReadHead() {
  switch (ReadLogHead(lines_, head_)) {
    case HeadOutcome::kHead:
      line_ = head_.lines;
      return true;
    case HeadOutcome::kNoLog:
      line_ = 1;
      fault_ = "this is no csv log of Tolvane: the line of its columns does not come";
      return false;
    case HeadOutcome::kUnreadable:
      line_ = 0;
      fault_ = "the file cannot be read";
      return false;
  }
  return false;
}

CsvLog::Outcome CsvLog::Next(LogFrame& frame) {
  for (;;) {
    std::string_view line;
    const LineSource::Outcome outcome = lines_.Next(line);
    if (outcome != LineSource::Outcome::kLine) return EndOf(outcome);
    ++line_;
    if (line.empty()) continue;  // left behind by who cut out lines
    LineTraits traits;
    const LineFault fault = ReadRecordLine(line, head_.with_mark, frame, traits);
    if (fault == LineFault::kNone) {
      if (traits.strays > 0 || traits.has_bare_id) NoteTraits(traits);
      return Outcome::kFrame;
    }
    if (!IsBlockAlone(line)) return Fail(FaultText(fault));
    NoteTraits({.strays = line.size()});
  }
}

CsvLog::Outcome CsvLog::EndOf(LineSource::Outcome outcome) {
  if (outcome == LineSource::Outcome::kEnd) return Outcome::kEnd;
  ++line_;
  if (outcome == LineSource::Outcome::kTooLong) return Fail("no line of a log is as long as this");
  is_broken_ = true;
  return Fail("the file cannot be read on from here");
}

CsvLog::Outcome CsvLog::Fail(std::string_view fault) {
  fault_ = fault;
  return Outcome::kFault;
}

bool CsvLog::IsBlockAlone(std::string_view line) const {
  return head_.with_mark && line.find_first_not_of('0') == std::string_view::npos;
}

void CsvLog::NoteTraits(const LineTraits& traits) {
  mended_.bare_ids += traits.has_bare_id ? 1 : 0;
  mended_.stray_blocks += traits.strays > 0 ? 1 : 0;
  mended_.strays += traits.strays;
}

}  // namespace tolvane::logtool
