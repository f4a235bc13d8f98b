#include "receive/adapters/board_name.h"

namespace tolvane {
namespace {

struct Board {
  std::int32_t ulDeviceID;
  std::int32_t ulSubsystemID;
  StringView name;
};

constexpr Board kBoards[] = {
    {4851, 8340, u"PCI-485120"},  {4851, 14484, u"PCI-485120"}, {4851, 8331, u"PCI-485111"},
    {4851, 8322, u"PCI-485102"},  {4851, 8330, u"PCI-485110"},  {4852, 8340, u"PCI-485220"},
    {4852, 8331, u"PCI-485211"},  {4852, 8322, u"PCI-485202"},  {4852, 8350, u"PCI-485230P"},
    {4853, 8360, u"PCI-485340"},  {4853, 8342, u"PCI-485322"},  {4853, 8324, u"PCI-485304"},
    {4854, 8340, u"PCI-485420P"}, {4853, 9384, u"CPZ-485340"},  {4853, 9366, u"CPZ-485322"},
    {4853, 9348, u"CPZ-485304"},  {4852, 9364, u"CPZ-485220"},  {4852, 9355, u"CPZ-485211"},
    {4852, 9346, u"CPZ-485202"},  {4854, 9364, u"CPZ-485420P"}, {4851, 513, u"CBI-4851"},
    {4852, 513, u"CBI-4852"},     {4851, 10388, u"CBI-485120"}, {4852, 10388, u"CBI-485220"},
    {4854, 10388, u"CSI-485420"},
};

}  // namespace

StringView Get_Board_Name(std::int32_t ulDeviceID, std::int32_t ulSubsystemID) {
  for (const Board& board : kBoards) {
    if (board.ulDeviceID == ulDeviceID && board.ulSubsystemID == ulSubsystemID) return board.name;
  }
  return {};
}

}  // namespace tolvane
