#include "view/rtf_in_black.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace tolvane {

namespace {

/// A piece of a document: a control word with its number and the blank after it, a control symbol,
/// a brace, a semicolon, or the text up to the next of these.
struct Token {
  std::string_view text;
  std::string_view word;    // empty for everything else
  std::int32_t number = 0;  // 0 where the word has none
};

class Tokens {
 public:
  explicit Tokens(std::string_view rtf) : rest_(rtf) {}

  [[nodiscard]] bool Any() const { return !rest_.empty(); }
  Token Next();

 private:
  static bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
  Token Take(std::size_t length) {
    const Token token{.text = rest_.substr(0, length), .word = {}};
    rest_.remove_prefix(token.text.size());
    return token;
  }

  std::string_view rest_;
};

Token Tokens::Next() {
  constexpr std::string_view kSpecial = "\\{};";
  if (rest_.front() != '\\') {
    const std::size_t special = rest_.find_first_of(kSpecial);
    return Take(special == 0 ? 1 : special);
  }
  if (rest_.size() < 2 || !IsLetter(rest_[1])) return Take(2);
  const char* const begin = rest_.data() + 1;
  const char* const end = rest_.data() + rest_.size();
  const char* const word_end = std::find_if_not(begin, end, IsLetter);
  Token token{.text = {}, .word = {begin, word_end}};
  // A number of more than 32 bits reads as 0, so \bin with one has no data after it.
  const char* next = std::from_chars(word_end, end, token.number).ptr;
  if (next != end && *next == ' ') ++next;
  if (token.word == "bin") next += std::clamp<std::ptrdiff_t>(token.number, 0, end - next);
  token.text = Take(static_cast<std::size_t>(next - rest_.data())).text;
  return token;
}

/// What the document's colour table says, and where it is.
struct ColourTable {
  std::int32_t count = 0;             // of its entries, whose numbers begin with 0
  std::vector<std::int32_t> defined;  // numbers of those with a colour, rising
  const char* end = nullptr;          // its closing brace; null without a table

  [[nodiscard]] bool Defines(std::int32_t number) const {
    return std::ranges::binary_search(defined, number);
  }
};

ColourTable FindColourTable(std::string_view rtf) {
  ColourTable table;
  Tokens tokens(rtf);
  while (tokens.Any() && tokens.Next().word != "colortbl") {
  }
  bool defined = false;
  while (tokens.Any()) {
    const Token token = tokens.Next();
    if (token.text == "}") {
      table.end = token.text.data();
      break;
    }
    if (token.text == ";") {
      if (defined) table.defined.push_back(table.count);
      ++table.count;
      defined = false;
    } else if (token.word == "red" || token.word == "green" || token.word == "blue") {
      defined = true;
    }
  }
  return table;
}

}  // namespace

std::string RtfInBlack(std::string_view rtf) {
  ColourTable table = FindColourTable(rtf);
  constexpr std::string_view kBlack = "\\red0\\green0\\blue0;";
  if (table.end == nullptr) table = {.count = 1, .defined = {}};
  const std::string black = "\\cf" + std::to_string(table.count);

  std::string result;
  result.reserve(rtf.size() + rtf.size() / 8);
  Tokens tokens(rtf);
  while (tokens.Any()) {
    const Token token = tokens.Next();
    const std::string_view blank = token.text.ends_with(' ') ? " " : "";
    if (token.word == "rtf" && table.end == nullptr) {
      result.append(token.text).append("{\\colortbl ;").append(kBlack).append("}");
      result.append(black).append(" ");
    } else if (token.text.data() == table.end) {
      result.append(kBlack).append("}").append(black).append(" ");
    } else if (token.word == "plain") {
      result.append("\\plain").append(black).append(blank);
    } else if (token.word == "cf" && !table.Defines(token.number)) {
      result.append(black).append(blank);
    } else {
      result.append(token.text);
    }
  }
  return result;
}

}  // namespace tolvane
