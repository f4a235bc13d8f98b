#include "simulator/office/xls_writer.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "simulator/office/compound_file.h"
#include "simulator/office/little_endian.h"

namespace tolvane::office {
namespace {

// stream  = globals, sheet
// globals = bof, code page, { font }, 15 style formats, { cell format }, bound sheet, eof
// sheet   = bof, { column info }, dimensions, { label | blank }, window, [ merged ], eof
enum Record : std::uint32_t {
  kEof = 0x000A,
  kFont = 0x0031,
  kCodePage = 0x0042,
  kColumnInfo = 0x007D,
  kBoundSheet = 0x0085,
  kExtendedFormat = 0x00E0,
  kMergedCells = 0x00E5,
  kDimensions = 0x0200,
  kBlank = 0x0201,
  kLabel = 0x0204,
  kWindow = 0x023E,
  kBof = 0x0809,
};

constexpr std::uint32_t kGlobals = 0x0005;
constexpr std::uint32_t kWorksheet = 0x0010;
constexpr std::uint32_t kStyleFormats = 15;     // cell formats are counted behind them
constexpr std::uint32_t kLightYellow = 43;      // colour index 36 of the default palette
constexpr std::uint32_t kAutomaticColour = 64;  // of borders and fill patterns
constexpr std::uint32_t kAutomaticBackground = 65;

void AppendRecord(std::string& out, Record kind, const std::string& body) {
  Append16(out, kind);
  Append16(out, static_cast<std::uint32_t>(body.size()));
  out += body;
}

void AppendUnits(std::string& out, StringView text) {
  const bool wide =
      std::any_of(text.begin(), text.end(), [](char16_t unit) { return unit > 0xFF; });
  Append8(out, wide ? 1 : 0);
  for (const char16_t unit : text) AppendLittleEndian(out, unit, wide ? 2 : 1);
}

void AppendBof(std::string& out, std::uint32_t part) {
  std::string body;
  Append16(body, 0x0600);  // version
  Append16(body, part);
  Append16(body, 0x0DBB);  // build
  Append16(body, 1996);    // year
  Append32(body, 0);
  Append32(body, 6);  // lowest version that reads it
  AppendRecord(out, kBof, body);
}

void AppendFont(std::string& out, const CellStyle& style) {
  constexpr StringView kName = u"MS PGothic";
  std::string body;
  Append16(body, static_cast<std::uint32_t>(style.font_size * 20));  // twentieths of a point
  Append16(body, 0);                                                 // attributes
  Append16(body, 0x7FFF);                                            // automatic colour
  Append16(body, 400);                                               // weight
  Append16(body, 0);                                                 // escapement
  Append32(body, 0);  // underline, family, character set
  Append8(body, static_cast<std::uint32_t>(kName.size()));
  AppendUnits(body, kName);
  AppendRecord(out, kFont, body);
}

void AppendFormat(std::string& out, std::uint32_t font, std::uint32_t kind,
                  const CellStyle& style) {
  constexpr std::uint32_t kBottom = 0x20;
  constexpr std::uint32_t kRight = 0x03;
  constexpr std::uint32_t kThinOnFourSides = 0x1111;
  constexpr std::uint32_t kTwoColours = kAutomaticColour | kAutomaticColour << 7;
  constexpr std::uint32_t kSolid = 1U << 26;
  std::string body;
  Append16(body, font);
  Append16(body, 0);  // number format: general
  Append16(body, kind);
  Append8(body, kBottom | (style.right_aligned ? kRight : 0U));
  Append16(body, 0);  // rotation, indent
  Append8(body, kind == 1 ? 0xFC : 0);
  Append32(body, style.bordered ? kThinOnFourSides | kTwoColours << 16 : 0U);
  Append32(body, (style.bordered ? kTwoColours : 0U) | (style.filled ? kSolid : 0U));
  Append16(body, (style.filled ? kLightYellow : kAutomaticColour) | kAutomaticBackground << 7);
  AppendRecord(out, kExtendedFormat, body);
}

void AppendBoundSheet(std::string& out) {
  constexpr StringView kName = u"Sheet1";
  std::string body;
  const std::size_t sheet_start = out.size() + 4 + 4 + 2 + 2 + kName.size() + 4;
  Append32(body, static_cast<std::uint32_t>(sheet_start));
  Append16(body, 0);  // a visible worksheet
  Append8(body, static_cast<std::uint32_t>(kName.size()));
  AppendUnits(body, kName);
  AppendRecord(out, kBoundSheet, body);
}

void AppendGlobals(std::string& out, const std::vector<CellStyle>& styles) {
  constexpr std::uint32_t kStyleKind = 0xFFF5;
  constexpr std::uint32_t kCellKind = 1;
  AppendBof(out, kGlobals);
  AppendRecord(out, kCodePage, std::string("\xB0\x04", 2));  // 1200, UTF-16
  // There is no font 4 in this format: the fifth record is font 5. At least four are expected.
  const std::size_t fonts = std::max<std::size_t>(4, styles.size());
  for (std::size_t index = 0; index < fonts; ++index) {
    AppendFont(out, styles[std::min(index, styles.size() - 1)]);
  }
  for (std::uint32_t index = 0; index < kStyleFormats; ++index) {
    AppendFormat(out, 0, kStyleKind, CellStyle{});
  }
  std::uint32_t font = 0;
  for (const CellStyle& style : styles) {
    AppendFormat(out, font < 4 ? font : font + 1, kCellKind, style);
    ++font;
  }
  AppendBoundSheet(out);
  AppendRecord(out, kEof, {});
}

void AppendColumnWidths(std::string& out, const Sheet& sheet) {
  for (const auto& [column, width] : sheet.ColumnWidths()) {
    std::string body;
    Append16(body, static_cast<std::uint32_t>(column - 1));
    Append16(body, static_cast<std::uint32_t>(column - 1));
    Append16(body, static_cast<std::uint32_t>(width * 256));
    Append16(body, kStyleFormats);
    Append32(body, 0);
    AppendRecord(out, kColumnInfo, body);
  }
}

void AppendDimensions(std::string& out, const Area& used) {
  std::string body;
  Append32(body, 0);
  Append32(body, static_cast<std::uint32_t>(used.last_row));
  Append16(body, 0);
  Append16(body, static_cast<std::uint32_t>(used.last_column));
  Append16(body, 0);
  AppendRecord(out, kDimensions, body);
}

void AppendCell(std::string& out, std::size_t row, std::size_t column, const Cell& cell) {
  constexpr std::size_t kLabel_MAX = 255;
  if (cell.IsLeftOut()) return;
  std::string body;
  Append16(body, static_cast<std::uint32_t>(row));
  Append16(body, static_cast<std::uint32_t>(column));
  Append16(body, kStyleFormats + cell.style);
  if (!cell.text.empty()) {
    const StringView text = StringView(cell.text).substr(0, kLabel_MAX);
    Append16(body, static_cast<std::uint32_t>(text.size()));
    AppendUnits(body, text);
  }
  AppendRecord(out, cell.text.empty() ? kBlank : kLabel, body);
}

void AppendMerged(std::string& out, const std::vector<Area>& areas) {
  if (areas.empty()) return;
  std::string body;
  Append16(body, static_cast<std::uint32_t>(areas.size()));
  for (const Area& area : areas) {
    Append16(body, static_cast<std::uint32_t>(area.first_row - 1));
    Append16(body, static_cast<std::uint32_t>(area.last_row - 1));
    Append16(body, static_cast<std::uint32_t>(area.first_column - 1));
    Append16(body, static_cast<std::uint32_t>(area.last_column - 1));
  }
  AppendRecord(out, kMergedCells, body);
}

void AppendSheet(std::string& out, const Sheet& sheet) {
  AppendBof(out, kWorksheet);
  AppendColumnWidths(out, sheet);
  AppendDimensions(out, sheet.Used());
  for (std::size_t row = 0; row < sheet.Rows().size(); ++row) {
    const std::vector<Cell>& cells = sheet.Rows()[row];
    for (std::size_t column = 0; column < cells.size(); ++column) {
      AppendCell(out, row, column, cells[column]);
    }
  }
  std::string window;
  Append16(window, 0x06B6);  // grid lines, headings, zeros, selected
  window.append(16, '\0');
  AppendRecord(out, kWindow, window);
  AppendMerged(out, sheet.Merged());
  AppendRecord(out, kEof, {});
}

}  // namespace

std::optional<std::string> WriteXls(const Sheet& sheet) {
  std::string stream;
  AppendGlobals(stream, sheet.Styles());
  AppendSheet(stream, sheet);
  return WriteCompoundFile("Workbook", stream);
}

}  // namespace tolvane::office
