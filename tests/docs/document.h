#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace tolvane {

/// A document of this repository, whose examples are held against what the program does.
class Document {
 public:
  /// `path` from the root of the repository.
  explicit Document(std::string_view path) {
    std::ifstream file(std::filesystem::path(TOLVANE_ROOT) / path, std::ios::binary);
    text_.assign(std::istreambuf_iterator<char>(file), {});
    EXPECT_FALSE(text_.empty()) << path;
  }

  /// The fenced examples of one kind, such as "ini" or "text config.dat".
  [[nodiscard]] std::vector<std::string> Examples(std::string_view kind) const {
    std::vector<std::string> examples;
    const std::string head = "```" + std::string(kind) + "\n";
    for (std::size_t at = 0; (at = text_.find(head, at)) != std::string::npos;) {
      const std::size_t start = at + head.size();
      at = text_.find("```\n", start);
      examples.push_back(text_.substr(start, at - start));
    }
    return examples;
  }

  /// The cells of the table rows below a heading, the head of the table and its rule left out.
  [[nodiscard]] std::vector<std::vector<std::string>> TableBelow(std::string_view heading) const {
    std::vector<std::vector<std::string>> rows;
    const std::size_t place = text_.find("\n" + std::string(heading) + "\n");
    std::istringstream lines(text_.substr(std::min(place, text_.size())));
    std::string line;
    while (std::getline(lines, line) && !line.starts_with('|')) {
    }
    for (; line.starts_with('|'); std::getline(lines, line)) rows.push_back(Cells(line));
    if (rows.size() < 3) {
      ADD_FAILURE() << "no table below " << heading;
      return {};
    }
    rows.erase(rows.begin(), rows.begin() + 2);
    return rows;
  }

 private:
  static std::vector<std::string> Cells(const std::string& line) {
    std::vector<std::string> cells;
    for (std::size_t start = 1, end; (end = line.find('|', start)) != std::string::npos;
         start = end + 1) {
      const std::string cell = line.substr(start, end - start);
      const std::size_t first = cell.find_first_not_of(' ');
      cells.push_back(first == std::string::npos
                          ? ""
                          : cell.substr(first, cell.find_last_not_of(' ') - first + 1));
    }
    return cells;
  }

  std::string text_;
};

/// Whether the document shows `actual` as its one example of this kind. A failure shows what has to
/// stand there.
inline testing::AssertionResult IsTheExample(const Document& document, std::string_view kind,
                                             const std::string& actual) {
  const auto examples = document.Examples(kind);
  if (examples.size() == 1 && examples[0] == actual) return testing::AssertionSuccess();
  return testing::AssertionFailure()
         << examples.size() << " examples; what is true:\n```" << kind << "\n"
         << actual << "```\n";
}

}  // namespace tolvane
