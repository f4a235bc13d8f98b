// The tables that hold tolvane-log and the scripts' reader of logs together.
#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>

#include "tests/logging/log_test.h"
#include "tests/tools/log/memory_files.h"
#include "tools/log/reading/csv_log.h"
#include "tools/log/runs/clock_jump.h"
#include "tools/log/runs/log_order.h"
#include "tools/log/runs/log_run.h"
#include "tools/log/runs/stamp_turn.h"

namespace tolvane::logtool {
namespace {

struct RecordRow {
  const char* label;
  int bits;
  const char* line;
  const char* record;
};

constexpr RecordRow kRecords[] = {
#include "tests/tools/log/log_records.inc"
};

std::string RecordText(const LogFrame& frame) {
  std::ostringstream text;
  text << std::setprecision(15) << frame.time << std::hex << std::uppercase << ' ' << frame.id
       << (frame.extended ? " extended " : " standard ") << std::dec << frame.length << ' '
       << std::hex << std::setfill('0');
  for (std::size_t i = 0; i < frame.bytes; ++i) text << std::setw(2) << int{frame.data[i]};
  return text.str();
}

TEST(SharedTables, EachLineIsTheStatedRecordOrNone) {
  for (const RecordRow& row : kRecords) {
    TextSource bytes(kHead + (row.bits == 29 ? kColumns29 : kColumns11) + row.line + "\r\n");
    CsvLog log(bytes);
    ASSERT_TRUE(log.ReadHead());
    LogFrame frame;
    std::string found = "passed over";
    const CsvLog::Outcome outcome = log.Next(frame);
    if (outcome == CsvLog::Outcome::kFrame) found = RecordText(frame);
    if (outcome == CsvLog::Outcome::kFault) found = "no record";
    EXPECT_EQ(found, row.record) << row.label;
  }
}

struct HeadRow {
  const char* label;
  const char* head;
  const char* told;
};

constexpr HeadRow kHeads[] = {
#include "tests/tools/log/log_heads.inc"
};

TEST(SharedTables, EachHeadTellsWhatIsStated) {
  for (const HeadRow& row : kHeads) {
    TextSource bytes(row.head);
    LineSource lines(bytes);
    LogHead head;
    std::string found;
    if (ReadLogHead(lines, head) == HeadOutcome::kHead) {
      found = head.program + "|" + head.bit_rate + "|" + head.adapter + "|" + head.comment + "|" +
              (head.with_mark ? "29" : "11") + "|" + std::to_string(head.lines);
    }
    EXPECT_EQ(found, row.told) << row.label;
  }
}

struct RunsRow {
  const char* label;
  const char* files;
  const char* runs;
};

constexpr RunsRow kRuns[] = {
#include "tests/tools/log/log_runs.inc"
};

/// Each as it is written.
std::vector<std::string> Times(const std::string& times) {
  std::vector<std::string> found;
  std::istringstream parts(times);
  for (std::string part; std::getline(parts, part, ',');) {
    if (const std::size_t dots = part.find(".."); dots != std::string::npos) {
      const long last = std::stol(part.substr(dots + 2));
      for (long time = std::stol(part); time <= last; ++time) found.push_back(std::to_string(time));
    } else {
      const std::size_t star = part.find('*');
      const std::size_t count = star == std::string::npos ? 1 : std::stoul(part.substr(star + 1));
      found.insert(found.end(), count, part.substr(0, star));
    }
  }
  return found;
}

std::string Records(const std::string& times) {
  std::ostringstream text;
  for (const std::string& time : Times(times)) {
    const bool is_record = time != "_" && time != "x";
    if (is_record) text << std::setw(10) << time << " , 123 , 0\r\n";
    if (!is_record) text << (time == "x" ? "x\r\n" : "\r\n");
  }
  return text.str();
}

TEST(SharedTables, FilesAreTheStatedRuns) {
  for (const RunsRow& row : kRuns) {
    MemoryFiles files;
    std::vector<std::string> paths;
    std::istringstream given(row.files);
    for (std::string file; given >> file;) {
      const std::size_t colon = file.find(':');
      std::string name = file.substr(0, colon);
      std::string head = kHead;
      if (name.ends_with('!')) {
        name.pop_back();
        head.replace(head.find("500k"), 4, "250k");
      }
      paths.push_back(name);
      files.texts[name] = head + kColumns11 + Records(file.substr(colon + 1));
    }
    std::string said;
    TextSink sink(said);
    Complaints complaints(sink, false);
    std::string found;
    for (const LogRun& run : FindRuns(paths, files, complaints)) {
      if (!found.empty()) found += '|';
      for (std::size_t i = 0; i < run.files.size(); ++i) {
        if (i > 0) found += ' ';
        found += run.files[i].path;
      }
    }
    EXPECT_EQ(found, row.runs) << row.label;
    EXPECT_EQ(said, "");
  }
}

struct NameRow {
  const char* label;
  const char* name;
  const char* told;
};

constexpr NameRow kNames[] = {
#include "tests/tools/log/log_names.inc"
};

TEST(SharedTables, NamesTellTheStatedHourAndNumber) {
  for (const NameRow& row : kNames) {
    std::ostringstream found;
    if (const auto place = PlaceOf(row.name)) {
      found << std::setfill('0') << std::setw(8) << place->date_hour << ' ' << place->number;
    } else {
      found << "none";
    }
    EXPECT_EQ(found.str(), row.told) << row.label;
  }
}

struct JumpRow {
  const char* label;
  const char* times;
  double wrap;
  const char* jump;
};

constexpr JumpRow kJumps[] = {
#include "tests/tools/log/log_jumps.inc"
};

TEST(SharedTables, TimesTellTheStatedJumpOfTheClock) {
  for (const JumpRow& row : kJumps) {
    ClockJump clock(row.wrap);
    for (const std::string& time : Times(row.times)) clock.Follow(std::stod(time));
    std::ostringstream found;
    if (const auto& jump = clock.TheJump()) {
      found << jump->at << ' ' << jump->jump << ' ' << jump->doubt;
    } else {
      found << "none";
    }
    EXPECT_EQ(found.str(), row.jump) << row.label;
  }
}

struct TurnRow {
  const char* label;
  const char* times;
  const char* told;
};

constexpr TurnRow kTurns[] = {
#include "tests/tools/log/log_turns.inc"
};

TEST(SharedTables, TimesTellTheStatedStepsOfABoard) {
  for (const TurnRow& row : kTurns) {
    StampTurn stamps(true);
    int behind = 0;
    for (const std::string& time : Times(row.times)) behind += stamps.Follow(std::stod(time));
    std::ostringstream found;
    found << std::setprecision(15);
    if (const auto& turn = stamps.TheTurn()) {
      found << turn->at << ' ' << turn->steps << ' ' << turn->jump << ' ' << turn->doubt << ' '
            << stamps.Ahead();
    } else {
      found << "none";
    }
    EXPECT_EQ(found.str(), row.told) << row.label;
    EXPECT_EQ(behind, stamps.TheTurn() ? 1 : 0) << row.label;
  }
}

}  // namespace
}  // namespace tolvane::logtool
