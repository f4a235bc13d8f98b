#include "config/configfilerecord.h"

#include <bit>
#include <string>
#include <utility>

namespace tolvane {

namespace {

/// Hands every field to `visit`, in the order of the file: the one place that knows it, for both
/// directions.
template <typename Record, typename Visit>
void VisitFields(Record& record, Visit&& visit) {
  visit(record.Application_title);
  visit(record.Copy_light);
  visit(record.t_SaveFormat);
  visit(record.t_Save_ID_DisableMode);
  visit(record.reserved);
  visit(record.install_version);
  visit(record.t_bitRate);
  visit(record.t_msgID_type);
  visit(record.t_MsgFmtTyp);
  visit(record.t_silent_mode);
  visit(record.t_ViewCaution);
  visit(record.t_Timer_Mode);
  visit(record.t_DataChangeColorTime);
  visit(record.t_DataChangeColor);
  visit(record.t_DataChangeColorEnable);
  visit(record.t_MsgLateColor_Ratio);
  visit(record.t_MsgLateColor_Time);
  visit(record.t_MsgLateColor);
  visit(record.t_MsgLateColorEnable);
  visit(record.t_MsgBlackout_Ratio);
  visit(record.t_MsgBlackout_Color);
  visit(record.t_MsgBlackout_Enable);
  visit(record.t_DisableID_ON);
  visit(record.t_DisableID_Start);
  visit(record.t_DisableID_End);
  visit(record.t_MsgMarker_ON);
  visit(record.t_MsgMarkerID);
  visit(record.t_MsgMarkerStartByte);
  visit(record.t_MsgMarkerEndByte);
  visit(record.t_MsgMarkerColor);
  visit(record.t_SaveFilePath_mode);
  visit(record.t_SaveFilePath);
  visit(record.t_LogSaveFormat);
  visit(record.t_Excel_Format);
  visit(record.t_Excel_soft);
  visit(record.t_LogSaveFilePath_mode);
  visit(record.t_LogSaveFilePath);
  visit(record.t_LogSave_Enable);
  visit(record.t_LogSave_subFolder);
  visit(record.t_LogComment);
  visit(record.t_dividend_ratio);
}

/// The bytes of `text`, at most kConfigText_MAX of them, no character cut in two.
std::string EncodedText(StringView text, platform::CodePage& code_page) {
  std::string bytes;
  code_page.Encode(text, bytes);
  if (bytes.size() <= kConfigText_MAX) return bytes;
  bytes.clear();
  for (std::size_t at = 0; at < text.size();) {
    const bool pair =
        (text[at] & 0xFC00) == 0xD800 && at + 1 < text.size() && (text[at + 1] & 0xFC00) == 0xDC00;
    const std::size_t before = bytes.size();
    code_page.Encode(text.substr(at, pair ? 2 : 1), bytes);
    if (bytes.size() > kConfigText_MAX) {
      bytes.resize(before);
      break;
    }
    at += pair ? 2 : 1;
  }
  return bytes;
}

class RecordWriter {
 public:
  explicit RecordWriter(platform::CodePage& code_page) : code_page_(code_page) {}

  void operator()(std::int32_t number) { Put(static_cast<std::uint32_t>(number), 4); }
  void operator()(double ratio) { Put(std::bit_cast<std::uint64_t>(ratio), 8); }
  void operator()(const ConfigFileRecord::Table& table) {
    for (const std::int32_t number : table) (*this)(number);
  }
  void operator()(const String& text) {
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
  RecordReader(std::span<const std::byte> bytes, platform::CodePage& code_page)
      : rest_(bytes), code_page_(code_page) {}

  void operator()(std::int32_t& number) {
    number = static_cast<std::int32_t>(static_cast<std::uint32_t>(TakeNumber(4)));
  }
  void operator()(double& ratio) { ratio = std::bit_cast<double>(TakeNumber(8)); }
  void operator()(ConfigFileRecord::Table& table) {
    for (std::int32_t& number : table) (*this)(number);
  }
  void operator()(String& text) {
    const auto bytes = Take(static_cast<std::size_t>(TakeNumber(2)));
    std::string encoded;
    for (const std::byte byte : bytes) encoded += static_cast<char>(byte);
    text = code_page_.Decode(encoded);
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

  std::span<const std::byte> rest_;
  platform::CodePage& code_page_;
};

}  // namespace

std::vector<std::byte> EncodeConfigFileRecord(const ConfigFileRecord& record,
                                              platform::CodePage& code_page) {
  RecordWriter writer(code_page);
  VisitFields(record, writer);
  return std::move(writer).Bytes();
}

ConfigFileRecord DecodeConfigFileRecord(std::span<const std::byte> bytes,
                                        platform::CodePage& code_page) {
  ConfigFileRecord record;
  VisitFields(record, RecordReader(bytes, code_page));
  return record;
}

}  // namespace tolvane
