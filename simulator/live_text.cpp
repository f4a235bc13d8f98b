#include "simulator/live_text.h"

#include <algorithm>
#include <string>
#include <system_error>
#include <utility>

#include "simulator/values.h"

namespace tolvane::simulator {

LiveText::LiveText(std::filesystem::path path, std::int64_t segment)
    : path_(std::move(path)), segment_(segment) {
  const std::int64_t last = Number(1, true);
  if (last == 0 || !Open(last)) return;
  file_.seekg(0, std::ios::end);
  place_ = std::max<std::int64_t>(file_.tellg(), 0);
  if (place_ == 0) return;
  file_.seekg(place_ - 1);
  line_ended_ = file_.get() == '\n';
  within_line_ = !line_ended_;
}

std::filesystem::path LiveText::File(std::int64_t number) const {
  std::filesystem::path file = path_;
  file += "." + std::to_string(number);
  return file;
}

std::int64_t LiveText::Number(std::int64_t least, bool highest) const {
  const std::u8string stem = path_.filename().u8string() + u8".";
  std::int64_t found = 0;
  std::error_code error;  // a folder that is not there has no files
  for (std::filesystem::directory_iterator entry(path_.parent_path(), error), end;
       !error && entry != end; entry.increment(error)) {
    const std::u8string name = entry->path().filename().u8string();
    if (!name.starts_with(stem)) continue;
    const std::string digits(name.begin() + std::ssize(stem), name.end());
    const auto number = ParseInteger(digits);
    if (!number || *number < least || std::to_string(*number) != digits) continue;
    if (found == 0 || (highest ? *number > found : *number < found)) found = *number;
  }
  return found;
}

bool LiveText::Open(std::int64_t number) {
  std::ifstream file(File(number), std::ios::binary);
  if (!file) return false;
  file_ = std::move(file);
  number_ = number;
  place_ = 0;
  return true;
}

std::size_t LiveText::Read(char* to, std::size_t size) {
  if (number_ == 0 && !Open(1)) return 0;
  const std::size_t taken = ReadFile(to, size);
  if (taken > 0 || place_ < segment_ || !line_ended_) return taken;
  // Full. The next file is there at once, unless it was removed before this one was read.
  std::int64_t next = number_ + 1;
  if (!Open(next)) {
    next = Number(next, false);
    if (next == 0) return 0;
    const std::int64_t before = number_;
    if (!Open(next)) return 0;
    passed_over_ += next - before - 1;
  }
  return ReadFile(to, size);
}

std::size_t LiveText::ReadFile(char* to, std::size_t size) {
  file_.clear();
  file_.seekg(place_);  // the end that the last read has found may be none any more
  file_.read(to, static_cast<std::streamsize>(size));
  const auto taken = static_cast<std::size_t>(file_.gcount());
  if (taken == 0) return 0;
  place_ += static_cast<std::int64_t>(taken);
  line_ended_ = to[taken - 1] == '\n';
  return taken;
}

}  // namespace tolvane::simulator
