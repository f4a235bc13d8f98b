#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "platform/memory/main_window/timer.h"
#include "platform/memory/system/event_loop.h"
#include "platform/memory/system/support_library.h"
#include "platform/memory/vendor/canlib_library.h"
#include "platform/memory/vendor/canusb_library.h"
#include "platform/memory/vendor/frame_script.h"
#include "platform/memory/vendor/ifcan_library.h"

namespace tolvane::platform::memory {
namespace {

TEST(MemoryEventLoop, AHandlerThatYieldsIsHandedTheNextEventInside) {
  EventGate gate;
  EventLoop loop(gate);
  loop.YieldToEvents();
  std::vector<std::string> journal;
  loop.OnYield([&] {
    if (journal.size() >= 4) return;
    journal.push_back("event");
    loop.YieldToEvents();
    journal.push_back("its end");
  });
  loop.YieldToEvents();
  EXPECT_EQ(journal, (std::vector<std::string>{"event", "event", "event", "event", "its end",
                                               "its end", "its end", "its end"}));
  EXPECT_EQ(loop.Yields(), 6);
}

TEST(MemoryEventLoop, AYieldDeliversWhatWaitsAtTheGateFirst) {
  EventGate gate;
  EventLoop loop(gate);
  std::vector<std::string> journal;
  loop.OnYield([&] { journal.push_back("yield"); });
  gate.Deliver([&] {
    gate.Deliver([&] { journal.push_back("waited"); });
    EXPECT_TRUE(journal.empty());
    loop.YieldToEvents();
  });
  EXPECT_EQ(journal, (std::vector<std::string>{"waited", "yield"}));
}

TEST(MemoryTimer, TicksOnlyWhileItIsOn) {
  Journal journal;
  EventGate gate;
  Timer timer(journal, gate);
  int ticks = 0;
  timer.OnTick([&] { ++ticks; });
  timer.Tick();
  timer.Enabled(true);
  timer.Tick();
  timer.Enabled(false);
  timer.Tick();
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(timer.Interval(), 30);
}

TEST(MemoryTimer, ATickThatWaitsAtTheGateComesOnceAndNotAfterItsPeriod) {
  Journal journal;
  EventGate gate;
  Timer timer(journal, gate);
  int ticks = 0;
  timer.OnTick([&] { ++ticks; });
  timer.Enabled(true);
  const auto waits_twice = [&] {
    timer.Tick();
    timer.Tick();
  };
  gate.Deliver(waits_twice);
  EXPECT_EQ(ticks, 0);
  gate.DeliverWaiting();
  EXPECT_EQ(ticks, 1);
  gate.Deliver([&] {
    waits_twice();
    timer.Enabled(false);
    timer.Enabled(true);
  });
  gate.DeliverWaiting();
  EXPECT_EQ(ticks, 1);
}

TEST(MemorySupportLibrary, ClockMovesWhenItIsTold) {
  SupportLibrary qxt100;
  qxt100.Now(1000.0);
  qxt100.Advance(30.0);
  EXPECT_EQ(qxt100.qx_timeGetTime(), 1030.0);
  EXPECT_EQ(qxt100.Reads(), 1);
}

TEST(FrameScript, PlaysInOrderAsOftenAsTold) {
  FrameScript<int> script;
  EXPECT_EQ(script.Take(), nullptr);
  script.Play({1, 2}, 2);
  std::vector<int> played;
  while (const int* frame = script.Take()) played.push_back(*frame);
  EXPECT_EQ(played, (std::vector<int>{1, 2, 1, 2}));
  EXPECT_TRUE(script.Empty());
  script.Play({}, 5);
  EXPECT_EQ(script.Take(), nullptr);
  script.Play({1}, 0);
  EXPECT_EQ(script.Take(), nullptr);
}

TEST(MemoryCanusb, ListsItsAdaptersFromTheFirst) {
  Journal journal;
  CanusbLibrary library(journal);
  library.serials = {"LWR12345", "0123456789012345678901234567890123456789"};
  std::array<char, CanusbLibrary::kSerialSize> serial;
  for (int round = 0; round < 2; ++round) {
    serial.fill('x');
    EXPECT_GT(library.canusb_getFirstAdapter(serial), 0);
    EXPECT_EQ(std::string(serial.data()), "LWR12345");
    EXPECT_EQ(std::count(serial.begin(), serial.end(), 'x'), 23) << "what stood behind it stays";
    EXPECT_GT(library.canusb_getNextAdapter(serial), 0);
    EXPECT_EQ(std::string(serial.data(), serial.size()), "01234567890123456789012345678901");
    EXPECT_EQ(library.canusb_getNextAdapter(serial), 0);
  }
  std::array<char, CanusbLibrary::kVersionSize> version;
  EXPECT_EQ(library.canusb_VersionInfo(4, version), 1);
  EXPECT_EQ(std::string(version.data()), "V1011");
}

TEST(MemoryCanusb, WritesNothingWhereItRefuses) {
  Journal journal;
  CanusbLibrary library(journal);
  library.serials = {"LWR12345", "LWR12346"};
  library.search_result = 0;
  library.version_result = -1;
  library.read_result = -4;
  library.frames.Play({{0x123, 1, 0, 1, {1}}});
  std::array<char, CanusbLibrary::kSerialSize> serial = {'x'};
  EXPECT_EQ(library.canusb_getFirstAdapter(serial), 0);
  EXPECT_EQ(serial[0], 'x');
  std::array<char, CanusbLibrary::kVersionSize> version = {'x'};
  EXPECT_EQ(library.canusb_VersionInfo(4, version), -1);
  EXPECT_EQ(version[0], 'x');
  CanusbMessage message = {7, 0, 0, 0, {}};
  EXPECT_EQ(library.canusb_Read(4, message), -4);
  EXPECT_EQ(message.id, 7);
  library.writes_on_refusal = true;
  EXPECT_EQ(library.canusb_getNextAdapter(serial), 0);
  EXPECT_EQ(std::string(serial.data()), "LWR12346");
}

TEST(MemoryCanlib, WritesNothingWhereItRefuses) {
  Journal journal;
  CanlibLibrary library(journal);
  library.channels = {0};
  library.channel_data[{0, 13}] = {std::byte{'c'}};
  library.call_results["canGetNumberOfChannels"] = -1;
  library.data_result = -1;
  library.read_result = -1;
  library.frames.Play({{.id = 0x123, .msg = {1}, .dlc = 1, .flag = 2, .time = 3}});
  std::int32_t count = 7;
  EXPECT_EQ(library.canGetNumberOfChannels(count), -1);
  EXPECT_EQ(count, 7);
  std::array<std::byte, 1> buffer = {std::byte{9}};
  EXPECT_EQ(library.canGetChannelData(0, 13, buffer), -1);
  EXPECT_EQ(buffer[0], std::byte{9});
  std::int32_t id = 7, dlc = 7, flag = 7, time = 7;
  std::array<std::uint8_t, 8> msg = {7};
  EXPECT_EQ(library.canRead(0, id, msg, dlc, flag, time), -1);
  EXPECT_EQ((std::array{id, std::int32_t{msg[0]}, dlc, flag, time}), (std::array{7, 7, 7, 7, 7}));
  library.writes_on_refusal = true;
  EXPECT_EQ(library.canGetNumberOfChannels(count), -1);
  EXPECT_EQ(count, 1);
}

TEST(MemoryIfcan, WritesNothingWhereItRefuses) {
  Journal journal;
  IfcanLibrary library(journal);
  library.ports = {{.number = 3, .information_status = 5}};
  library.ports.front().information.ulBoardID = 7;
  IfcanConfig config = {};
  config.mode = 1;
  EXPECT_NE(library.CanGetConfig(-1, config), 0);
  library.get_config_status = 9;
  EXPECT_EQ(library.CanGetConfig(103, config), 9);
  EXPECT_EQ(config.mode, 1);
  IfcanPortInformation information = {};
  EXPECT_EQ(library.CanGetPortInformation(103, information), 5);
  EXPECT_EQ(information.ulBoardID, 0);
  library.writes_on_refusal = true;
  EXPECT_EQ(library.CanGetConfig(103, config), 9);
  EXPECT_EQ(config.mode, 7);
}

TEST(MemoryCanlib, RefusesAllCallsOrSingleOnes) {
  Journal journal;
  CanlibLibrary library(journal);
  library.call_results["canBusOn"] = -4;
  EXPECT_EQ(library.canBusOn(5), -4);
  EXPECT_EQ(library.canBusOff(5), 0);
  library.call_result = -1;
  EXPECT_EQ(library.canBusOn(5), -4);
  EXPECT_EQ(library.canBusOff(5), -1);
}

TEST(MemoryIfcan, RefusesHandlesOfNoPort) {
  Journal journal;
  IfcanLibrary library(journal);
  library.ports = {{.number = 3}};
  library.ports.front().information.ulBoardID = 7;
  EXPECT_EQ(library.CanOpenPort("IFCAN1"), -1);
  EXPECT_EQ(library.CanOpenPort("IFCAN3"), 103);
  IfcanPortInformation information = {};
  EXPECT_EQ(library.CanGetPortInformation(103, information), 0);
  EXPECT_EQ(information.ulBoardID, 7);
  EXPECT_NE(library.CanGetPortInformation(101, information), 0);
  EXPECT_NE(library.CanClosePort(-1), 0);
  EXPECT_EQ(library.CanClosePort(103), 0);
  library.ports.front().handle = 0;
  EXPECT_EQ(library.CanOpenPort("IFCAN3"), 0);
  EXPECT_EQ(library.CanClosePort(0), 0);
  EXPECT_NE(library.CanClosePort(103), 0);
}

TEST(MemoryCanlib, GivesTheDataOfItsChannels) {
  Journal journal;
  CanlibLibrary library(journal);
  library.channels = {0, -3};
  library.channel_data[{0, 13}] = {std::byte{'c'}, std::byte{'h'}};
  std::int32_t count = 0;
  EXPECT_EQ(library.canGetNumberOfChannels(count), 0);
  EXPECT_EQ(count, 2);
  EXPECT_EQ(library.canOpenChannel(1, 128), -3);
  EXPECT_LT(library.canOpenChannel(2, 128), 0);
  std::array<std::byte, 3> buffer = {std::byte{9}, std::byte{9}, std::byte{9}};
  EXPECT_EQ(library.canGetChannelData(0, 13, buffer), 0);
  EXPECT_EQ(buffer, (std::array<std::byte, 3>{std::byte{'c'}, std::byte{'h'}, std::byte{9}}));
  EXPECT_LT(library.canGetChannelData(0, 14, buffer), 0);
  EXPECT_EQ(journal.Lines().back(), "canGetChannelData(0, 14, 3)");
}

}  // namespace
}  // namespace tolvane::platform::memory
