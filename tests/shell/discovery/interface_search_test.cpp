#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "shell/discovery/adapter_discovery.h"
#include "tests/shell/discovery/search_bed.h"

namespace tolvane {
namespace {

using testing::ElementsAre;

class InterfaceSearch : public Search {
 protected:
  void Run() { Find_Interface_Ports(memory_.Platform(), IfCan_u_, IfCan_d_); }

  InterfaceCAN IfCan_u_;
  CAN_DB_Interface IfCan_d_;
};

TEST_F(InterfaceSearch, TriesPorts1To255AndClosesEachAnswer) {
  Run();
  EXPECT_EQ(IfCan_d_.Interface_CAN_FindCount, 0);
  const Lines lines = memory_.journal.Take();
  ASSERT_EQ(lines.size(), 2u * 255);
  EXPECT_EQ(lines[0], "CanOpenPort(\"IFCAN1\")");
  EXPECT_EQ(lines[508], "CanOpenPort(\"IFCAN255\")");
  EXPECT_EQ(CountOf(lines, "CanClosePort(-1)"), 255);
}

TEST_F(InterfaceSearch, GapsAreSkippedAndTheNumbersKept) {
  memory_.IFCan.ports = {{.number = 2}, {.number = 5}};
  Run();
  EXPECT_EQ(IfCan_d_.Interface_CAN_FindCount, 2);
  EXPECT_EQ(IfCan_d_.Interface_CAN_FindNo(1), 2);
  EXPECT_EQ(IfCan_d_.Interface_CAN_FindNo(2), 5);
  const Lines lines = memory_.journal.Take();
  const auto opened = std::find(lines.begin(), lines.end(), "CanOpenPort(\"IFCAN5\")");
  ASSERT_GE(lines.end() - opened, 3);
  EXPECT_THAT(Lines(opened + 1, opened + 3),
              ElementsAre("CanGetPortInformation(105)", "CanClosePort(105)"));
}

TEST_F(InterfaceSearch, StoresAllNineWordsAtThePlaceInTheList) {
  memory_.IFCan.ports = {{.number = 9, .information = {36, 4466, 4851, 8340, 3, 7, 11, 2, 1}}};
  Run();
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulStructLength(1), 36);
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulVendorID(1), 4466);
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulDeviceID(1), 4851);
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulSubsystemID(1), 8340);
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulRevisionID(1), 3);
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulBoardID(1), 7);
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulModelNumber(1), 11);
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulChannelNumber(1), 2);
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulPhysicalLayer(1), 1);
}

TEST_F(InterfaceSearch, APortWithoutInformationStaysWithZeros) {
  memory_.IFCan.writes_on_refusal = true;
  memory_.IFCan.ports = {{.number = 1,
                          .information = {36, 4466, 4851, 8340, 3, 7, 11, 2, 1},
                          .information_status = IfCan_u_.IFCAN_ERROR_NOT_READY}};
  Run();
  EXPECT_EQ(IfCan_d_.Interface_CAN_FindCount, 1);
  EXPECT_EQ(IfCan_d_.Interface_CAN_FindNo(1), 1);
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulDeviceID(1), 0);
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulPhysicalLayer(1), 0);
}

TEST_F(InterfaceSearch, HandleZeroIsAHandleAndNoCloseIsLookedAt) {
  memory_.IFCan.ports = {{.number = 1, .information = {36, 0, 4851, 0, 0, 0, 0, 0, 0}, .handle = 0},
                         {.number = 2}};
  memory_.IFCan.close_status = IfCan_u_.IFCAN_ERROR_NOT_READY;
  Run();
  EXPECT_EQ(IfCan_d_.Interface_CAN_FindCount, 2);
  EXPECT_EQ(IfCan_d_.IfCAN_info_ulDeviceID(1), 4851);
  const Lines lines = memory_.journal.Take();
  EXPECT_EQ(CountOf(lines, "CanClosePort(0)"), 1);
  EXPECT_EQ(CountOf(lines, "CanClosePort(102)"), 1);
}

TEST_F(InterfaceSearch, TakesAll255AndNeverAsksForMore) {
  for (std::int32_t n = 1; n <= 256; ++n) {
    memory_.IFCan.ports.push_back({.number = n, .information = {n, n, n, n, n, n, n, n, n}});
  }
  Run();
  EXPECT_EQ(IfCan_d_.Interface_CAN_FindCount, 255);
  for (std::int16_t n = 1; n <= 255; ++n) {
    for (const auto* column :
         {&IfCan_d_.Interface_CAN_FindNo, &IfCan_d_.IfCAN_info_ulStructLength,
          &IfCan_d_.IfCAN_info_ulVendorID, &IfCan_d_.IfCAN_info_ulDeviceID,
          &IfCan_d_.IfCAN_info_ulSubsystemID, &IfCan_d_.IfCAN_info_ulRevisionID,
          &IfCan_d_.IfCAN_info_ulBoardID, &IfCan_d_.IfCAN_info_ulModelNumber,
          &IfCan_d_.IfCAN_info_ulChannelNumber, &IfCan_d_.IfCAN_info_ulPhysicalLayer}) {
      ASSERT_EQ((*column)(n), n);
    }
  }
  EXPECT_EQ(CountOf(memory_.journal.Take(), "CanOpenPort(\"IFCAN256\")"), 0);
}

TEST_F(InterfaceSearch, LineNamesModelAndPort) {
  memory_.IFCan.ports = {{.number = 2, .information = {36, 0, 4851, 8340, 0, 0, 0, 0, 0}},
                         {.number = 5, .information = {36, 0, 1, 2, 0, 0, 0, 0, 0}}};
  Run();
  EXPECT_EQ(Interface_Line(IfCan_d_, 1), u"Interface PCI-485120 port:2");
  EXPECT_EQ(Interface_Line(IfCan_d_, 2), u"Interface  port:5") << "unknown model";
}

}  // namespace
}  // namespace tolvane
