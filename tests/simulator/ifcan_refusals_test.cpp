// What the simulated IFCan.dll refuses, and what it reports as a fault of the program.
#include <gtest/gtest.h>

#include <string>

#include "tests/simulator/ifcan_bed.h"

namespace tolvane::simulator {
namespace {

using platform::IfcanConfig;

constexpr std::int32_t kCannotAccess = Status(0xC0000009);
constexpr IfcanConfig kOfBoard{.mode = 0, .passed_through = {2, 3, 4, 5, 6}, .baud_rate = 295};

class IfcanRefuses : public IfcanBed {
 protected:
  /// A port with kOfBoard, opened; its handle.
  std::int32_t Open(const std::string& more = "") {
    Plug("[bus]\nsource=log\nlog=bus.log\n[interface 1]\nconfig=0,2,3,4,5,6,295\n" + more,
         "(1.0) c 123#01\n");
    return library_->CanOpenPort("IFCAN1");
  }

  /// The status of the activation with a configuration; writing it always succeeds.
  std::int32_t ActivateWith(std::int32_t handle, const IfcanConfig& config) {
    EXPECT_EQ(library_->CanSetConfig(handle, config), 0);
    return library_->CanActivate(handle);
  }
};

TEST_F(IfcanRefuses, ThePortThatWasNeverConfigured) {
  const std::int32_t handle = Open();
  IfcanConfig config{};
  EXPECT_EQ(library_->CanGetConfig(handle, config), 0) << "to read it is not enough";
  EXPECT_EQ(library_->CanActivate(handle), kInvalidParameter);
  EXPECT_EQ(Receive(handle), kEmpty);
  EXPECT_EQ(bench_.Faults(), Faults{"CanActivate: never configured"});
}

TEST_F(IfcanRefuses, ThePortThatWasConfiguredInAnEarlierOpen) {
  std::int32_t handle = Open();
  EXPECT_EQ(library_->CanSetConfig(handle, kOfBoard), 0);
  library_->CanClosePort(handle);
  handle = library_->CanOpenPort("IFCAN1");
  EXPECT_EQ(library_->CanActivate(handle), kInvalidParameter);
  EXPECT_EQ(bench_.Faults(), Faults{"CanActivate: never configured"});
}

TEST_F(IfcanRefuses, NoFaultWhereTheScriptRefusesTheConfiguration) {
  const std::int32_t handle = Open("CanSetConfig=0xC0000001\n");
  library_->CanSetConfig(handle, kOfBoard);
  EXPECT_EQ(library_->CanActivate(handle), kInvalidParameter);
  EXPECT_EQ(Receive(handle), kEmpty);
  library_->CanDeactivate(handle);
  library_->CanClosePort(handle);
  EXPECT_EQ(bench_.Faults(), Faults{});
}

TEST_F(IfcanRefuses, ModesThatThereAreNot) {
  const std::int32_t handle = Open();
  for (const std::int32_t mode : {2, 3, 7, -1, INT32_MAX}) {
    IfcanConfig config = kOfBoard;
    config.mode = mode;
    EXPECT_EQ(ActivateWith(handle, config), kInvalidParameter) << mode;
  }
  EXPECT_EQ(bench_.Faults(), Faults(5, "CanActivate: no such mode"));
}

TEST_F(IfcanRefuses, NoneOfTheModesThatThereAre) {
  const std::int32_t handle = Open();
  for (const std::int32_t mode : {0, 1, INT32_MIN, INT32_MIN + 1}) {
    IfcanConfig config = kOfBoard;
    config.mode = mode;
    EXPECT_EQ(ActivateWith(handle, config), 0) << mode;
    const std::string told = std::string("bus IFCAN1 bit_rate=500000 driver=") +
                             ((mode & 1) != 0 ? "silent" : "normal") + "\nIFCan CanActivate";
    EXPECT_NE(bench_.ReportText().find(told), std::string::npos) << mode;
    EXPECT_EQ(library_->CanDeactivate(handle), 0) << mode;
  }
  EXPECT_EQ(bench_.Faults(), Faults{});
}

TEST_F(IfcanRefuses, ChangesOfTheBoardsOwnWords) {
  const std::int32_t handle = Open();
  for (std::size_t word = 0; word < kOfBoard.passed_through.size(); ++word) {
    IfcanConfig config = kOfBoard;
    ++config.passed_through[word];
    EXPECT_EQ(ActivateWith(handle, config), kInvalidParameter) << word;
  }
  EXPECT_EQ(bench_.Faults(), Faults(5, "CanActivate: the board's own words are changed"));
}

TEST_F(IfcanRefuses, ZerosForTheWordsOfABoardThatNobodyDescribed) {
  Plug("[interface 1]\n");
  const std::int32_t handle = library_->CanOpenPort("IFCAN1");
  IfcanConfig config{};
  EXPECT_EQ(library_->CanGetConfig(handle, config), 0);
  for (std::size_t word = 0; word < config.passed_through.size(); ++word) {
    IfcanConfig zeroed = config;
    zeroed.passed_through[word] = 0;
    EXPECT_EQ(ActivateWith(handle, zeroed), kInvalidParameter) << word;
  }
  EXPECT_EQ(ActivateWith(handle, config), 0);
}

TEST_F(IfcanRefuses, RatesThatThereAreNot) {
  const std::int32_t handle = Open();
  for (const std::int32_t rate : {0, 294, 500, -1}) {
    IfcanConfig config = kOfBoard;
    config.baud_rate = rate;
    EXPECT_EQ(ActivateWith(handle, config), kInvalidParameter) << rate;
  }
  EXPECT_EQ(bench_.Faults(), Faults(4, "CanActivate: no such rate"));
}

TEST_F(IfcanRefuses, AnythingFromABusOfAnotherRate) {
  struct Rate {
    std::int32_t code;
    std::int32_t bit_rate;
  };
  constexpr Rate kRates[] = {{39, 1'000'000}, {295, 500'000},  {570, 250'000},
                             {1338, 125'000}, {2358, 100'000}, {3364, 95'200},
                             {3876, 83'300},  {7459, 50'000},  {10020, 33'300}};
  const std::int32_t handle = Open();
  for (const Rate& rate : kRates) {
    IfcanConfig config = kOfBoard;
    config.baud_rate = rate.code;
    library_->CanSetConfig(handle, config);
    const std::size_t before = bench_.Faults().size();
    EXPECT_EQ(library_->CanActivate(handle), 0);
    EXPECT_EQ(Receive(handle), rate.bit_rate == 500'000 ? 0 : kEmpty) << rate.code;
    EXPECT_EQ(bench_.Faults().size(), before + (rate.bit_rate == 500'000 ? 0 : 1));
    if (rate.bit_rate != 500'000) {
      EXPECT_EQ(bench_.Faults().back(),
                "IFCAN1 at " + std::to_string(rate.bit_rate) + " bit/s on a bus of 500000");
    }
    library_->CanDeactivate(handle);
  }
}

TEST_F(IfcanRefuses, ARoomOfAnythingButOneRecord) {
  const std::int32_t handle = Open();
  Activate(handle);
  for (const std::int32_t count : {0, 2, -1}) {
    count_ = count;
    EXPECT_EQ(library_->CanReceiveMessage(handle, message_, count_), kInvalidParameter) << count;
  }
  EXPECT_EQ(bench_.Faults(), Faults{"CanReceiveMessage: the room is not one record"});
  EXPECT_EQ(Receive(handle), 0);
  EXPECT_EQ(count_, 1);
  EXPECT_EQ(library_->CanReceiveMessage(handle, message_, count_), kEmpty);
  EXPECT_EQ(count_, 0) << "which is no room the next time";
}

TEST_F(IfcanRefuses, AReadOffTheBusAndTellsItOnce) {
  const std::int32_t handle = Open();
  EXPECT_EQ(Receive(handle), kEmpty);
  EXPECT_EQ(Receive(handle), kEmpty);
  const Faults faults{"CanReceiveMessage: the port is not active"};
  EXPECT_EQ(bench_.Faults(), faults);
  Activate(handle);
  library_->CanDeactivate(handle);
  EXPECT_EQ(Receive(handle), kEmpty);
  EXPECT_EQ(bench_.Faults(), (Faults{faults[0], faults[0]}));
}

TEST_F(IfcanRefuses, AConfigurationOrAnActivationOfAnActivePort) {
  const std::int32_t handle = Open();
  Activate(handle);
  EXPECT_EQ(library_->CanSetConfig(handle, kOfBoard), kCannotAccess);
  EXPECT_EQ(library_->CanActivate(handle), kCannotAccess);
  EXPECT_EQ(bench_.Faults(),
            (Faults{"CanSetConfig: the port is active", "CanActivate: the port is active"}));
}

TEST_F(IfcanRefuses, TheEndOfWhatHasNotBegunAndTheReverse) {
  const std::int32_t handle = Open();
  EXPECT_EQ(library_->CanOpenPort("IFCAN1"), -1);
  EXPECT_EQ(library_->CanDeactivate(handle), 0);
  Activate(handle);
  EXPECT_EQ(library_->CanClosePort(handle), 0);
  library_->CanOpenPort("IFCAN1");
  library_.reset();
  EXPECT_EQ(bench_.Faults(),
            (Faults{"CanOpenPort: already open", "CanDeactivate: the port is not active",
                    "CanClosePort: the port is active", "IFCAN1 is left open"}));
}

TEST_F(IfcanRefuses, HandlesThatAreNotOpenButForgivesTheOneThatIsNone) {
  Open();
  IfcanConfig config{};
  EXPECT_EQ(library_->CanGetConfig(-1, config), kInvalidHandle);
  EXPECT_EQ(library_->CanDeactivate(-1), kInvalidHandle);
  EXPECT_EQ(library_->CanClosePort(-1), kInvalidHandle);
  EXPECT_EQ(bench_.Faults(), Faults{});
  EXPECT_EQ(library_->CanActivate(-1), kInvalidHandle);
  EXPECT_EQ(library_->CanClosePort(9), kInvalidHandle);
  EXPECT_EQ(bench_.Faults(), (Faults{"CanActivate: no open port has the handle -1",
                                     "CanClosePort: no open port has the handle 9"}));
}

}  // namespace
}  // namespace tolvane::simulator
