#include "logging/spreadsheet_server.h"

#include "logging/automation_sequence.h"

namespace tolvane {

namespace {

/// Empty when the settings choose none.
StringView ServerName(const ELM327_Info& device) {
  const bool both = device.ExcelInstallCheck == 3;
  if (device.ExcelInstallCheck == 1 || (both && device.t_Excel_soft == 1)) return kExcelServer;
  if (device.ExcelInstallCheck == 2 || (both && device.t_Excel_soft == 2)) return kKetServer;
  return {};
}

void PutScreenState(AutomationSequence& sequence, platform::AutomationObject* objExcel, bool on) {
  for (const StringView name : {u"ScreenUpdating", u"Interactive", u"DisplayAlerts"}) {
    sequence.PutOf(objExcel, u"Application", name, on);
  }
}

}  // namespace

bool UsesSpreadsheetServer(const ELM327_Info& device) {
  return device.t_LogSave_Enable == 1 && device.ExcelInstallCheck >= 1 &&
         device.t_LogSaveFormat == kLogFormatSpreadsheet;
}

bool StartSpreadsheetServer(const ELM327_Info& device, platform::AutomationServers& servers,
                            std::unique_ptr<platform::AutomationObject>& objExcel) {
  const StringView name = ServerName(device);
  objExcel = name.empty() ? nullptr : servers.CreateObject(name);
  AutomationSequence sequence(objExcel.get());
  sequence.Put(objExcel.get(), u"Visible", false);
  PutScreenState(sequence, objExcel.get(), false);
  return sequence.Ok();
}

bool EndSpreadsheetServer(std::unique_ptr<platform::AutomationObject>& objExcel) {
  if (objExcel == nullptr) return true;
  AutomationSequence sequence(objExcel.get());
  PutScreenState(sequence, objExcel.get(), true);
  // Even after a failure; otherwise the hidden server would stay in memory.
  const bool ended = objExcel->Call(u"Quit", {}, {});
  objExcel.reset();
  return sequence.Ok() && ended;
}

}  // namespace tolvane
