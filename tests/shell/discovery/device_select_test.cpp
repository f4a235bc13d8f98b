#include "shell/discovery/device_select.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "platform/memory/memory_platform.h"
#include "shell/discovery/adapter_discovery.h"

namespace tolvane {
namespace {

using testing::ElementsAre;

class DeviceSelect : public testing::Test {
 protected:
  std::int32_t Select(std::int32_t line) {
    device_.t_CmbBOX_device_SelectNo = line;
    return Apply_Device_Select(memory_.Platform(), memory_.window.TB_ODB_Hard_Version, device_,
                               CAN_u_, CAN_d_, IfCan_d_, kvCan_u_, kvCan_d_);
  }
  [[nodiscard]] String Shown() { return memory_.window.TB_ODB_Hard_Version.Text(); }

  void FindCanusb(StringView serial) {
    CAN_d_.CAN_USB_FindCount = 1;
    CAN_d_.CAN_USB_FindSerialNo(1, String(serial));
  }

  platform::memory::MemoryPlatform memory_;
  ELM327_Info device_{u"C:\\Tolvane"};
  CANUSB CAN_u_;
  CAN_DB CAN_d_;
  CAN_DB_Interface IfCan_d_;
  KvaserCAN kvCan_u_;
  CAN_DB_Kvaser kvCan_d_;
};

struct LineRow {
  std::int32_t line;
  std::int32_t vender;
  std::int32_t select_no;  // of that kind
};

TEST_F(DeviceSelect, LinesRunOverTheThreeListsInOrder) {
  CAN_d_.CAN_USB_FindCount = 2;
  IfCan_d_.Interface_CAN_FindCount = 1;
  kvCan_d_.Kvaser_FindCount = 2;
  for (const LineRow& row : {LineRow{0, kVenderCanusb, 0}, LineRow{1, kVenderCanusb, 1},
                             LineRow{2, kVenderCanusb, 2}, LineRow{3, kVenderInterface, 1},
                             LineRow{4, kVenderKvaser, 1}, LineRow{5, kVenderKvaser, 2}}) {
    Select(row.line);
    EXPECT_EQ(device_.t_select_Vender, row.vender) << row.line;
    const std::int32_t select_no = row.vender == kVenderCanusb ? CAN_d_.CAN_USB_SelectNo
                                   : row.vender == kVenderInterface
                                       ? IfCan_d_.Interface_CAN_SelectNo
                                       : kvCan_d_.KvCAN_SelectNo;
    EXPECT_EQ(select_no, row.select_no) << row.line;
  }
}

TEST_F(DeviceSelect, ALineBeyondTheListsSelectsNothing) {
  CAN_d_.CAN_USB_FindCount = 1;
  IfCan_d_.Interface_CAN_FindCount = 1;
  kvCan_d_.Kvaser_FindCount = 1;
  for (const std::int32_t line : {4, 1000, -1}) {
    device_.t_select_Vender = kVenderCanusb;
    EXPECT_EQ(Select(line), 0) << line;
    EXPECT_EQ(device_.t_select_Vender, kVenderNone) << line;
  }
  EXPECT_EQ(Shown(), u"Nothing");
}

TEST_F(DeviceSelect, Line0WithCanusbOpensOneWithAnEmptySerialText) {
  FindCanusb(u"LAW00001");
  Select(0);
  EXPECT_EQ(device_.t_select_Vender, kVenderCanusb);
  EXPECT_EQ(CAN_d_.CAN_USB_SelectSerial, u"");
  EXPECT_EQ(memory_.journal.Lines().front(), "canusb_Open(\"\", \"500\", 0, -1, 1)");
}

TEST_F(DeviceSelect, Line0WithoutCanusbSelectsNothing) {
  kvCan_d_.Kvaser_FindCount = 1;
  EXPECT_EQ(Select(0), 0);
  EXPECT_EQ(device_.t_select_Vender, kVenderNone);
}

TEST_F(DeviceSelect, CanusbIsOpenedForAMomentAt500k) {
  FindCanusb(u"LAW00001");
  memory_.canusbdrv.version = "V0201N0001";
  memory_.canusbdrv.version_result = 1;
  EXPECT_EQ(Select(1), 1);
  EXPECT_EQ(Shown(), u"V0201N0001");
  EXPECT_EQ(CAN_d_.CAN_USB_Version, u"V0201N0001");
  EXPECT_EQ(CAN_d_.CAN_USB_SelectSerial, u"LAW00001");
  EXPECT_EQ(CAN_d_.CAN_USB_Handle, 1);
  EXPECT_THAT(memory_.journal.Take(),
              ElementsAre("canusb_Open(\"LAW00001\", \"500\", 0, -1, 1)", "canusb_VersionInfo(1)",
                          "TB_ODB_Hard_Version.Text = \"V0201N0001\"", "canusb_Close(1)"));
}

TEST_F(DeviceSelect, CanusbOpensWithTheBytesThatTheSearchGave) {
  const std::string serial = "LAW\xB1\x81\xFF\x80-1";
  memory_.canusbdrv.serials = {serial};
  Find_CANUSB_Adapters(memory_.Platform(), CAN_d_);
  memory_.journal.Clear();
  Select(1);
  EXPECT_EQ(memory_.journal.Lines().front(), "canusb_Open(\"" + serial + "\", \"500\", 0, -1, 1)");
}

TEST_F(DeviceSelect, CanusbThatDoesNotOpenKeepsTheText) {
  for (const std::int32_t handle : {0, -3}) {
    FindCanusb(u"LAW00001");
    memory_.canusbdrv.open_result = handle;
    EXPECT_EQ(Select(1), 0) << handle;
    EXPECT_EQ(Shown(), u"Nothing") << handle;
    EXPECT_EQ(CAN_d_.CAN_USB_Handle, handle);
    EXPECT_THAT(memory_.journal.Take(),
                ElementsAre("canusb_Open(\"LAW00001\", \"500\", 0, -1, 1)"));
  }
}

TEST_F(DeviceSelect, CanusbWithoutAVersionShowsQuestionMarksAndStaysSelected) {
  FindCanusb(u"LAW00001");
  for (const bool written : {true, false}) {
    for (const std::int32_t result : {0, -1}) {
      CAN_d_.CAN_USB_Version = u"of the adapter before";
      memory_.canusbdrv.writes_on_refusal = written;
      memory_.canusbdrv.version_result = result;
      EXPECT_EQ(Select(1), result);
      EXPECT_EQ(Shown(), u"???");
      EXPECT_EQ(CAN_d_.CAN_USB_Version, written ? u"V1011" : u"");
      EXPECT_EQ(device_.t_select_Vender, kVenderCanusb);
    }
  }
}

TEST_F(DeviceSelect, CanusbVersionLosesItsNulsAndMayFillItsBuffer) {
  FindCanusb(u"LAW00001");
  memory_.canusbdrv.version = std::string("V1\0.2\0x", 7);
  Select(1);
  EXPECT_EQ(Shown(), u"V1.2x");
  memory_.canusbdrv.version = std::string(64, 'v');
  Select(1);
  EXPECT_EQ(Shown(), String(64, u'v'));
}

TEST_F(DeviceSelect, InterfaceShowsTheBoardWithItsSuffix) {
  IfCan_d_.Interface_CAN_FindCount = 2;
  IfCan_d_.IfCAN_info_ulDeviceID(1, 4852);
  IfCan_d_.IfCAN_info_ulSubsystemID(1, 8350);
  IfCan_d_.IfCAN_info_ulRevisionID(1, 3);
  IfCan_d_.IfCAN_info_ulChannelNumber(1, 2);
  IfCan_d_.IfCAN_info_ulPhysicalLayer(1, 1);
  IfCan_d_.IfCAN_info_ulPhysicalLayer(2, 2);
  EXPECT_EQ(Select(1), 1);
  EXPECT_EQ(Shown(), u"Interface PCI-485230P RevID:3 ch:2 高速CAN対応");
  EXPECT_EQ(Select(2), 1);
  EXPECT_EQ(Shown(), u"Interface  RevID:0 ch:0") << "unknown board, low speed";
}

constexpr std::int32_t kSerialItem = 7;
constexpr std::int32_t kFirmwareItem = 9;
constexpr std::int32_t kProductItem = 11;

class KvaserSelect : public DeviceSelect {
 protected:
  void FindChannels(std::int32_t count) {
    kvCan_d_.Kvaser_FindCount = count;
    for (std::int16_t i = 0; i < count; ++i) kvCan_d_.Kvaser_DevHandle(i, 100 + i);
  }
  /// What the card behind `handle` says about `item`: two words, low byte first.
  void Answer(std::int32_t handle, std::int32_t item, std::uint32_t word1, std::uint32_t word2) {
    std::vector<std::byte>& bytes = memory_.canlib32.channel_data[{handle, item}];
    bytes.clear();
    for (const std::uint32_t word : {word1, word2}) {
      for (int shift = 0; shift < 32; shift += 8) bytes.push_back(std::byte(word >> shift & 0xFF));
    }
  }
};

TEST_F(KvaserSelect, ShowsProductSerialAndFirmwareOfTheNextChannel) {
  FindChannels(2);
  Answer(101, kSerialItem, 12345, 0);
  Answer(101, kFirmwareItem, 0x00450007, 0x00030012);
  Answer(101, kProductItem, 0x13000241, 0x00073301);
  EXPECT_EQ(Select(1), 1);
  EXPECT_EQ(kvCan_d_.KvCAN_SelectNo, 1);
  EXPECT_EQ(Shown(), u"P/N：73-30113-00024-1  S/N：12345  FW：3.18.69");
  EXPECT_THAT(memory_.journal.Take(),
              ElementsAre("canGetChannelData(101, 7, 8)", "canGetChannelData(101, 9, 8)",
                          "canGetChannelData(101, 11, 8)", testing::_));
}

TEST_F(KvaserSelect, WhatTheLibraryDoesNotTellIsZero) {
  FindChannels(2);
  for (const std::int32_t item : {kSerialItem, kFirmwareItem, kProductItem}) {
    Answer(101, item, 12345, 6);
  }
  Select(1);
  EXPECT_EQ(Shown(), u"P/N：0-00600-00303-9  S/N：12345  FW：0.6.0");
  memory_.canlib32.data_result = -1;
  EXPECT_EQ(Select(1), 1);
  EXPECT_EQ(Shown(), u"P/N：0-00000-00000-0  S/N：0  FW：0.0.0");
}

TEST_F(KvaserSelect, TheLastChannelShowsTheCardOfHandle0) {
  FindChannels(2);
  Answer(0, kSerialItem, 9, 0);
  Select(2);
  EXPECT_EQ(Shown(), u"P/N：0-00000-00000-0  S/N：9  FW：0.0.0");
}

TEST_F(KvaserSelect, TheThirtiethChannelStaysInsideTheList) {
  FindChannels(30);
  Answer(0, kSerialItem, 30, 0);
  Select(30);
  EXPECT_EQ(kvCan_d_.KvCAN_SelectNo, 30);
  EXPECT_EQ(Shown(), u"P/N：0-00000-00000-0  S/N：30  FW：0.0.0");
}

TEST_F(KvaserSelect, FullNumbersComeOutUnsignedButTheSerialSigned) {
  FindChannels(1);
  for (const std::int32_t item : {kSerialItem, kFirmwareItem, kProductItem}) {
    Answer(0, item, 0xFFFFFFFF, 0xFFFFFFFF);
  }
  Select(1);
  EXPECT_EQ(Shown(), u"P/N：FFFFF-FFFFF-FFFFF-F  S/N：-1  FW：65535.65535.65535");
}

TEST_F(KvaserSelect, InnerProductDigitsKeepTheirZeros) {
  FindChannels(1);
  Answer(0, kProductItem, 0x00000010, 0x0B00A00A);
  Select(1);
  EXPECT_EQ(Shown(), u"P/N：B00A-00A00-00001-0  S/N：0  FW：0.0.0");
}

}  // namespace
}  // namespace tolvane
