// Rich text that the program writes and takes. Any page comes back out of its document, and out of
// the same document made black, with what had no colour black; so does what is still a document
// after some of its bytes were changed. Any bytes can be read and made black: their groups stay as
// they were, and nothing of them is lost but the colours that become black.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/byte_text.h"
#include "platform/memory/rich_text/rtf_reader.h"
#include "tests/fuzz/fuzz_entry.h"
#include "tests/fuzz/input.h"
#include "view/page_rtf.h"
#include "view/rtf_in_black.h"

namespace {

using namespace tolvane;
using namespace tolvane::fuzz;
using platform::ColourRun;
using platform::ColourRuns;
using platform::RichTextPage;

/// A page, each of whose line ends is two characters of one colour, as in every page of a view.
RichTextPage Page(Input& input) {
  RichTextPage page;
  for (int pieces = input.Byte() % 32; pieces > 0 && !input.AtEnd(); --pieces) {
    const std::uint8_t colours = input.Byte();
    const auto start = static_cast<std::int32_t>(page.text.size());
    for (const char16_t character : input.Text()) {
      const bool is_end = character == u'\r' || character == u'\n';
      page.text += is_end ? StringView(u"\r\n") : StringView(&character, 1);
    }
    const auto end = static_cast<std::int32_t>(page.text.size());
    if ((colours & 1) != 0) page.colours.Paint(start, end, input.Number());
    if ((colours & 2) != 0) page.backgrounds.Paint(start, end, input.Number());
  }
  return page;
}

/// The colour of each character, `bare` where there is none.
std::vector<std::int32_t> ByCharacter(const ColourRuns& runs, std::size_t length,
                                      std::int32_t bare) {
  std::vector<std::int32_t> colours(length, bare);
  for (const ColourRun& run : runs.Runs()) {
    Require(run.start >= 0 && run.end <= static_cast<std::int32_t>(length));
    std::fill(colours.begin() + run.start, colours.begin() + run.end, run.colour & 0xFFFFFF);
  }
  return colours;
}

void JudgeDocument(const std::string& rtf, const RichTextPage& page, std::int32_t bare) {
  const auto read = platform::memory::ReadRtf(WideText(rtf));
  Require(read && read->text == page.text);
  const std::size_t length = page.text.size();
  Require(ByCharacter(read->colours, length, -1) == ByCharacter(page.colours, length, bare));
  Require(ByCharacter(read->backgrounds, length, -1) == ByCharacter(page.backgrounds, length, -1));
}

/// What stands behind the letters of a control word: a number and a blank.
std::size_t EndOfWord(std::string_view rtf, std::size_t at) {
  if (at < rtf.size() && rtf[at] == '-') ++at;
  while (at < rtf.size() && rtf[at] >= '0' && rtf[at] <= '9') ++at;
  return at < rtf.size() && rtf[at] == ' ' ? at + 1 : at;
}

/// Everything but \cf and what belongs to \plain.
std::string WithoutColours(std::string_view rtf) {
  std::string left;
  for (std::size_t at = 0; at < rtf.size();) {
    const std::string_view rest = rtf.substr(at);
    if (rest.starts_with("\\cf")) {
      at = EndOfWord(rtf, at + 3);
    } else if (rest.starts_with("\\plain")) {
      left += "\\plain";
      at = EndOfWord(rtf, at + 6);
    } else {
      const std::size_t next = std::min(rest.find('\\', 1), rest.size());
      left += rest.substr(0, next);
      at += next;
    }
  }
  return left;
}

bool HoldsInOrder(std::string_view whole, std::string_view bytes) {
  for (const char byte : whole) {
    if (!bytes.empty() && bytes.front() == byte) bytes.remove_prefix(1);
  }
  return bytes.empty();
}

/// The bytes in black, of which nothing else is lost.
std::string InBlack(const std::string& bytes) {
  const auto count = [](const std::string& text, char brace) {
    return std::count(text.begin(), text.end(), brace);
  };
  const std::string black = RtfInBlack(bytes);
  const auto opened = count(black, '{') - count(bytes, '{');
  Require(opened == count(black, '}') - count(bytes, '}'));
  Require(opened >= 0);
  Require(HoldsInOrder(black, WithoutColours(bytes)));
  // Each word may become one of another number, a start and an entry come in.
  Require(black.size() <= 64 + 16 * bytes.size());
  return black;
}

void JudgeAnyBytes(const std::string& bytes) {
  static_cast<void>(InBlack(bytes));
  const auto page = platform::memory::ReadRtf(WideText(bytes));
  if (!page) return;
  static_cast<void>(ByCharacter(page->colours, page->text.size(), -1));
  static_cast<void>(ByCharacter(page->backgrounds, page->text.size(), -1));
}

/// The brace behind the colours of a page's document.
std::size_t EndOfTable(const std::string& rtf) { return rtf.find('}', rtf.find("\\colortbl")); }

/// How far behind it the text begins.
std::size_t StartLength() {
  static const std::size_t length = [] {
    RichTextPage letter;
    letter.text = u"x";
    std::string with;
    std::string without;
    WritePageRtf(letter, with);
    WritePageRtf({}, without);
    const auto first = std::ranges::mismatch(with, without).in1;
    return static_cast<std::size_t>(first - with.begin()) - EndOfTable(without);
  }();
  return length;
}

/// What the changed bytes of a document say, if it still is one, they say in black too.
void JudgeChanged(std::string rtf, Input& input) {
  const std::size_t begin = EndOfTable(rtf) + StartLength();
  const std::size_t length = rtf.size() - begin;
  for (int changes = input.Byte() % 8; changes > 0 && !input.AtEnd(); --changes) {
    const std::size_t place = begin + static_cast<std::size_t>(input.Short()) % length;
    const std::string bytes = input.Bytes(input.Byte() % 16);
    rtf.replace(place, bytes.size(), bytes);
  }
  const std::string black = InBlack(rtf);
  const auto page = platform::memory::ReadRtf(WideText(rtf));
  if (page) JudgeDocument(black, *page, 0);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  const bool is_document = input.Byte() == '{';
  if (is_document) {
    JudgeAnyBytes(std::string(data, data + size));
    return 0;
  }
  const RichTextPage page = Page(input);
  std::string rtf;
  WritePageRtf(page, rtf);
  JudgeDocument(rtf, page, -1);
  JudgeDocument(RtfInBlack(rtf), page, 0);
  JudgeChanged(rtf, input);
  JudgeAnyBytes(input.Bytes(size));
  return 0;
}
