#include "simulator/office/xlsx_styles.h"

#include <cstddef>

namespace tolvane::office {
namespace {

// Fills 0 and 1 are given by the format; 2 is the light yellow. Border 1 is thin on four sides.
constexpr const char* kFillsAndBorders =
    R"(<fills count="3"><fill><patternFill patternType="none"/></fill><fill><patternFill patternType="gray125"/></fill><fill><patternFill patternType="solid"><fgColor rgb="FFFFFF99"/><bgColor indexed="64"/></patternFill></fill></fills><borders count="2"><border><left/><right/><top/><bottom/><diagonal/></border><border><left style="thin"><color auto="1"/></left><right style="thin"><color auto="1"/></right><top style="thin"><color auto="1"/></top><bottom style="thin"><color auto="1"/></bottom><diagonal/></border></borders><cellStyleXfs count="1"><xf numFmtId="0" fontId="0" fillId="0" borderId="0"/></cellStyleXfs>)";

std::string FormatXml(const CellStyle& style, std::size_t font) {
  std::string out = R"(<xf numFmtId="0" fontId=")" + std::to_string(font) + R"(" fillId=")" +
                    (style.filled ? "2" : "0") + R"(" borderId=")" + (style.bordered ? "1" : "0") +
                    R"(" xfId="0" applyFont="1" applyFill="1" applyBorder="1")";
  return out + (style.right_aligned ? R"( applyAlignment="1"><alignment horizontal="right"/></xf>)"
                                    : "/>");
}

}  // namespace

std::string StylesXml(const std::vector<CellStyle>& styles) {
  const std::string count = std::to_string(styles.size());
  std::string fonts;
  std::string formats;
  for (std::size_t index = 0; index < styles.size(); ++index) {
    fonts += R"(<font><sz val=")" + std::to_string(styles[index].font_size) +
             R"("/><name val="MS PGothic"/></font>)";
    formats += FormatXml(styles[index], index);
  }
  return R"(<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<styleSheet xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main"><fonts count=")" +
         count + R"(">)" + fonts + "</fonts>" + kFillsAndBorders + R"(<cellXfs count=")" + count +
         R"(">)" + formats +
         R"(</cellXfs><cellStyles count="1"><cellStyle name="Normal" xfId="0" builtinId="0"/></cellStyles></styleSheet>)";
}

}  // namespace tolvane::office
