// Logs of any bytes: tolvane-log comes to an end with a status, what it reads are frames that a bus
// has, whatever the pieces are in which the bytes come, and such a frame is read again from the
// line that the writer writes of it. The gaps that are told of any frames are those that are there.
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "logging/csv_line.h"
#include "logging/log_record.h"
#include "platform/memory/system/code_page_932.h"
#include "tests/fuzz/fuzz_entry.h"
#include "tests/fuzz/input.h"
#include "tests/fuzz/judged_gaps.h"
#include "tests/tools/log/memory_files.h"
#include "tools/log/command/command.h"
#include "tools/log/reading/csv_log.h"

namespace {

using namespace tolvane;
using namespace tolvane::fuzz;
using namespace tolvane::logtool;

constexpr std::string_view kHead =
    "T,,,C,,,,H\r\n\r\n2026/11/20 9:05:07,,,bit rate?,500k bps\r\nCANUSB \r\n\r\n\r\n\r\n";
constexpr std::string_view kColumns[] = {"[ms] , ID  ,DLC,  D1,D2,D3,D4,D5,D6,D7,D8\r\n",
                                         "[ms] , E ,    ID    ,DLC,  D1,D2,D3,D4,D5,D6,D7,D8\r\n"};

/// What one reading found: frames, and places of faults.
std::string Trace(const std::string& text, std::size_t piece, std::vector<LogFrame>& frames) {
  TextSource bytes(text, piece);
  CsvLog log(bytes);
  if (!log.ReadHead()) return "no log";
  std::string trace;
  for (;;) {
    LogFrame frame{};
    const CsvLog::Outcome outcome = log.Next(frame);
    trace += std::to_string(log.Line());
    if (outcome == CsvLog::Outcome::kEnd) return trace;
    trace += outcome == CsvLog::Outcome::kFrame ? " " : "!" + std::string(log.Fault());
    if (outcome == CsvLog::Outcome::kFrame) frames.push_back(frame);
  }
}

void JudgeFrame(const LogFrame& frame) {
  Require(frame.time >= -kTime_MAX && frame.time <= kTime_MAX);
  Require(frame.id <= (frame.extended ? kExtendedId_MAX : kStandardId_MAX));
  Require(frame.bytes <= 8);
  std::array<char, kCsvLine_MAX> line;
  const std::size_t length =
      WriteCsvLine({frame.time, frame.length, frame.data}, CsvMark29(frame.extended ? 1 : 0),
                   LogID29Text<char>(static_cast<std::int32_t>(frame.id)), line.data());
  const std::string_view written(line.data(), length - 2);
  LogFrame again{};
  LineTraits traits;
  Require(ReadRecordLine(written, true, again, traits) == LineFault::kNone);
  Require(again.id == frame.id && again.extended == frame.extended);
  Require(again.length == frame.length && again.bytes == frame.bytes);
  for (std::size_t i = 0; i < frame.bytes; ++i) Require(again.data[i] == frame.data[i]);
}

void JudgeCommand(const MemoryFiles& given, const std::vector<std::string>& options) {
  // Kept open, since opening the C library's converters takes longer than an input.
  static platform::memory::CodePage932 code_page;
  MemoryFiles files = given;
  std::string output;
  std::string messages;
  TextSink output_sink(output);
  TextSink message_sink(messages);
  std::vector<std::string> words = options;
  for (const auto& [path, text] : given.texts) words.push_back(path);
  const int status = RunCommand(words, {.files = files,
                                        .output = output_sink,
                                        .messages = message_sink,
                                        .code_page = code_page,
                                        .unix_seconds = [](const platform::LocalTime& time) {
                                          return std::optional<std::int64_t>(time.second);
                                        }});
  Require(status == 0 || status == 1);
  Require(status == 0 || !messages.empty());
  Require(files.texts == given.texts);
}

/// A frame of each byte: of four identifiers, none or up to 63 ms behind the one ahead. Seen so,
/// few bytes are messages that come at their times, and stop.
std::vector<LogFrame> FramesOf(const std::string& bytes) {
  std::vector<LogFrame> frames;
  double time = 0.0;
  for (const char byte : bytes) {
    const auto number = static_cast<std::uint8_t>(byte);
    time += number >> 2;
    frames.push_back(
        {.time = time, .id = number & 3U, .extended = false, .bytes = 0, .length = 0, .data = {}});
  }
  return frames;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  const std::uint8_t choice = input.Byte();
  const std::size_t piece = 1U + input.Byte();
  const std::string rest = input.Bytes(size);
  MemoryFiles files;
  const std::size_t cut = rest.find('\f');
  std::string head;
  if (choice % 4 < 2) head = std::string(kHead) + std::string(kColumns[choice % 4]);
  files.texts["KL26112009-001.csv"] = head + rest.substr(0, cut);
  if (cut != std::string::npos) files.texts["KL26112009-002.csv"] = head + rest.substr(cut + 1);

  for (const auto& [path, text] : files.texts) {
    std::vector<LogFrame> whole;
    std::vector<LogFrame> pieces;
    Require(Trace(text, text.size() + 1, whole) == Trace(text, piece, pieces));
    Require(whole.size() == pieces.size());
    for (const LogFrame& frame : whole) JudgeFrame(frame);
    JudgeGaps(whole, 1.0);
  }
  const std::vector<LogFrame> regular = FramesOf(rest);
  JudgeGaps(regular, 1.0 + choice % 8);
  JudgeJumps(regular, piece, 1.0 + choice % 8);
  for (const char* const format : {"candump", "asc", "csv"}) {
    JudgeCommand(files, {"convert", "--keep", "--mend-clock", "--to", format});
  }
  JudgeCommand(files, {"info", "--keep", "--gap", "1"});
  JudgeCommand(files, {"info", "--json"});
  return 0;
}
