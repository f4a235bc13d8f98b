#include "view/page_rtf.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tolvane {

namespace {

// The font's name is in code page 932, as its charset says. \uc1 tells readers that know \uN to
// skip one character after it.
constexpr std::string_view kFontTable =
    "{\\rtf1\\ansi\\ansicpg932\\deff0\\deflang1033\\deflangfe1041"
    "{\\fonttbl{\\f0\\fnil\\fcharset128 \\'82\\'6c\\'82\\'72 "
    "\\'83\\'53\\'83\\'56\\'83\\'62\\'83\\'4e;}}\r\n";
constexpr std::string_view kBodyStart = "\\viewkind4\\uc1\\pard\\lang1041\\f0\\fs18 ";
constexpr std::string_view kParagraphEnd = "\\par\r\n";

void AppendNumber(std::int32_t number, std::string& rtf) {
  char digits[11];
  rtf.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

/// The colour table: colours are numbered from 1 in order of first use.
class ColourTable {
 public:
  void Add(const platform::ColourRuns& runs) {
    for (const platform::ColourRun& run : runs.Runs()) {
      const std::int32_t colour = run.colour & 0xFFFFFF;
      const auto place = Find(colour);
      if (place != sorted_.end() && place->colour == colour) continue;
      colours_.push_back(colour);
      sorted_.insert(place, {colour, static_cast<std::int32_t>(colours_.size())});
    }
  }

  [[nodiscard]] std::int32_t NumberOf(std::int32_t colour) const {
    return Find(colour & 0xFFFFFF)->number;
  }

  void Write(std::string& rtf) const {
    rtf += "{\\colortbl ;";
    for (const std::int32_t colour : colours_) {
      rtf += "\\red";
      AppendNumber(colour & 0xFF, rtf);
      rtf += "\\green";
      AppendNumber(colour >> 8 & 0xFF, rtf);
      rtf += "\\blue";
      AppendNumber(colour >> 16 & 0xFF, rtf);
      rtf += ';';
    }
    rtf += "}\r\n";
  }

 private:
  struct Entry {
    std::int32_t colour;
    std::int32_t number;
  };

  [[nodiscard]] std::vector<Entry>::const_iterator Find(std::int32_t colour) const {
    return std::lower_bound(sorted_.begin(), sorted_.end(), colour,
                            [](const Entry& entry, std::int32_t c) { return entry.colour < c; });
  }

  std::vector<std::int32_t> colours_;
  std::vector<Entry> sorted_;
};

/// Goes through one list of runs along the text and writes the control word that switches its
/// colour.
class Format {
 public:
  Format(const platform::ColourRuns& runs, const ColourTable& table, std::string_view word)
      : walk_(runs), table_(table), word_(word) {}

  /// Writes the switch that `position` needs, if any. True when something was written.
  bool SwitchAt(std::int32_t position, std::string& rtf) {
    const platform::ColourRun* run = walk_.At(position);
    const std::int32_t number = run != nullptr ? table_.NumberOf(run->colour) : 0;
    if (number == number_) return false;
    number_ = number;
    rtf += word_;
    AppendNumber(number, rtf);
    return true;
  }

  /// Where the colour found by the last SwitchAt ends.
  [[nodiscard]] std::int32_t NextChange() const { return walk_.NextChange(); }

 private:
  platform::ColourWalk walk_;
  const ColourTable& table_;
  std::string_view word_;
  std::int32_t number_ = 0;
};

void AppendControlCharacter(char16_t character, std::string& rtf) {
  if (character == u'\t') {
    rtf += "\\tab ";
    return;
  }
  rtf += "\\'";
  rtf += "0123456789abcdef"[character >> 4];
  rtf += "0123456789abcdef"[character & 0xF];
}

void AppendCharacter(char16_t character, std::string& rtf) {
  if (character == u'\\' || character == u'{' || character == u'}') {
    rtf += '\\';
    rtf += static_cast<char>(character);
  } else if (character > 0x7E) {
    rtf += "\\u";
    AppendNumber(static_cast<std::int16_t>(character), rtf);
    rtf += '?';
  } else if (character < u' ') {
    AppendControlCharacter(character, rtf);
  } else {
    rtf += static_cast<char>(character);
  }
}

/// `text` from `start` to `end`. CR LF, CR and LF are each one line end, also when the colour
/// changes between the two.
void AppendText(StringView text, std::size_t start, std::size_t end, std::string& rtf) {
  for (std::size_t i = start; i < end; ++i) {
    const char16_t character = text[i];
    if (character == u'\r' || (character == u'\n' && (i == 0 || text[i - 1] != u'\r'))) {
      rtf += kParagraphEnd;
    } else if (character != u'\n') {
      AppendCharacter(character, rtf);
    }
  }
}

}  // namespace

void WritePageRtf(const platform::RichTextPage& page, std::string& rtf) {
  ColourTable table;
  table.Add(page.colours);
  table.Add(page.backgrounds);

  rtf.assign(kFontTable);
  table.Write(rtf);
  rtf += kBodyStart;

  Format colour(page.colours, table, "\\cf");
  Format background(page.backgrounds, table, "\\highlight");
  const auto length = static_cast<std::int32_t>(page.text.size());
  for (std::int32_t position = 0; position < length;) {
    const bool colour_switched = colour.SwitchAt(position, rtf);
    const bool background_switched = background.SwitchAt(position, rtf);
    if (colour_switched || background_switched) rtf += ' ';
    const std::int32_t end = std::min({length, colour.NextChange(), background.NextChange()});
    AppendText(page.text, static_cast<std::size_t>(position), static_cast<std::size_t>(end), rtf);
    position = end;
  }
  rtf += kParagraphEnd;
  rtf += "}\r\n";
}

}  // namespace tolvane
