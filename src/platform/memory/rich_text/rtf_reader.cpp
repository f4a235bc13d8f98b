#include "platform/memory/rich_text/rtf_reader.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/byte_text.h"
#include "view/page_rtf.h"

namespace tolvane::platform::memory {

namespace {

// document = head, { colour }, "}", [ switches ], start, { switches | text }, end
// colour   = "\red" number "\green" number "\blue" number ";"
// switches = [ "\cf" number ] [ "\highlight" number ] " "

/// What every document of the writer's has in common: that of an empty page, without the brace that
/// closes the colour table. The switch ahead of the start is RtfInBlack's.
struct Frame {
  String head;
  String start;
  String end;
};

const Frame& WritersFrame() {
  static const Frame frame = [] {
    constexpr StringView kTableStart = u"{\\colortbl ;";
    constexpr StringView kEnd = u"\\par\r\n}\r\n";
    std::string rtf;
    WritePageRtf({}, rtf);
    const String whole = WideText(rtf);
    const std::size_t brace = whole.find(kTableStart) + kTableStart.size();
    const std::size_t end = whole.size() - kEnd.size();
    return Frame{whole.substr(0, brace), whole.substr(brace + 1, end - brace - 1),
                 whole.substr(end)};
  }();
  return frame;
}

class Reader {
 public:
  explicit Reader(StringView rtf) : rest_(rtf) {}

  std::optional<RichTextPage> Read() {
    const Frame& frame = WritersFrame();
    if (!Take(frame.head) || !ReadColourTable()) return {};
    if (!rest_.starts_with(frame.start) && !ReadSwitches()) return {};
    if (!Take(frame.start) || !rest_.ends_with(frame.end)) return {};
    rest_.remove_suffix(frame.end.size());
    while (!rest_.empty()) {
      if (!ReadText() && !ReadSwitches()) return {};
    }
    colours_.SwitchTo(0, table_, page_.text.size());
    backgrounds_.SwitchTo(0, table_, page_.text.size());
    return std::move(page_);
  }

 private:
  /// The colour that is on, from which character on; number 0 is none.
  struct Switch {
    ColourRuns& runs;
    std::size_t number = 0;
    std::size_t start = 0;

    void SwitchTo(std::size_t next, const std::vector<std::int32_t>& table, std::size_t position) {
      if (number > 0) {
        runs.Paint(static_cast<std::int32_t>(start), static_cast<std::int32_t>(position),
                   table[number - 1]);
      }
      number = next;
      start = position;
    }
  };

  // Each of these is false, and has taken nothing of use, when something else stands next.
  bool Take(StringView expected);
  std::optional<std::int32_t> TakeNumber(std::int32_t highest);
  bool ReadColourTable();
  bool ReadSwitches();
  bool ReadSwitch(StringView word, Switch& what);
  bool ReadText();
  bool ReadNumberedCharacter();
  bool ReadControlCharacter();
  bool Put(StringView text);

  StringView rest_;
  RichTextPage page_;
  std::vector<std::int32_t> table_;
  Switch colours_{page_.colours};
  Switch backgrounds_{page_.backgrounds};
};

bool Reader::Take(StringView expected) {
  if (!rest_.starts_with(expected)) return false;
  rest_.remove_prefix(expected.size());
  return true;
}

std::optional<std::int32_t> Reader::TakeNumber(std::int32_t highest) {
  std::optional<std::int32_t> number;
  while (!rest_.empty() && rest_.front() >= u'0' && rest_.front() <= u'9') {
    number = number.value_or(0) * 10 + (rest_.front() - u'0');
    if (*number > highest) return {};
    rest_.remove_prefix(1);
  }
  return number;
}

bool Reader::ReadColourTable() {
  while (!Take(u"}")) {
    std::int32_t colour = 0;
    std::int32_t shift = 0;
    for (const StringView word : {u"\\red", u"\\green", u"\\blue"}) {
      if (!Take(word)) return false;
      const auto component = TakeNumber(255);
      if (!component) return false;
      colour |= *component << shift;
      shift += 8;
    }
    if (!Take(u";")) return false;
    table_.push_back(colour);
  }
  return true;
}

bool Reader::ReadSwitches() {
  const StringView before = rest_;
  return ReadSwitch(u"\\cf", colours_) && ReadSwitch(u"\\highlight", backgrounds_) &&
         rest_ != before && Take(u" ");
}

bool Reader::ReadSwitch(StringView word, Switch& what) {
  if (!Take(word)) return true;
  const auto number = TakeNumber(static_cast<std::int32_t>(table_.size()));
  if (number) what.SwitchTo(static_cast<std::size_t>(*number), table_, page_.text.size());
  return number.has_value();
}

bool Reader::ReadText() {
  if (Take(u"\\par\r\n")) return Put(u"\r\n");
  if (Take(u"\\tab ")) return Put(u"\t");
  if (Take(u"\\u")) return ReadNumberedCharacter();
  if (Take(u"\\'")) return ReadControlCharacter();
  for (const StringView escaped : {u"\\\\", u"\\{", u"\\}"}) {
    if (Take(escaped)) return Put(escaped.substr(1));
  }
  constexpr StringView kNotPlain = u"\\{}";
  const StringView character = rest_.substr(0, 1);
  if (character < u" " || character > u"~" || kNotPlain.find(character) != StringView::npos) {
    return false;
  }
  rest_.remove_prefix(1);
  return Put(character);
}

// As a signed number of 16 bits, with its stand-in for readers that do not know the word.
bool Reader::ReadNumberedCharacter() {
  const bool negative = Take(u"-");
  const auto number = TakeNumber(negative ? 0x8000 : 0x7FFF);
  if (!number || !Take(u"?")) return false;
  const auto character = static_cast<char16_t>(negative ? -*number : *number);
  return character > u'~' && Put({&character, 1});
}

// Two hexadecimal digits below 20, but for those of tab and line ends, which have words.
bool Reader::ReadControlCharacter() {
  constexpr StringView kDigits = u"0123456789abcdef";
  const auto high = rest_.empty() ? StringView::npos : kDigits.find(rest_[0]);
  const auto low = rest_.size() < 2 ? StringView::npos : kDigits.find(rest_[1]);
  if (high > 1 || low == StringView::npos) return false;
  rest_.remove_prefix(2);
  const auto character = static_cast<char16_t>(high << 4 | low);
  return StringView(u"\t\r\n").find(character) == StringView::npos && Put({&character, 1});
}

bool Reader::Put(StringView text) {
  page_.text += text;
  return true;
}

}  // namespace

std::optional<RichTextPage> ReadRtf(StringView rtf) { return Reader(rtf).Read(); }

}  // namespace tolvane::platform::memory
