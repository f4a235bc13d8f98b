#include <gtest/gtest.h>

#include "receive/adapters/board_name.h"
#include "receive/adapters/interfacecan.h"

namespace tolvane {
namespace {

TEST(BoardName, KnowsEachModelByDeviceAndSubsystem) {
  const struct {
    std::int32_t ulDeviceID;
    std::int32_t ulSubsystemID;
    StringView name;
  } kBoards[] = {
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
  for (const auto& board : kBoards) {
    EXPECT_EQ(Get_Board_Name(board.ulDeviceID, board.ulSubsystemID), board.name)
        << board.ulDeviceID << ' ' << board.ulSubsystemID;
  }
}

TEST(BoardName, IsEmptyForAnyOtherPair) {
  EXPECT_EQ(Get_Board_Name(4851, 8341), u"");
  EXPECT_EQ(Get_Board_Name(8340, 4851), u"");
  EXPECT_EQ(Get_Board_Name(0, 0), u"");
}

TEST(StatusMessage, GivesTheLibrarysTextOfEachFailure) {
  const struct {
    std::uint32_t status;
    StringView text;
  } kMessages[] = {
      {0xC0000001u, u"The current driver cannot be used."},
      {0xC0000002u, u"The current driver is deleted."},
      {0xC0000003u, u"Invalid parameters are specified."},
      {0xC0000004u, u"The data area passed to the system call is too small."},
      {0xC0000005u, u"The port tried to close before opening the port."},
      {0xC0000006u, u"Not enough memory."},
      {0xC0000007u, u"The buffer is full."},
      {0xC0000008u, u"The buffer is empty."},
      {0xC0000009u, u"Invalid function is specified."},
      {0xC000000Au, u"The device handle is invalid."},
      {0xC000000Bu, u"The specified capability is not supported."},
      {0xC000000Cu, u"It is cycle or data transmission now."},
      {0xC000000Du, u"USB communicate Timeout."},
      {0xC000000Eu, u"USB communicate failed."},
  };
  for (const auto& message : kMessages) {
    EXPECT_EQ(InterfaceCAN().Get_Status_Message(static_cast<std::int32_t>(message.status)),
              message.text);
  }
}

TEST(StatusMessage, FailuresHaveTheirNamesInRisingOrder) {
  const InterfaceCAN board;
  const std::int32_t kFailures[] = {
      board.IFCAN_ERROR_NOT_READY,         board.IFCAN_ERROR_ACCESS_DENIED,
      board.IFCAN_ERROR_INVALID_PARAMETER, board.IFCAN_ERROR_INSUFFICIENT_BUFFER,
      board.IFCAN_ERROR_NOT_OPEN,          board.IFCAN_ERROR_MEMORY_NOTALLOCATED,
      board.IFCAN_ERROR_BUFFER_IS_FULL,    board.IFCAN_ERROR_BUFFER_IS_EMPTY,
      board.IFCAN_ERROR_CANNOT_ACCESS,     board.IFCAN_ERROR_INVALID_HANDLE,
      board.IFCAN_ERROR_NOT_SUPPORTED,     board.IFCAN_ERROR_NOW_SENDING,
      board.IFCAN_ERROR_USB_TIMEOUT,       board.IFCAN_ERROR_USBIO_FAILED,
  };
  std::uint32_t expected = 0xC0000001u;
  for (const std::int32_t failure : kFailures) {
    EXPECT_EQ(failure, static_cast<std::int32_t>(expected++));
  }
}

TEST(StatusMessage, IsEmptyForSuccessAndForAnUnknownStatus) {
  const InterfaceCAN board;
  EXPECT_EQ(board.Get_Status_Message(board.IFCAN_ERROR_SUCCESS), u"");
  EXPECT_EQ(board.Get_Status_Message(-1), u"");
  EXPECT_EQ(board.Get_Status_Message(static_cast<std::int32_t>(0xC000000Fu)), u"");
}

}  // namespace
}  // namespace tolvane
