#include "simulator/office/xml_text.h"

#include "platform/utf8.h"

namespace tolvane::office {
namespace {

void AppendControl(std::string& out, char16_t control) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  out += "_x00";
  out.push_back(kDigits[control >> 4]);
  out.push_back(kDigits[control & 0xF]);
  out.push_back('_');
}

}  // namespace

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

}  // namespace tolvane::office
