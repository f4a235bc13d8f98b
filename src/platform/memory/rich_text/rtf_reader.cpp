#include "platform/memory/rich_text/rtf_reader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace tolvane::platform::memory {

namespace {

constexpr StringView kLineEnd = u"\r\n";
constexpr StringView kSignature = u"{\\rtf";
constexpr std::int32_t kLargestParameter = 99'999'999;

using Colour = std::optional<std::int32_t>;  // empty for the default colour

/// Colours along a text that only grows, gathered into runs.
class RunWriter {
 public:
  explicit RunWriter(ColourRuns& runs) : runs_(runs) {}

  void Extend(std::size_t start, std::size_t end, Colour colour) {
    if (colour != colour_) {
      Finish(start);
      start_ = start;
      colour_ = colour;
    }
    end_ = end;
  }
  void Finish(std::size_t text_length) {
    if (!colour_) return;
    runs_.Paint(static_cast<std::int32_t>(start_),
                static_cast<std::int32_t>(std::min(end_, text_length)), *colour_);
    colour_.reset();
  }

 private:
  ColourRuns& runs_;
  Colour colour_;
  std::size_t start_ = 0;
  std::size_t end_ = 0;
};

enum class Destination : std::uint8_t { kBody, kColourTable, kPassedOver };

/// What a group inherits and gives back at its end.
struct Group {
  Destination destination = Destination::kBody;
  std::int32_t colour = 0;      // number in the colour table
  std::int32_t background = 0;  // number in the colour table
  std::int32_t fallback = 1;    // characters behind a \uN for readers that do not know it
};

struct ControlWord {
  StringView name;
  std::optional<std::int32_t> parameter;
};

class Reader {
 public:
  Reader(StringView rtf, RichTextPage& page)
      : rest_(rtf), page_(page), colours_(page.colours), backgrounds_(page.backgrounds) {}

  void Read();

 private:
  [[nodiscard]] char16_t Take();
  [[nodiscard]] Group& Now() { return groups_.back(); }
  [[nodiscard]] Colour ColourOf(std::int32_t number) const;

  void ReadControl();
  void ReadWord();
  void ReadHexCharacter();
  void Apply(const ControlWord& word);
  void ApplyToColourTable(StringView name, std::int32_t number);
  void ApplyToBody(StringView name, std::int32_t number);
  void Literal(char16_t character);
  void Put(char16_t character);
  void PutText(StringView text);

