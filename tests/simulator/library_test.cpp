// Loads the built libraries by name, as the program does, and drives them through their exports.

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/windows/abi/canlib_abi.h"
#include "platform/windows/abi/canusbdrv_abi.h"
#include "platform/windows/abi/ifcan_abi.h"
#include "platform/windows/vendor/vendor_libraries.h"
#include "tests/simulator/library_bed.h"

namespace tolvane::simulator {
namespace {

namespace abi = platform::windows::abi;
namespace fs = std::filesystem;

/// A library while it is loaded; its exports are those of `Abi`.
template <typename Abi>
class Loaded {
 public:
  explicit Loaded(const fs::path& file) : module_(LoadLibraryW(file.c_str())) {
    if (module_ == nullptr) {
      ADD_FAILURE() << "error " << GetLastError() << " loading " << file;
      return;
    }
    ForEachExport(calls, [this](const char* name, auto& member) {
      const FARPROC address = GetProcAddress(module_, name);
      EXPECT_NE(address, nullptr) << name;
      static_assert(sizeof(address) == sizeof(member));
      std::memcpy(&member, &address, sizeof(member));
    });
  }
  ~Loaded() {
    if (module_ != nullptr) FreeLibrary(module_);
  }
  Loaded(const Loaded&) = delete;
  Loaded& operator=(const Loaded&) = delete;

  Abi calls{};

