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

/// Starts the server that the settings choose, hidden and without alerts. False when no server
/// could be started (`objExcel` is then empty) or when it refused a property (`objExcel` then holds
/// it, and the caller must end it). Does not yield.
[[nodiscard]] bool StartSpreadsheetServer(const ELM327_Info& device,
                                          platform::AutomationServers& servers,
                                          std::unique_ptr<platform::AutomationObject>& objExcel);

/// Restores the server's screen settings, ends it and empties `objExcel`. False when the server
/// refused a step; `objExcel` is emptied even then. True when there is no server.
bool EndSpreadsheetServer(std::unique_ptr<platform::AutomationObject>& objExcel);

}  // namespace tolvane
