#include "platform/utf8.h"
#include "tools/log/info/report.h"

namespace tolvane::logtool {

namespace {

/// What UTF-8 text looks like between quotes.
std::string Quoted(std::string_view utf8) {
  std::string text = "\"";
  for (const char byte : utf8) {
    if (byte == '"' || byte == '\\') text += '\\';
    if (static_cast<unsigned char>(byte) < 0x20) {
      constexpr std::string_view kDigits = "0123456789abcdef";
      text.append("\\u00").append(1, kDigits[static_cast<unsigned char>(byte) >> 4]);
      text += kDigits[static_cast<unsigned char>(byte) & 0xF];
    } else {
      text += byte;
    }
  }
  return text + '"';
}

/// An object or array in the making.
class Json {
 public:
  explicit Json(char opening) : text_(1, opening) {}

  Json& Item(const std::string& value) {
    if (text_.size() > 1) text_ += ", ";
    text_ += value;
    return *this;
  }
  Json& Member(std::string_view name, const std::string& value) {
    return Item(Quoted(name) + ": " + value);
  }
  [[nodiscard]] std::string Closed() const { return text_ + (text_.front() == '{' ? '}' : ']'); }

 private:
  std::string text_;
};

std::string Word(bool value) { return value ? "true" : "false"; }

std::string LengthsJson(std::uint32_t lengths) {
  Json json('[');
  for (std::int32_t length = 0; length <= 15; ++length) {
    if ((lengths >> length & 1U) != 0) json.Item(std::to_string(length));
  }
  if ((lengths & IdentifierStatistics::kOtherLengths) != 0) json.Item("\"others\"");
  return json.Closed();
}

std::string CycleJson(const CycleStatistics& cycles) {
  if (cycles.Count() == 0) return "null";
  return Json('{')
      .Member("median", NumberText(cycles.Median()))
      .Member("least", NumberText(cycles.Least()))
      .Member("longest", NumberText(cycles.Longest()))
      .Closed();
}

std::string IdentifierJson(const JudgedIdentifier& identifier) {
  const IdentifierStatistics& its = *identifier.statistics;
  return Json('{')
      .Member("id", Quoted(IdentifierText(its)))
      .Member("extended", Word(its.extended))
      .Member("frames", std::to_string(its.frames))
      .Member("first_ms", NumberText(its.first))
      .Member("last_ms", NumberText(its.last))
      .Member("cycle_ms", CycleJson(its.cycles))
      .Member("lengths", LengthsJson(its.lengths))
      .Member("gaps", identifier.regular ? std::to_string(identifier.lost.gaps) : "null")
      .Member("lost", identifier.regular ? NumberText(identifier.lost.frames) : "null")
      .Closed();
}

std::string GapJson(const Gap& gap) {
  constexpr std::string_view kEdges[] = {"null", "\"begin\"", "\"end\""};
  Json json('{');
  if (gap.identifier == nullptr) {
    json.Member("id", "null");
  } else {
    json.Member("id", Quoted(IdentifierText(*gap.identifier)));
    json.Member("extended", Word(gap.identifier->extended));
  }
  return json.Member("begin_ms", NumberText(gap.silence.begin))
      .Member("end_ms", NumberText(gap.silence.End()))
      .Member("silence_ms", NumberText(gap.silence.length))
      .Member("lost", NumberText(gap.lost))
      .Member("edge_of_log", std::string(kEdges[static_cast<std::size_t>(gap.edge)]))
      .Closed();
}

std::string ClockJson(const RunReport& report) {
  const auto& jump = report.clock.TheJump();
  if (!jump) return "null";
  return Json('{')
      .Member("at_ms", NumberText(jump->at))
      .Member("jump_ms", NumberText(jump->jump))
      .Member("doubt_ms", NumberText(jump->doubt))
      .Member("taken_out", Word(report.mends_clock))
      .Closed();
}

}  // namespace

std::string JsonOf(const RunReport& report, platform::CodePage& code_page) {
  const auto text = [&](const std::string& bytes) {
    return Quoted(ToUtf8(code_page.Decode(bytes)));
  };
  Json files('[');
  for (const LogFile& file : report.run.files) {
    files.Item(Json('{')
                   .Member("path", Quoted(file.path))
                   .Member("written", text(file.head.written))
                   .Closed());
  }
  Json identifiers('[');
  for (const auto& identifier : report.judged.identifiers)
    identifiers.Item(IdentifierJson(identifier));
  Json gaps('[');
  for (const Gap& gap : report.judged.gaps) gaps.Item(GapJson(gap));
  const LogHead& head = report.run.Head();
  const RunStatistics& run = report.statistics;
  return Json('{')
      .Member("files", files.Closed())
      .Member("is_whole_at_its_begin", Word(report.run.IsWholeAtItsBegin()))
      .Member("program", text(head.program))
      .Member("adapter", text(head.adapter))
      .Member("bit_rate", text(head.bit_rate))
      .Member("comment", text(head.comment))
      .Member("id_bits", head.with_mark ? "29" : "11")
      .Member("frames", std::to_string(run.Frames()))
      .Member("first_ms", NumberText(run.First()))
      .Member("last_ms", NumberText(run.Last()))
      .Member("span_ms", NumberText(run.Last() - run.First()))
      .Member("steps_back", std::to_string(run.StepsBack()))
      .Member("bare_ids", std::to_string(report.mended.bare_ids))
      .Member("stray_zeros", std::to_string(report.mended.strays))
      .Member("clock_jump", ClockJson(report))
      .Member("gap_multiple", NumberText(report.multiple))
      .Member("identifiers", identifiers.Closed())
      .Member("gaps", gaps.Closed())
      .Member("gaps_left_out", std::to_string(report.judged.gaps_left_out))
      .Closed();
}

}  // namespace tolvane::logtool
