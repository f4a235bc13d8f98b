#pragma once

#include <cstddef>

#include "platform/string.h"

namespace tolvane {

// The head of a csv file. Its first line: title, copyright and home page. Then, with an empty line
// where none is named: the moment of writing, kCsvBitRate and the bit rate; the adapter; the
// comment; the columns. Behind each line, CR LF.

// Lines, from 0.
inline constexpr std::size_t kCsvWrittenLine = 2;
inline constexpr std::size_t kCsvAdapterLine = 3;
inline constexpr std::size_t kCsvCommentLine = 5;
inline constexpr std::size_t kCsvColumnsLine = 7;
inline constexpr std::size_t kCsvHeadLines = kCsvColumnsLine + 1;

inline constexpr StringView kCsvCopyrightGap = u",,,";
inline constexpr StringView kCsvHomePageGap = u",,,,";
inline constexpr StringView kCsvBitRate = u",,,bit rate：,";

inline constexpr StringView kCsvColumns11 = u"  時間[ms] , ID  ,DLC,  D1,D2,D3,D4,D5,D6,D7,D8";
inline constexpr StringView kCsvColumns29 =
    u"  時間[ms] , E ,    ID    ,DLC,  D1,D2,D3,D4,D5,D6,D7,D8";

}  // namespace tolvane
