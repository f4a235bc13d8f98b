#include "simulator/office/xlsx_writer.h"

#include <charconv>
#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/utf8.h"
#include "simulator/office/xlsx_styles.h"
#include "simulator/office/zip_archive.h"

namespace tolvane::office {
namespace {

constexpr std::string_view kContentTypes =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types"><Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/><Default Extension="xml" ContentType="application/xml"/><Override PartName="/xl/workbook.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml"/><Override PartName="/xl/worksheets/sheet1.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml"/><Override PartName="/xl/styles.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.styles+xml"/><Override PartName="/xl/sharedStrings.xml" ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.sharedStrings+xml"/></Types>)";

constexpr std::string_view kPackageRelations =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships"><Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/officeDocument" Target="xl/workbook.xml"/></Relationships>)";

constexpr std::string_view kWorkbook =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<workbook xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main" xmlns:r="http://schemas.openxmlformats.org/officeDocument/2006/relationships"><sheets><sheet name="Sheet1" sheetId="1" r:id="rId1"/></sheets></workbook>)";

constexpr std::string_view kWorkbookRelations =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<Relationships xmlns="http://schemas.openxmlformats.org/package/2006/relationships"><Relationship Id="rId1" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/worksheet" Target="worksheets/sheet1.xml"/><Relationship Id="rId2" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/styles" Target="styles.xml"/><Relationship Id="rId3" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/sharedStrings" Target="sharedStrings.xml"/></Relationships>)";

constexpr std::string_view kSheetStart =
    R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<worksheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main">)";

void AppendControl(std::string& out, char16_t control) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  out += "_x00";
  out.push_back(kDigits[control >> 4]);
  out.push_back(kDigits[control & 0xF]);
  out.push_back('_');
}

/// Control characters, which XML cannot hold, are written as the workbook format wants,
/// "_x0007_".
void AppendXmlText(std::string& out, StringView text) {
  std::size_t plain_start = 0;
  for (std::size_t index = 0; index < text.size(); ++index) {
    const char16_t unit = text[index];
    const bool control = unit < 0x20 && unit != u'\t' && unit != u'\n';
    if (!control && unit != u'&' && unit != u'<' && unit != u'>') continue;
    AppendUtf8(out, text.substr(plain_start, index - plain_start));
    plain_start = index + 1;
    if (control) {
      AppendControl(out, unit);
    } else {
      out += unit == u'&' ? "&amp;" : unit == u'<' ? "&lt;" : "&gt;";
    }
  }
  AppendUtf8(out, text.substr(plain_start));
}

/// The texts of a workbook, each once. The views belong to the sheet.
class SharedStrings {
 public:
  std::size_t Index(StringView text) {
    const auto [entry, added] = indices_.try_emplace(text, texts_.size());
    if (added) texts_.push_back(text);
    return entry->second;
  }

  [[nodiscard]] std::string Xml() const {
    std::string out =
        R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<sst xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main">)";
    for (const StringView text : texts_) {
      out += R"(<si><t xml:space="preserve">)";
      AppendXmlText(out, text);
      out += "</t></si>";
    }
    out += "</sst>";
    return out;
  }

 private:
  std::unordered_map<StringView, std::size_t> indices_;
  std::vector<StringView> texts_;
};

void AppendNumber(std::string& out, auto number) {
  char digits[32];
  const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
  out.append(digits, end);
}

void AppendColumns(std::string& out, const Sheet& sheet) {
  if (sheet.ColumnWidths().empty()) return;
  out += "<cols>";
  for (const auto& [column, width] : sheet.ColumnWidths()) {
    out += R"(<col min=")";
    AppendNumber(out, column);
    out += R"(" max=")";
    AppendNumber(out, column);
    out += R"(" width=")";
    AppendNumber(out, width);
    out += R"(" style="0" customWidth="1"/>)";
  }
  out += "</cols>";
}

void AppendCell(std::string& out, const Cell& cell, std::string_view column, std::string_view row,
                SharedStrings& strings) {
  out += R"(<c r=")";
  out += column;
  out += row;
  if (cell.style != 0) {
    out += R"(" s=")";
    AppendNumber(out, cell.style);
  }
  if (cell.text.empty()) {
    out += R"("/>)";
    return;
  }
  out += R"(" t="s"><v>)";
  AppendNumber(out, strings.Index(cell.text));
  out += "</v></c>";
}

void AppendRow(std::string& out, const std::vector<Cell>& cells, std::string_view row,
               const std::vector<std::string>& column_names, SharedStrings& strings) {
  const std::size_t start = out.size();
  out += R"(<row r=")";
  out += row;
  out += R"(">)";
  const std::size_t first_cell = out.size();
  for (std::size_t index = 0; index < cells.size(); ++index) {
    if (cells[index].IsLeftOut()) continue;
    AppendCell(out, cells[index], column_names[index], row, strings);
  }
  if (out.size() == first_cell) {
    out.resize(start);
  } else {
    out += "</row>";
  }
}

std::string SheetXml(const Sheet& sheet, SharedStrings& strings) {
  const Area used = sheet.Used();
  std::vector<std::string> column_names;
  for (int column = 1; column <= used.last_column; ++column) {
    column_names.push_back(ColumnName(column));
  }
  std::string out(kSheetStart);
  out += R"(<dimension ref=")" + AreaText(used) + R"("/>)";
  AppendColumns(out, sheet);
  out += "<sheetData>";
  for (std::size_t index = 0; index < sheet.Rows().size(); ++index) {
    AppendRow(out, sheet.Rows()[index], std::to_string(index + 1), column_names, strings);
  }
  out += "</sheetData>";
  if (sheet.Filter()) out += R"(<autoFilter ref=")" + AreaText(*sheet.Filter()) + R"("/>)";
  if (!sheet.Merged().empty()) {
    out += "<mergeCells>";
    for (const Area& area : sheet.Merged())
      out += R"(<mergeCell ref=")" + AreaText(area) + R"("/>)";
    out += "</mergeCells>";
  }
  out += "</worksheet>";
  return out;
}

}  // namespace

std::string WriteXlsx(const Sheet& sheet) {
  SharedStrings strings;
  ZipArchive archive;
  archive.Add("[Content_Types].xml", kContentTypes);
  archive.Add("_rels/.rels", kPackageRelations);
  archive.Add("xl/workbook.xml", kWorkbook);
  archive.Add("xl/_rels/workbook.xml.rels", kWorkbookRelations);
  archive.Add("xl/styles.xml", StylesXml(sheet.Styles()));
  archive.Add("xl/worksheets/sheet1.xml", SheetXml(sheet, strings));
  archive.Add("xl/sharedStrings.xml", strings.Xml());
  return archive.Finish();
}

}  // namespace tolvane::office
