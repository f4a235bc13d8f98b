#include "simulator/office/record.h"

#include <cstddef>

#include "platform/utf8.h"

namespace tolvane::office {
namespace {

std::string Quoted(StringView text) {
  std::string out = "\"";
  for (const char character : ToUtf8(text)) {
    if (character == '\n' || character == '\r') {
      out += character == '\n' ? "\\n" : "\\r";
      continue;
    }
    if (character == '"') out.push_back('"');
    out.push_back(character);
  }
  return out + "\"";
}

std::string HexText(std::uint32_t number) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string out;
  for (int shift = 28; shift >= 0; shift -= 4) out.push_back(kDigits[(number >> shift) & 0xFU]);
  return out;
}

/// The size, and the texts of a small one.
std::string TableText(const Table& table) {
  constexpr std::size_t kShown_MAX = 64;
  std::string out =
      "table(" + std::to_string(table.rows) + "x" + std::to_string(table.columns) + ")";
  if (table.texts.size() > kShown_MAX) return out;
  for (const String& text : table.texts) out += " " + Quoted(text);
  return out;
}

struct ValueTexts {
  std::string operator()(std::monostate) const { return "Empty"; }
  std::string operator()(bool value) const { return value ? "True" : "False"; }
  std::string operator()(std::int32_t value) const { return std::to_string(value); }
  std::string operator()(const String& value) const { return Quoted(value); }
  std::string operator()(const Table& value) const { return TableText(value); }
  std::string operator()(const Object& value) const { return value.text; }
};

void AppendNamed(std::string& out, std::string_view name, const std::optional<Value>& value) {
  if (!value) return;
  if (!out.empty()) out += ", ";
  out += name;
  out += ":=" + ValueText(*value);
}

}  // namespace

Record::Record(const std::filesystem::path& path) : file_(path, std::ios::binary | std::ios::app) {}

void Record::Line(std::string_view line) {
  if (file_.is_open()) file_ << line << '\n' << std::flush;
}

std::string ValueText(const Value& value) { return std::visit(ValueTexts{}, value); }

std::string MemberText(const Object& object, StringView member, const Arguments& arguments) {
  std::string list;
  for (const Value& value : arguments.positional) {
    if (!list.empty()) list += ", ";
    list += ValueText(value);
  }
  AppendNamed(list, "FileName", arguments.file_name);
  AppendNamed(list, "FileFormat", arguments.file_format);
  std::string out = object.text.empty() ? "" : object.text + ".";
  AppendUtf8(out, member);
  return list.empty() ? out : out + "(" + list + ")";
}

std::string OperationText(const Object& object, Verb verb, StringView member,
                          const Arguments& arguments) {
  if (verb != Verb::kPut) {
    return (verb == Verb::kGet ? "get " : "call ") + MemberText(object, member, arguments);
  }
  const std::string value =
      arguments.positional.empty() ? "" : ValueText(arguments.positional.front());
  return "put " + MemberText(object, member, {}) + " = " + value;
}

std::string ResultText(std::uint32_t result) {
  return result == kDone ? "" : " ! " + HexText(result);
}

}  // namespace tolvane::office
