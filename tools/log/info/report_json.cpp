#include <algorithm>

#include "platform/utf8.h"
#include "tools/log/info/report.h"

namespace tolvane::logtool {

namespace {

/// The bytes of the character of UTF-8 at the front of `text`, which is not empty; 0 where there is
/// none. Neither halves of surrogate pairs nor characters in more bytes than they need are any.
std::size_t CharacterLength(std::string_view text) {
  const auto byte = [&](std::size_t i) {
    return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
  };
  const auto goes_on = [&](std::size_t i) { return (byte(i) & 0xC0U) == 0x80U; };
  const unsigned first = byte(0);
  const unsigned lead = first << 8 | byte(1);
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first < 0xE0) return goes_on(1) ? 2 : 0;
  if (first >= 0xE0 && first < 0xF0 && lead >= 0xE0A0 && (lead < 0xEDA0 || lead >= 0xEE00)) {
    return goes_on(1) && goes_on(2) ? 3 : 0;
  }
  const bool is_long = lead >= 0xF090 && lead < 0xF490;
  return is_long && goes_on(1) && goes_on(2) && goes_on(3) ? 4 : 0;
}

/// Paths of Linux are whatever bytes they are, and JSON is UTF-8 alone.
std::string AsUtf8(std::string_view bytes) {
  std::string text;
  while (!bytes.empty()) {
    const std::size_t length = CharacterLength(bytes);
    text += length > 0 ? bytes.substr(0, length) : "\xEF\xBF\xBD";  // U+FFFD
    bytes.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return text;
}

/// What text looks like between quotes.
std::string Quoted(std::string_view bytes) {
  std::string text = "\"";
  for (const char byte : AsUtf8(bytes)) {
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
      .Member("first_ms", NumberText(its.first.time))
      .Member("last_ms", NumberText(its.last.time))
      .Member("cycle_ms", CycleJson(its.cycles))
      .Member("lengths", LengthsJson(its.lengths))
      .Member("gaps", identifier.regular ? std::to_string(identifier.gaps) : "null")
      .Member("lost", identifier.regular ? NumberText(identifier.lost) : "null")
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
      .Member("end_ms", NumberText(gap.silence.end))
      .Member("silence_ms", NumberText(gap.silence.length))
      .Member("lost", gap.lost ? NumberText(*gap.lost) : "null")
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
      .Member("in_times", Word(!report.mends_clock))
      .Closed();
}

}  // namespace

std::string JsonOf(const RunReport& report, platform::CodePage& code_page) {
  const auto text = [&](const std::string& bytes) {
    return Quoted(ToUtf8(code_page.Decode(bytes)));
  };
  Json files('[');
  for (std::size_t i = 0; i < report.run.files.size(); ++i) {
    const LogFile& file = report.run.files[i];
    files.Item(Json('{')
                   .Member("path", Quoted(file.path))
                   .Member("written", text(file.head.written))
                   .Member("frames", std::to_string(report.frames_of_files[i]))
                   .Closed());
  }
  Json seams('[');
  for (const std::string& seam : report.seams) seams.Item(Quoted(seam));
  Json identifiers('[');
  for (const auto& identifier : report.judged.identifiers)
    identifiers.Item(IdentifierJson(identifier));
  Json gaps('[');
  for (const Gap& gap : report.judged.gaps) gaps.Item(GapJson(gap));
  const LogHead& head = report.run.Head();
  const RunStatistics& run = report.statistics;
  const bool is_judged = report.judged.is_judged;
  return Json('{')
      .Member("files", files.Closed())
      .Member("odd_seams", seams.Closed())
      .Member("is_whole_at_its_begin", Word(report.run.IsWholeAtItsBegin()))
      .Member("program", text(head.program))
      .Member("adapter", text(head.adapter))
      .Member("bit_rate", text(head.bit_rate))
      .Member("comment", text(head.comment))
      .Member("id_bits", head.with_mark ? "29" : "11")
      .Member("frames", std::to_string(run.Frames()))
      .Member("first_ms", NumberText(run.First().time))
      .Member("last_ms", NumberText(run.Last().time))
      .Member("span_ms", NumberText(run.First().To(run.Last())))
      .Member("steps_back", std::to_string(run.StepsBack()))
      .Member("bare_ids", std::to_string(report.mended.bare_ids))
      .Member("stray_zeros", std::to_string(report.mended.strays))
      .Member("clock_jump", ClockJson(report))
      .Member("gap_multiple", NumberText(report.multiple))
      .Member("identifiers", identifiers.Closed())
      .Member("gaps", is_judged ? gaps.Closed() : "null")
      .Member("gaps_left_out", is_judged ? std::to_string(report.judged.gaps_left_out) : "null")
      .Closed();
}

}  // namespace tolvane::logtool
