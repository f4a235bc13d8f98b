#pragma once

#include <string>
#include <vector>

namespace tolvane::window {

/// What the program asks of an office program, as the stand-in records it: a line for each call.
using Calls = std::vector<std::string>;

void Append(Calls& lines, const Calls& more);

/// The creation of the server, which is a line but no call, and what makes it silent.
[[nodiscard]] Calls ConnectCalls(const std::string& server);
/// What gives the server its screen back and ends it.
[[nodiscard]] Calls DisconnectCalls();

/// What one flush asks of the server, in order; `saving` are the words behind SaveAs. The date is
/// blanked, as NormalCalls leaves it.
[[nodiscard]] Calls FlushCalls(const std::string& saving);

/// The lines without what differs from run to run: date, folder and hour of the file.
[[nodiscard]] Calls NormalCalls(Calls lines);

}  // namespace tolvane::window