 private:
  HMODULE module_;
};

constexpr std::string_view kLog =
    "(1.000) c 123#0102\n(1.002) c 1FFFFFFF#0102030405060708\n(1.003) c 7FF#R4\n";

TEST_F(SimulatedLibrary, CanusbdrvGivesRecordsAndReports) {
  WriteFile("bus.log", kLog);
  UseBench(std::string(kBus) +
           "[canusb]\nsearch_upper_half=0xBEEF\n"
           "[canusb 1]\nserial=12345678901234567890123456789012\nversion=V5\n");
  {
    Loaded<abi::Canusbdrv> library(SimulatorFolder() / "canusbdrv.dll");
    const abi::Canusbdrv& calls = library.calls;
    std::array<char, 33> serial{};
    serial.back() = '!';
    EXPECT_EQ(calls.canusb_getFirstAdapter(serial.data(), 32), 1);
    EXPECT_EQ(std::string_view(serial.data(), 33), "12345678901234567890123456789012!");
    EXPECT_EQ(calls.canusb_getNextAdapter(serial.data(), 32), 0);
    EXPECT_EQ(serial.front(), '1') << "nothing is written";
    std::array<char, 16> rate{"500"};
    rate[11] = '!';
    const std::int32_t handle =
        calls.canusb_Open("12345678901234567890123456789012", rate.data(), 0, -1, 1);
    ASSERT_GT(handle, 0);
    EXPECT_EQ(std::string_view(rate.data(), 12), std::string_view("500 kbit/s\0!", 12))
        << "written back into the room behind it";
    std::array<char, 64> version{};
    EXPECT_EQ(calls.canusb_VersionInfo(handle, version.data()), 1);
    EXPECT_STREQ(version.data(), "V5");
    // One millisecond of bus time passes with each read.
    platform::CanusbMessage message{};
    message.data.fill(0xEE);
    EXPECT_EQ(calls.canusb_Read(handle, &message), 1);
    EXPECT_EQ(message.id, 0x123);
    EXPECT_EQ(message.len, 2);
    EXPECT_EQ(message.data[1], 2);
    EXPECT_EQ(message.data[2], 0xEE) << "no more than the length says";
    EXPECT_EQ(calls.canusb_Read(handle, &message), 1);
    EXPECT_EQ(message.id, 0x1FFFFFFF);
    EXPECT_EQ(message.timestamp, 2);
    EXPECT_EQ(message.flags, 128);
    EXPECT_EQ(message.len, 8);
    EXPECT_EQ(message.data, (std::array<std::uint8_t, 8>{1, 2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(calls.canusb_Read(handle, &message), 1);
    EXPECT_EQ(message.flags, 64);
    EXPECT_EQ(calls.canusb_Read(handle, &message), -7);
    EXPECT_NE(Report().find("canusb_Open("), std::string::npos) << "readable while loaded";
    EXPECT_EQ(calls.canusb_Close(handle), 1);
  }
  EXPECT_NE(Report().find(" reads=4 delivered=3 dropped=0 longest_gap_ms=1.000"), std::string::npos)
      << Report();
  EXPECT_TRUE(Report().ends_with("canusbdrv unload\n")) << Report();
}

TEST_F(SimulatedLibrary, IfcanGivesRecordsAndReports) {
  WriteFile("bus.log", kLog);
  UseBench(std::string(kBus) + "[interface 7]\nconfig=0,1,2,3,4,5,295\n");
  {
    Loaded<abi::Ifcan> library(SimulatorFolder() / "IFCan.dll");
    const abi::Ifcan& calls = library.calls;
    EXPECT_EQ(calls.CanOpenPort("IFCAN1"), -1);
    const std::int32_t handle = calls.CanOpenPort("IFCAN7");
    ASSERT_NE(handle, -1);
    platform::IfcanPortInformation information{};
    EXPECT_EQ(calls.CanGetPortInformation(handle, &information), 0);
    EXPECT_EQ(information.ulStructLength, 36);
    EXPECT_EQ(information.ulPhysicalLayer, 1);
    platform::IfcanConfig config{};
    EXPECT_EQ(calls.CanGetConfig(handle, &config), 0);
    EXPECT_EQ(config.passed_through[4], 5);
    EXPECT_EQ(config.baud_rate, 295);
    EXPECT_EQ(calls.CanSetConfig(handle, &config), 0);
    EXPECT_EQ(calls.CanActivate(handle), 0);
    platform::IfcanMessage message{};
    std::int32_t count = 1;
    EXPECT_EQ(calls.CanReceiveMessage(handle, &message, &count), 0);
    EXPECT_EQ(message.id, 0x123);
    EXPECT_EQ(message.dlc, 2);
    count = 1;
    EXPECT_EQ(calls.CanReceiveMessage(handle, &message, &count), 0);
    EXPECT_EQ(static_cast<std::uint32_t>(message.id), 0x9FFFFFFFu);
    EXPECT_EQ(message.data[7], 8);
    EXPECT_EQ(message.timestamp, 2'000);
    EXPECT_EQ(calls.CanDeactivate(handle), 0);
    EXPECT_EQ(calls.CanClosePort(handle), 0);
  }
  EXPECT_NE(Report().find("IFCan CanSetConfig(0, 0, 1, 2, 3, 4, 5, 295) = 0\n"), std::string::npos);
  EXPECT_TRUE(Report().ends_with("IFCan unload\n"));
}

TEST_F(SimulatedLibrary, Canlib32GivesRecordsAndReports) {
  WriteFile("bus.log", kLog);
  UseBench(std::string(kBus) + "[kvaser 0]\nname=zero\n[kvaser 1]\nupc=0x0733012345678905\n");
  {
    Loaded<abi::Canlib> library(SimulatorFolder() / "canlib32.dll");
    const abi::Canlib& calls = library.calls;
    calls.canInitializeLibrary();
    std::int32_t count = 0;
    EXPECT_EQ(calls.canGetNumberOfChannels(&count), 0);
    EXPECT_EQ(count, 2);
    std::array<char, 64> name{};
    EXPECT_EQ(calls.canGetChannelData(0, 13, name.data(), name.size()), 0);
    EXPECT_STREQ(name.data(), "zero");
    std::array<std::uint32_t, 2> upc{};
    EXPECT_EQ(calls.canGetChannelData(1, 11, upc.data(), 8), 0);
    EXPECT_EQ(upc[0], 0x45678905u);
    const std::int32_t handle = calls.canOpenChannel(1, 128);
    EXPECT_EQ(handle, 0);
    EXPECT_EQ(calls.canSetBusParams(handle, -2, 5, 2, 1, 1, 0), 0);
    EXPECT_EQ(calls.canSetBusOutputControl(handle, 1), 0);
    EXPECT_EQ(calls.canBusOn(handle), 0);
    std::int32_t id = 0;
    std::array<std::uint8_t, 8> data{0, 0, 0xEE};
    std::int32_t dlc = 0;
    std::int32_t flag = 0;
    std::int32_t time = 0;
    EXPECT_EQ(calls.canRead(handle, &id, data.data(), &dlc, &flag, &time), 0);
    EXPECT_EQ(data[1], 2);
    EXPECT_EQ(data[2], 0xEE) << "no more than the length says";
    EXPECT_EQ(calls.canRead(handle, &id, data.data(), &dlc, &flag, &time), 0);
    EXPECT_EQ(id, 0x1FFFFFFF);
    EXPECT_EQ(data[7], 8);
    EXPECT_EQ(dlc, 8);
    EXPECT_EQ(flag, 4);
    EXPECT_EQ(time, 2);
    EXPECT_EQ(calls.canBusOff(handle), 0);
    EXPECT_EQ(calls.canClose(handle), 0);
  }
  EXPECT_NE(Report().find("canlib32 canSetBusParams(0, -2, 5, 2, 1, 1, 0) = 0\n"),
            std::string::npos);
  EXPECT_TRUE(Report().ends_with("canlib32 unload\n"));
}

/// As long as the buffer, the NULs as slashes.
template <std::size_t size>
std::string Shown(const std::array<char, size>& buffer) {
  std::string text(buffer.data(), buffer.size());
  std::ranges::replace(text, '\0', '/');
  return text;
}

TEST_F(SimulatedLibrary, CanusbdrvWritesIntoTheProgramsOwnBuffers) {
  const fs::path file = folder_ / "canusbdrv.dll";
  fs::copy_file(SimulatorFolder() / "canusbdrv.dll", file);
  UseBench("[canusb 1]\nserial=LONGER-ONE\nversion=V5\n[canusb 2]\nserial=SHORTER\n");
  platform::windows::WindowsCanusb library(file.u16string());
  std::array<char, 32> serial;
  serial.fill('?');
  EXPECT_EQ(library.canusb_getFirstAdapter(serial), 1);
  EXPECT_EQ(Shown(serial), "LONGER-ONE/?????????????????????");
  EXPECT_EQ(library.canusb_getNextAdapter(serial), 1);
  EXPECT_EQ(Shown(serial), "SHORTER/NE/?????????????????????");
  EXPECT_EQ(library.canusb_getNextAdapter(serial), 0);
  EXPECT_EQ(Shown(serial), "SHORTER/NE/?????????????????????") << "nothing is written";
  std::array<char, 64> version;
  version.fill('?');
  std::string rate = "500";
  const std::int32_t handle = library.canusb_Open("LONGER-ONE", rate, 0, -1, 1);
  EXPECT_EQ(rate, "500 kbit/s");
  EXPECT_EQ(library.canusb_VersionInfo(handle, version), 1);
  EXPECT_EQ(Shown(version), "V5/" + std::string(61, '?'));
  library.canusb_Close(handle);
  // The program leaves it loaded, and its folder could not be removed.
  FreeLibrary(GetModuleHandleW(file.c_str()));
}

TEST_F(SimulatedLibrary, TheBenchFileBesideTheLibraryIsUsed) {
  fs::copy_file(SimulatorFolder() / "canusbdrv.dll", folder_ / "canusbdrv.dll");
  WriteFile("tolvane-bench.ini", "[canusb 1]\nserial=BESIDE1\n");
  Loaded<abi::Canusbdrv> library(folder_ / "canusbdrv.dll");
  std::array<char, 32> serial{};
  EXPECT_GT(library.calls.canusb_getFirstAdapter(serial.data(), 32), 0);
  EXPECT_STREQ(serial.data(), "BESIDE1");
}

}  // namespace
}  // namespace tolvane::simulator
