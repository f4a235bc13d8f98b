// The reader of rich text on any bytes: it must neither crash nor give a page that the writer and
// the reader do not carry through unchanged. What makes its text black takes the same bytes.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "platform/memory/rich_text/rtf_reader.h"
#include "tests/fuzz/fuzz_entry.h"
#include "view/page_rtf.h"
#include "view/rtf_in_black.h"

namespace {

using tolvane::String;
using tolvane::platform::ColourRun;
using tolvane::platform::ColourRuns;
using tolvane::platform::RichTextPage;

/// Neighbouring runs of one colour made one.
std::vector<ColourRun> Joined(const ColourRuns& runs) {
  std::vector<ColourRun> joined;
  for (const ColourRun& run : runs.Runs()) {
    if (!joined.empty() && joined.back().end == run.start && joined.back().colour == run.colour) {
      joined.back().end = run.end;
    } else {
      joined.push_back(run);
    }
  }
  return joined;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using tolvane::platform::memory::ReadRtf;
  const auto page = ReadRtf(String(data, data + size));
  const std::string black = tolvane::RtfInBlack({reinterpret_cast<const char*>(data), size});
  if (page.has_value() != ReadRtf(String(black.begin(), black.end())).has_value()) std::abort();
  if (!page) return 0;

  std::string rtf;
  tolvane::WritePageRtf(*page, rtf);
  const auto again = ReadRtf(String(rtf.begin(), rtf.end()));
  const bool same = again && again->text == page->text &&
                    Joined(again->colours) == Joined(page->colours) &&
                    Joined(again->backgrounds) == Joined(page->backgrounds);
  if (!same) std::abort();
  return 0;
}
