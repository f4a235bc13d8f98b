#include "platform/windows/vendor/vendor_libraries.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "platform/windows/system/process.h"

namespace tolvane::platform::windows {
namespace {

TEST(UnusableLibrary, OneWithoutACalledExportFindsNothing) {
  const String wrong = ExecutableFolder() + u"\\..\\..\\..\\program\\qxt100.dll";

  WindowsCanusb canusb(wrong);
  std::array<char, CanusbLibrary::kSerialSize> serial{};
  std::string rate = "500";
  EXPECT_EQ(canusb.canusb_getFirstAdapter(serial), 0);
  EXPECT_EQ(canusb.canusb_getNextAdapter(serial), 0);
  EXPECT_EQ(canusb.canusb_Open("TV100001", rate, 0, -1, 1), 0);
  CanusbMessage message{};
  EXPECT_LE(canusb.canusb_Read(0, message), 0);
  canusb.canusb_Close(0);

  WindowsIfcan ifcan(wrong);
  IfcanConfig config{};
  EXPECT_EQ(ifcan.CanOpenPort("IFCAN1"), -1);
  EXPECT_NE(ifcan.CanGetConfig(-1, config), 0);
  EXPECT_NE(ifcan.CanClosePort(-1), 0);

  WindowsCanlib canlib(wrong);
  std::int32_t count = 7;
  canlib.canInitializeLibrary();
  EXPECT_LT(canlib.canGetNumberOfChannels(count), 0);
  EXPECT_EQ(count, 0);
  EXPECT_LT(canlib.canOpenChannel(0, 128), 0);
}

}  // namespace
}  // namespace tolvane::platform::windows
