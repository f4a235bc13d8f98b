#include "shell/common_function.h"

#include <cmath>
#include <limits>
#include <optional>
#include <variant>

#include "logging/spreadsheet_server.h"

namespace tolvane::Common_Function {

namespace {

/// The number before the decimal point: "16.0" gives 16. Empty when there are no digits, or more
/// than a version number has.
std::optional<std::int32_t> LeadingNumber(StringView text) {
  std::optional<std::int32_t> number;
  for (const char16_t digit : text) {
    if (digit < u'0' || digit > u'9') break;
    number = number.value_or(0) * 10 + (digit - u'0');
    if (*number > 99'999'999) return {};
  }
  return number;
}

std::optional<std::int32_t> MajorVersion(platform::AutomationObject& server) {
  const auto version = server.Get(u"Version", {});
  if (!version) return {};
  if (const auto* text = std::get_if<String>(&*version)) return LeadingNumber(*text);
  if (const auto* number = std::get_if<std::int32_t>(&*version)) return *number;
  if (const auto* number = std::get_if<double>(&*version);
      number != nullptr && std::fabs(*number) <= std::numeric_limits<std::int32_t>::max()) {
    return static_cast<std::int32_t>(*number);
  }
  return {};
}

/// Starts the server and releases it again. False when there is none. `version` is unchanged when
/// the server does not report one.
bool IsInstalled(platform::AutomationServers& servers, StringView name, std::int32_t& version) {
  const auto server = servers.CreateObject(name);
  if (server == nullptr) return false;
  version = MajorVersion(*server).value_or(version);
  return true;
}

}  // namespace

void Access_Install_Check(ELM327_Info& device, platform::AutomationServers& servers) {
  device.AccessInstallCheck =
      IsInstalled(servers, u"Access.Application", device.AccessInstallVersion) ? 1 : 0;
}

void Excel_Install_Check(ELM327_Info& device, platform::AutomationServers& servers) {
  device.ExcelInstallCheck = IsInstalled(servers, kExcelServer, device.ExcelInstallVersion) ? 1 : 0;
  // The version is that of Excel; with Kingsoft alone it stays 0.
  if (servers.CreateObject(kKetServer) != nullptr) {
    device.ExcelInstallCheck = device.ExcelInstallCheck == 1 ? 3 : 2;
  }
  if (device.ExcelInstallCheck == 0) device.t_LogSaveFormat = kLogFormatCsv;
}

}  // namespace tolvane::Common_Function
