#include "config/configfilerecord.h"

#include <bit>
#include <cstdint>
#include <string>
#include <utility>

#include "platform/surrogates.h"
#include "run/settings_list.h"

namespace tolvane {

namespace {

/// The bytes of `text`, at most kConfigText_MAX of them, no character cut in two.
std::string EncodedText(StringView text, platform::CodePage& code_page) {
  std::string bytes;
  code_page.Encode(text, bytes);
  if (bytes.size() <= kConfigText_MAX) return bytes;
  bytes.clear();
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t units = StartsWithPair(text.substr(at)) ? 2 : 1;
    const std::size_t before = bytes.size();
    code_page.Encode(text.substr(at, units), bytes);
    if (bytes.size() > kConfigText_MAX) {
      bytes.resize(before);
      break;
    }
    at += units;
  }
  return bytes;
}

class RecordWriter {
 public:
  explicit RecordWriter(platform::CodePage& code_page) : code_page_(code_page) {}

  void operator()(std::int32_t number, std::int32_t /*standard*/, std::int32_t /*since*/ = 0) {
    Put(static_cast<std::uint32_t>(number), 4);
  }
  void operator()(double ratio, double /*standard*/, std::int32_t /*since*/) {
    Put(std::bit_cast<std::uint64_t>(ratio), 8);
  }
  void operator()(const SettingColumn& table, std::int32_t highest, std::int32_t /*standard*/) {
    for (std::int16_t i = 0; i < kSettingRows; ++i) {
      Put(i <= highest ? static_cast<std::uint32_t>(table(i)) : 0, 4);
    }
  }
  void operator()(const String& text, StringView /*standard*/) {
    const std::string encoded = EncodedText(text, code_page_);
    Put(encoded.size(), 2);
    for (const char byte : encoded) Put(static_cast<unsigned char>(byte), 1);
  }

  [[nodiscard]] std::vector<std::byte> Bytes() && { return std::move(bytes_); }

 private:
  void Put(std::uint64_t value, int count) {
    for (; count > 0; --count, value >>= 8) bytes_.push_back(static_cast<std::byte>(value & 0xFF));
  }

  platform::CodePage& code_page_;
  std::vector<std::byte> bytes_;
};

/// Takes fields from the front. The first one that is not there whole ends the reading: it and all
/// behind it are zeros and empty texts.
class RecordReader {
 public:
  /// `version` is where the file's version gets to, before any field that came later.
  RecordReader(std::span<const std::byte> bytes, platform::CodePage& code_page,
               const std::int32_t& version)
      : rest_(bytes), code_page_(code_page), version_(version) {}

  void operator()(std::int32_t& number, std::int32_t /*standard*/, std::int32_t since = 0) {
    const std::int32_t taken = TakeLong();
    if (version_ >= since) number = taken;
  }
  void operator()(double& ratio, double /*standard*/, std::int32_t since) {
    const auto taken = std::bit_cast<double>(TakeNumber(8));
    if (version_ >= since) ratio = taken;
  }
  void operator()(SettingColumn& table, std::int32_t highest, std::int32_t /*standard*/) {
    for (std::int16_t i = 0; i < kSettingRows; ++i) {
      const std::int32_t taken = TakeLong();
      if (i <= highest) table(i, taken);
    }
  }
  void operator()(String& text, StringView /*standard*/) {
    const auto bytes = Take(static_cast<std::size_t>(TakeNumber(2)));
    text = code_page_.Decode({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
  }

 private:
  std::span<const std::byte> Take(std::size_t count) {
    if (count > rest_.size()) {
      rest_ = {};
      return {};
    }
    const auto taken = rest_.first(count);
    rest_ = rest_.subspan(count);
    return taken;
  }

  std::uint64_t TakeNumber(std::size_t count) {
    std::uint64_t value = 0;
    int shift = 0;
    for (const std::byte byte : Take(count)) {
      value |= std::to_integer<std::uint64_t>(byte) << shift;
      shift += 8;
    }
    return value;
  }

  std::int32_t TakeLong() {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(TakeNumber(4)));
  }

  std::span<const std::byte> rest_;
  platform::CodePage& code_page_;
  const std::int32_t& version_;
};

}  // namespace

std::vector<std::byte> EncodeConfigFileRecord(const ELM327_Info& device,
                                              platform::CodePage& code_page) {
  RecordWriter writer(code_page);
  VisitSettings(device, writer);
  return std::move(writer).Bytes();
}

void DecodeConfigFileRecord(std::span<const std::byte> bytes, platform::CodePage& code_page,
                            ELM327_Info& device) {
  VisitSettings(device, RecordReader(bytes, code_page, device.install_version));
}

}  // namespace tolvane
