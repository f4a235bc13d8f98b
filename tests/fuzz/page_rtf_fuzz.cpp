// Rich text that the program writes and takes. Any page comes back out of its document, and out of
// the same document made black, with what had no colour black. Any bytes can be made black: their
// groups stay as they were, and what is black already is not changed but for its one more black.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

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
  const auto read = platform::memory::ReadRtf(String(rtf.begin(), rtf.end()));
  Require(read && read->text == page.text);
  const std::size_t length = page.text.size();
  Require(ByCharacter(read->colours, length, -1) == ByCharacter(page.colours, length, bare));
  Require(ByCharacter(read->backgrounds, length, -1) == ByCharacter(page.backgrounds, length, -1));
}

void JudgeAnyBytes(const std::string& bytes) {
  const auto count = [](const std::string& text, char brace) {
    return std::count(text.begin(), text.end(), brace);
  };
  const std::string black = RtfInBlack(bytes);
  const auto opened = count(black, '{') - count(bytes, '{');
  Require(opened == count(black, '}') - count(bytes, '}'));
  Require(opened >= 0);
  // Each word may become one of another number, a start and an entry come in.
  Require(black.size() <= 64 + 16 * bytes.size());
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
  JudgeAnyBytes(input.Bytes(size));
  return 0;
}
