#include "simulator/office/book_members.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "simulator/office/argument.h"
#include "simulator/office/xls_writer.h"
#include "simulator/office/xlsx_writer.h"

namespace tolvane::office {
namespace {

constexpr std::int32_t kXlsx = 51;
constexpr std::int32_t kXls = 56;
constexpr std::size_t kPath_MAX = 218;  // UTF-16 units, the name of the file among them

bool WriteFile(const std::filesystem::path& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  return !file.fail();
}

std::optional<std::string> BookBytes(const Sheet& sheet, std::int32_t format) {
  if (format == kXlsx) return WriteXlsx(sheet);
  if (format == kXls) return WriteXls(sheet);
  return std::nullopt;
}

/// A reference to another workbook puts the name of the file in brackets behind its folder, and all
/// of it has a limit: what could not be told in one is not saved.
bool CanBeReferredTo(StringView path) {
  return path.size() <= kPath_MAX && path.find_first_of(u"[]") == StringView::npos;
}

/// The file name comes by name or as the one positional argument.
const Value* FileName(const Arguments& arguments) {
  if (arguments.positional.size() + (arguments.file_name ? 1 : 0) != 1) return nullptr;
  return arguments.file_name ? &*arguments.file_name : &arguments.positional.front();
}

}  // namespace

Outcome AddWorkbook(Program& program, const Object&, Arguments& arguments) {
  if (!HasCount(arguments, 0)) return {kBadParameterCount, {}};
  program.books.push_back(std::make_shared<Sheet>());
  return {kDone, Object{ObjectKind::kWorkbook, program.books.back(), {}, {}}};
}

Outcome SaveAs(Program& program, const Object& object, Arguments& arguments) {
  const Value* const name = FileName(arguments);
  if (name == nullptr) return {kBadParameterCount, {}};
  const String* const file_name = std::get_if<String>(name);
  const std::optional<std::int32_t> format =
      arguments.file_format ? ToInteger(*arguments.file_format) : kXls;
  if (file_name == nullptr || !format) return {kTypeMismatch, {}};
  if (!CanBeReferredTo(*file_name)) return {kRefused, {}};

  const std::filesystem::path path(*file_name);
  std::error_code error;
  if (program.display_alerts && std::filesystem::exists(path, error)) return {kRefused, {}};
  const std::optional<std::string> bytes = BookBytes(*object.sheet, *format);
  return {bytes && WriteFile(path, *bytes) ? kDone : kRefused, {}};
}

Outcome Close(Program& program, const Object& object, Arguments& arguments) {
  if (!HasCount(arguments, 0)) return {kBadParameterCount, {}};
  const auto open = std::find(program.books.begin(), program.books.end(), object.sheet);
  if (open == program.books.end()) return {kRefused, {}};
  program.books.erase(open);
  return {};
}

}  // namespace tolvane::office
