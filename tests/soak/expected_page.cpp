#include "tests/soak/expected_page.h"

#include <array>
#include <cstdio>

namespace tolvane::soak {
namespace {

constexpr const char* kHeader11 = "ID  DLC  D1 D2 D3 D4 D5 D6 D7 D8\n";
constexpr const char* kHeader29 = "E    ID    DLC  D1 D2 D3 D4 D5 D6 D7 D8\n";
constexpr int kCellsWidth = 24;  // characters of eight bytes

/// Takes the first line off a text, without its end.
std::string_view TakeLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(line.size() == text.size() ? line.size() : line.size() + 1);
  return line;
}

std::string Quoted(std::string_view line) { return '"' + std::string(line) + '"'; }

}  // namespace

void ExpectedPage::Receive(const simulator::BusFrame& frame, std::int64_t at_ms) {
  const auto [found, is_new] = rows_.try_emplace({frame.id, frame.extended});
  Row& row = found->second;
  row.last = frame;
  row.cycle_ms = at_ms - row.at_ms;
  row.at_ms = at_ms;
  row.once = is_new;
}

std::string ExpectedPage::Text() const {
  std::string text = ids29_ ? kHeader29 : kHeader11;
  for (const auto& [key, row] : rows_) text += Text(row) + '\n';
  return text;
}

std::string ExpectedPage::Text(const Row& row) const {
  std::string cells;
  std::array<char, 80> text;
  for (std::size_t i = 0; i < row.last.dlc; ++i) {
    std::snprintf(text.data(), text.size(), " %02X", row.last.data[i]);
    cells += text.data();
  }
  const std::string mark = !ids29_ ? "" : row.last.extended ? "* " : "  ";
  std::snprintf(text.data(), text.size(), "%s%0*X  %d  %-*s   ", mark.c_str(), ids29_ ? 8 : 3,
                row.last.id, row.last.dlc, kCellsWidth, cells.c_str());
  return text.data() + (row.once ? "----" : std::to_string(row.cycle_ms)) + "ms";
}

ComparedPage ExpectedPage::Compare(std::string_view page) const {
  const std::string text = Text();
  std::string_view expected = text;
  ComparedPage compared{.rows = rows_.size()};
  for (int line = 1; !expected.empty() || !page.empty(); ++line) {
    const std::string_view want = TakeLine(expected);
    const std::string_view have = TakeLine(page);
    if (have == want || compared.differing++ > 0) continue;
    compared.difference =
        "line " + std::to_string(line) + ": " + Quoted(have) + ", expected " + Quoted(want);
  }
  return compared;
}

}  // namespace tolvane::soak
