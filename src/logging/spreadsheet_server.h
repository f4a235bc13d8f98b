#pragma once

#include <memory>

#include "platform/automation.h"
#include "platform/string.h"
#include "run/elm327_info.h"

namespace tolvane {

// The servers' names in the registry.
constexpr StringView kExcelServer = u"Excel.Application";
constexpr StringView kKetServer = u"Ket.Application";

/// True when a run with these settings writes its log through a spreadsheet server.
[[nodiscard]] bool UsesSpreadsheetServer(const ELM327_Info& device);

/// Starts the server that the settings choose and makes it silent. False when no server could be
/// started, `objExcel` then being empty, or when it refused a property; it is then in `objExcel`
/// and wants to be ended. Lets no event through.
[[nodiscard]] bool StartSpreadsheetServer(const ELM327_Info& device,
                                          platform::AutomationServers& servers,
                                          std::unique_ptr<platform::AutomationObject>& objExcel);

/// Gives the screen back to the server, ends it and empties `objExcel`. False when the server
/// refused a step; it is let go all the same. Without a server true.
bool EndSpreadsheetServer(std::unique_ptr<platform::AutomationObject>& objExcel);

}  // namespace tolvane
