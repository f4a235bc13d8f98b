#pragma once

#include <string>

#include "platform/string.h"
#include "view/page_rtf.h"

namespace tolvane {

/// The document that the program writes for a page without colours, such as lglist.dat.
inline std::string RtfOf(StringView text) {
  std::string rtf;
  WritePageRtf({String(text), {}, {}}, rtf);
  return rtf;
}

}  // namespace tolvane
