#pragma once

#include "platform/string.h"

namespace tolvane {

// The head of a csv file. Lines 1 and 2: title, copyright and home page, and nothing. Line 3: the
// moment of writing, kCsvBitRate, the bit rate. Line 4: the adapter. Line 6: the comment. Line 8:
// the columns. Behind each of them, and between, CR LF.

inline constexpr StringView kCsvCopyrightGap = u",,,";
inline constexpr StringView kCsvHomePageGap = u",,,,";
inline constexpr StringView kCsvBitRate = u",,,bit rate：,";

inline constexpr StringView kCsvColumns11 = u"  時間[ms] , ID  ,DLC,  D1,D2,D3,D4,D5,D6,D7,D8";
inline constexpr StringView kCsvColumns29 =
    u"  時間[ms] , E ,    ID    ,DLC,  D1,D2,D3,D4,D5,D6,D7,D8";

}  // namespace tolvane