  StringView rest_;
  RichTextPage& page_;
  RunWriter colours_;
  RunWriter backgrounds_;
  std::vector<Group> groups_;
  std::vector<Colour> colour_table_;
  Colour entry_;                    // of the colour table, while it is read
  std::int32_t fallback_left_ = 0;  // characters still to be passed over behind a \uN
  bool ends_in_par_ = false;
};

bool IsDigit(char16_t character) { return character >= u'0' && character <= u'9'; }

bool IsLetter(char16_t character) {
  return (character >= u'a' && character <= u'z') || (character >= u'A' && character <= u'Z');
}

char16_t Reader::Take() {
  const char16_t character = rest_.front();
  rest_.remove_prefix(1);
  return character;
}

void Reader::Read() {
  groups_.emplace_back();  // the outermost; a document that closes too many groups ends there
  while (!rest_.empty()) {
    const char16_t character = Take();
    if (character == u'{') {
      fallback_left_ = 0;
      groups_.push_back(Now());
    } else if (character == u'}') {
      fallback_left_ = 0;
      groups_.pop_back();
      if (groups_.size() <= 1) break;
    } else if (character == u'\\') {
      ReadControl();
    } else if (character != u'\r' && character != u'\n') {
      Literal(character);
    }
  }
  if (ends_in_par_) page_.text.resize(page_.text.size() - kLineEnd.size());
  colours_.Finish(page_.text.size());
  backgrounds_.Finish(page_.text.size());
}

void Reader::ReadControl() {
  if (rest_.empty()) return;
  if (IsLetter(rest_.front())) {
    ReadWord();
    return;
  }
  const char16_t symbol = Take();
  switch (symbol) {
    case u'\'':
      ReadHexCharacter();
      break;
    case u'*':
      Now().destination = Destination::kPassedOver;
      break;
    case u'\r':
    case u'\n':
      Apply({u"par", {}});
      break;
    case u'~':
      Literal(u'\u00A0');
      break;
    case u'\\':
    case u'{':
    case u'}':
      Literal(symbol);
      break;
    default:
      break;
  }
}

// Two digits; a document broken in itself may have fewer.
void Reader::ReadHexCharacter() {
  std::optional<std::int32_t> value;
  for (int i = 0; i < 2 && !rest_.empty(); ++i) {
    const std::size_t digit = StringView(u"0123456789abcdefABCDEF").find(rest_.front());
    if (digit == StringView::npos) break;
    value = value.value_or(0) * 16 + static_cast<std::int32_t>(digit < 16 ? digit : digit - 6);
    rest_.remove_prefix(1);
  }
  if (value) Literal(static_cast<char16_t>(*value));
}

// Letters, then perhaps a number, then perhaps one blank that belongs to the word.
void Reader::ReadWord() {
  const auto name_length =
      std::min(rest_.find_first_not_of(u"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"),
               rest_.size());
  ControlWord word{rest_.substr(0, name_length), {}};
  rest_.remove_prefix(name_length);

  const bool negative = rest_.size() > 1 && rest_[0] == u'-' && IsDigit(rest_[1]);
  if (negative) rest_.remove_prefix(1);
  while (!rest_.empty() && IsDigit(rest_.front())) {
    const std::int32_t digit = Take() - u'0';
    word.parameter = std::min(word.parameter.value_or(0) * 10 + digit, kLargestParameter);
  }
  if (negative) word.parameter = -*word.parameter;
  if (!rest_.empty() && rest_.front() == u' ') rest_.remove_prefix(1);

  if (fallback_left_ > 0) {
    --fallback_left_;
    return;
  }
  Apply(word);
}

void Reader::Apply(const ControlWord& word) {
  constexpr std::array<StringView, 11> kPassedOver = {
      u"fonttbl",  u"stylesheet", u"info",    u"pict",    u"header",   u"footer",
      u"footnote", u"object",     u"headerl", u"headerr", u"listtable"};
  const std::int32_t number = word.parameter.value_or(0);
  if (word.name == u"bin") {
    rest_.remove_prefix(std::min(static_cast<std::size_t>(std::max(number, 0)), rest_.size()));
  } else if (Now().destination == Destination::kPassedOver) {
    return;
  } else if (std::find(kPassedOver.begin(), kPassedOver.end(), word.name) != kPassedOver.end()) {
    Now().destination = Destination::kPassedOver;
  } else if (word.name == u"colortbl") {
    Now().destination = Destination::kColourTable;
  } else if (Now().destination == Destination::kColourTable) {
    ApplyToColourTable(word.name, number);
  } else {
    ApplyToBody(word.name, number);
  }
}

void Reader::ApplyToColourTable(StringView name, std::int32_t number) {
  constexpr std::array<StringView, 3> kComponents = {u"red", u"green", u"blue"};
  const auto component = std::find(kComponents.begin(), kComponents.end(), name);
  if (component == kComponents.end()) return;
  const auto shift = 8 * static_cast<std::int32_t>(component - kComponents.begin());
  const std::int32_t others = entry_.value_or(0) & ~(0xFF << shift);
  entry_ = others | std::clamp(number, 0, 255) << shift;
}

void Reader::ApplyToBody(StringView name, std::int32_t number) {
  if (name == u"par" || name == u"line") {
    PutText(kLineEnd);
    ends_in_par_ = name == u"par";
  } else if (name == u"tab") {
    PutText(u"\t");
  } else if (name == u"u") {
    Put(static_cast<char16_t>(number));
    fallback_left_ = Now().fallback;
  } else if (name == u"uc") {
    Now().fallback = std::max(number, 0);
  } else if (name == u"cf") {
    Now().colour = number;
  } else if (name == u"highlight" || name == u"cb") {
    Now().background = number;
  } else if (name == u"plain") {
    Now().colour = 0;
    Now().background = 0;
  }
}

// A character of the document that is no part of a control word.
void Reader::Literal(char16_t character) {
  if (fallback_left_ > 0) {
    --fallback_left_;
  } else if (Now().destination == Destination::kBody) {
    Put(character);
  } else if (Now().destination == Destination::kColourTable && character == u';') {
    colour_table_.push_back(entry_);
    entry_.reset();
  }
}

void Reader::Put(char16_t character) {
  if (character == u'\r' || character == u'\n') {
    PutText(kLineEnd);
  } else {
    PutText({&character, 1});
  }
}

void Reader::PutText(StringView text) {
  const std::size_t start = page_.text.size();
  page_.text += text;
  colours_.Extend(start, page_.text.size(), ColourOf(Now().colour));
  backgrounds_.Extend(start, page_.text.size(), ColourOf(Now().background));
  ends_in_par_ = false;
}

Colour Reader::ColourOf(std::int32_t number) const {
  if (number < 0 || static_cast<std::size_t>(number) >= colour_table_.size()) return {};
  return colour_table_[static_cast<std::size_t>(number)];
}

}  // namespace

std::optional<RichTextPage> ReadRtf(StringView rtf) {
  if (!rtf.starts_with(kSignature)) return {};
  RichTextPage page;
  Reader(rtf, page).Read();
  return page;
}

}  // namespace tolvane::platform::memory
