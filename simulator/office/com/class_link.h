#pragma once

#include <string>

namespace tolvane::office {

// Windows shows what a user has registered among the classes of the machine, where creation by name
// looks. Wine looks at those of the machine alone; there a link to the user's key stands in for it,
// which holds nothing itself and goes with the last process of the prefix.

/// Makes the user's class key `key`, such as "Excel.Application", visible there if it is not.
[[nodiscard]] bool ShowAmongAllClasses(const std::wstring& key);

/// Takes such a link away; a key that is none stays.
void RemoveClassLink(const std::wstring& key);

}  // namespace tolvane::office
