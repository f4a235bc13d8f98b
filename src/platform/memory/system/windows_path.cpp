#include "platform/memory/system/windows_path.h"

#include <algorithm>
#include <vector>

namespace tolvane::platform::memory {

namespace {

bool IsSeparator(char16_t character) { return character == u'\\' || character == u'/'; }

/// The names between the separators, as they are written.
std::vector<StringView> NamesOf(StringView path) {
  std::vector<StringView> names;
  while (!path.empty()) {
    const auto end = std::ranges::find_if(path, IsSeparator);
    const auto length = static_cast<std::size_t>(end - path.begin());
    if (length > 0) names.push_back(path.substr(0, length));
    path.remove_prefix(std::min(length + 1, path.size()));
  }
  return names;
}

StringView WithoutOnePeriod(StringView name) {
  const bool one = name.ends_with(u'.') && !name.ends_with(u"..");
  return one ? name.substr(0, name.size() - 1) : name;
}

StringView WithoutBlanksAndPeriods(StringView name) {
  const std::size_t last = name.find_last_not_of(u" .");
  return name.substr(0, last + 1);  // all of them: npos and one make 0
}

bool IsDevice(StringView name) {
  String device(WithoutBlanksAndPeriods(name.substr(0, name.find(u'.'))));
  for (char16_t& letter : device) {
    if (letter >= u'a' && letter <= u'z') letter = static_cast<char16_t>(letter - u'a' + u'A');
  }
  constexpr StringView kDevices[] = {u"CON", u"PRN", u"AUX", u"NUL"};
  if (std::ranges::find(kDevices, device) != std::end(kDevices)) return true;
  const bool is_port = device.starts_with(u"COM") || device.starts_with(u"LPT");
  return is_port && device.size() == 4 &&
         StringView(u"123456789¹²³").find(device[3]) != StringView::npos;
}

}  // namespace

String AsWindowsTakesIt(StringView path) {
  const bool ends_in_separator = !path.empty() && IsSeparator(path.back());
  std::vector<StringView> names = NamesOf(path);
  if (!names.empty() && !ends_in_separator && names.back() != u"." && names.back() != u"..") {
    names.back() = WithoutBlanksAndPeriods(names.back());
  }
  std::vector<StringView> taken;
  for (const StringView name : names) {
    if (name == u"..") {
      if (taken.size() > 1) taken.pop_back();  // the drive stays
    } else if (!name.empty() && name != u".") {
      taken.push_back(WithoutOnePeriod(name));
    }
  }
  String joined;
  if (!taken.empty() && IsSeparator(path.front())) joined += u'\\';
  for (const StringView name : taken) {
    if (!joined.empty() && joined.back() != u'\\') joined += u'\\';
    joined += name;
  }
  return joined;
}

StringView FolderOf(StringView taken) {
  return taken.substr(0, taken.rfind(u'\\') + 1);  // none: npos and one make 0
}

bool CanBeNamed(StringView taken) {
  const StringView name = taken.substr(FolderOf(taken).size());
  const auto is_refused = [](char16_t character) {
    return character < u' ' || StringView(u"<>:\"|?*").find(character) != StringView::npos;
  };
  return !std::ranges::any_of(name, is_refused) && !IsDevice(name);
}

}  // namespace tolvane::platform::memory
