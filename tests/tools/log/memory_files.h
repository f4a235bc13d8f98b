#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "tools/log/runs/log_files.h"

namespace tolvane::logtool {

/// Bytes of a text, at most `piece` at once; behind the text it may fail.
class TextSource final : public ByteSource {
 public:
  explicit TextSource(std::string text, std::size_t piece = 1'000'000, bool fails = false)
      : text_(std::move(text)), piece_(piece), fails_(fails) {}

  std::optional<std::size_t> Read(std::span<char> room) override {
    const std::size_t length = std::min({room.size(), piece_, text_.size() - at_});
    if (length == 0 && fails_) return {};
    std::memcpy(room.data(), text_.data() + at_, length);
    at_ += length;
    return length;
  }
  bool SkipToLast(std::size_t bytes) override {
    at_ = text_.size() - std::min(text_.size(), bytes);
    return true;
  }

 private:
  std::string text_;
  std::size_t piece_;
  bool fails_;
  std::size_t at_ = 0;
};

class TextSink final : public ByteSink {
 public:
  explicit TextSink(std::string& text) : text_(text) {}
  bool Write(std::string_view bytes) override {
    if (fails) return false;
    text_ += bytes;
    return true;
  }
  bool fails = false;

 private:
  std::string& text_;
};

class MemoryFiles final : public LogFiles {
 public:
  Opened<ByteSource> Open(const std::string& path) override {
    ++opened;
    const auto found = texts.find(path);
    if (found == texts.end()) return {nullptr, "this file cannot be opened: it is not there"};
    return {std::make_unique<TextSource>(found->second, 1'000'000, path == unreadable)};
  }
  Opened<ByteSink> Create(const std::string& path) override {
    const auto [place, is_new] = texts.try_emplace(path);
    if (!is_new) return {nullptr, kIsThere};
    return {std::make_unique<TextSink>(place->second)};
  }
  void Remove(const std::string& path) override { texts.erase(path); }

  std::map<std::string, std::string> texts;
  std::size_t opened = 0;  // how often one was
  std::string unreadable;  // the path of the one that fails behind its text
};

}  // namespace tolvane::logtool
