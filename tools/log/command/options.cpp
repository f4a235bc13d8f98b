#include "tools/log/command/options.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace tolvane::logtool {

namespace {

constexpr double kMultiple_MIN = 1.0;
constexpr double kMultiple_MAX = 1e6;

class Reader {
 public:
  explicit Reader(const std::vector<std::string>& words) : words_(words) {}

  ReadOptions Result() {
    if (Asks("--help") || Asks("-h")) return {options_, {}};
    if (Asks("--version")) return {Of(Verb::kVersion), {}};
    if (!ReadVerb() || !ReadWords() || !IsComplete()) return {{}, refusal_};
    return {options_, {}};
  }

 private:
  /// Behind two hyphens words are files.
  [[nodiscard]] bool Asks(std::string_view option) const {
    const auto end = std::ranges::find(words_, "--");
    return std::find(words_.begin(), end, option) != end;
  }

  [[nodiscard]] static Options Of(Verb verb) {
    Options options;
    options.verb = verb;
    return options;
  }

  bool Refuse(std::string why) {
    refusal_ = std::move(why);
    return false;
  }

  [[nodiscard]] bool ReadVerb() {
    if (words_.empty()) return Refuse("info or convert?");
    if (words_[0] == "info") options_.verb = Verb::kInfo;
    if (words_[0] == "convert") options_.verb = Verb::kConvert;
    return options_.verb != Verb::kHelp ||
           Refuse("there is info and convert, not '" + words_[0] + "'");
  }

  [[nodiscard]] bool ReadWords() {
    for (at_ = 1; at_ < words_.size(); ++at_) {
      const std::string& word = words_[at_];
      if (word == "--") {
        options_.files.insert(options_.files.end(),
                              words_.begin() + static_cast<std::ptrdiff_t>(at_) + 1, words_.end());
        return true;
      }
      if (!word.starts_with("--")) {
        options_.files.push_back(word);
      } else if (!ReadOption(word.substr(0, word.find('=')), word)) {
        return false;
      }
    }
    return true;
  }

  /// `name` is the word up to its equals sign, if it has one.
  [[nodiscard]] bool ReadOption(const std::string& name, const std::string& word) {
    if (word == "--keep") return options_.keep = true;
    if (word == "--mend-clock") return options_.mends_clock = true;
    if (options_.verb == Verb::kInfo && word == "--json") return options_.info.as_json = true;
    if (options_.verb == Verb::kInfo && name == "--gap") return ReadMultiple();
    if (options_.verb == Verb::kConvert && name == "--to") return ReadFormat();
    if (options_.verb == Verb::kConvert && name == "--out") return ReadOut();
    return Refuse("no such option of " + words_[0] + ": " + word);
  }

  /// What stands behind the option's equals sign, or the next word; empty if there is none.
  [[nodiscard]] std::string_view Value() {
    const std::string_view word = words_[at_];
    if (const std::size_t sign = word.find('='); sign != std::string_view::npos) {
      return word.substr(sign + 1);
    }
    return at_ + 1 < words_.size() ? std::string_view(words_[++at_]) : std::string_view();
  }

  [[nodiscard]] bool ReadMultiple() {
    const std::string_view value = Value();
    double& multiple = options_.info.multiple;
    const char* const end = value.data() + value.size();
    const auto result = std::from_chars(value.data(), end, multiple, std::chars_format::fixed);
    const bool is_good = result.ec == std::errc() && result.ptr == end &&
                         multiple >= kMultiple_MIN && multiple <= kMultiple_MAX;
    return is_good || Refuse("--gap is a number of cycles from 1 to 1000000, not '" +
                             std::string(value) + "'");
  }

  [[nodiscard]] bool ReadFormat() {
    const std::string_view value = Value();
    options_.format.reset();
    if (value == "candump") options_.format = Format::kCandump;
    if (value == "asc") options_.format = Format::kAsc;
    if (value == "csv") options_.format = Format::kCsv;
    return options_.format ||
           Refuse("--to is candump, asc or csv, not '" + std::string(value) + "'");
  }

  [[nodiscard]] bool ReadOut() {
    options_.out = Value();
    return !options_.out.empty() || Refuse("--out needs the name of a file");
  }

  [[nodiscard]] bool IsComplete() {
    options_.info.mends_clock = options_.mends_clock;
    if (options_.files.empty()) return Refuse("no files are named");
    if (std::ranges::find(options_.files, "") != options_.files.end()) {
      return Refuse("an empty word names no file");
    }
    if (options_.verb == Verb::kConvert && !options_.format) {
      return Refuse("--to is missing: candump, asc or csv");
    }
    return true;
  }

  const std::vector<std::string>& words_;
  std::size_t at_ = 0;
  Options options_;
  std::string refusal_;
};

}  // namespace

ReadOptions OptionsOf(const std::vector<std::string>& words) { return Reader(words).Result(); }

}  // namespace tolvane::logtool
