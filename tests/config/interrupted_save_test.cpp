// Saving while other programs hold the files, while steps fail, and while the power goes.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <tuple>

#include "platform/memory/rich_text/rich_text_view.h"
#include "tests/config/config_test.h"

namespace tolvane {
namespace {

using platform::FileStep;

constexpr StringView kFolder = u"C:\\Tolvane";
constexpr std::int32_t kForever = 1'000'000;  // ms

/// A program folder with both files in it, and the program that saves them again.
class Machine {
 public:
  Machine() {
    files.AddFolder(kFolder);
    device.Param_ALL_Clear();
    view.Text(u"an old page with more on it");
    device.t_LogComment = u"an old comment";
    Save();
    device.t_bitRate = 7;
    device.t_dividend_ratio = 2.5;
    device.t_LogComment = u"shorter";
    view.Text(u"a new page");
  }

  bool Save() {
    FileSaveSystem::SaveViewList(device, files, view);
    return FileSaveSystem::SaveConfigFile(device, files, code_page) == FileSaveSystem::kConfigSaved;
  }
  /// What the program reads at its next start.
  void Load() {
    ELM327_Info read{String(kFolder)};
    read.Param_ALL_Clear();
    (void)FileSaveSystem::LoadConfigFile(read, files, code_page, message_box);
    FileSaveSystem::LoadViewList(read, files, view);
  }
  [[nodiscard]] std::string Config() const { return files.Bytes(kConfig).value_or("no file"); }
  [[nodiscard]] std::string List() const { return files.Bytes(kList).value_or("no file"); }

  static constexpr StringView kConfig = u"C:\\Tolvane\\config.dat";
  static constexpr StringView kList = u"C:\\Tolvane\\lglist.dat";

  platform::memory::Journal journal;
  platform::memory::CodePage932 code_page;
  platform::memory::FileSystem files{code_page};
  platform::EventGate gate;
  platform::memory::MessageBox message_box{journal, gate};
  platform::memory::RichTextView view{journal, files};
  ELM327_Info device{String(kFolder)};
};

void MakeFirstStart(Machine& machine) {
  machine.files.Remove(Machine::kConfig);
  machine.files.Remove(Machine::kList);
}

struct Trouble {
  const char* label;
  std::function<void(Machine&)> begin;
};

const Trouble kTroubles[] = {
    {"None", [](Machine&) {}},
    {"HeldForAMoment",
     [](Machine& machine) {
       machine.files.Hold(Machine::kConfig, 300);
       machine.files.Hold(Machine::kList, 300);
     }},
    {"HeldForLong",
     [](Machine& machine) {
       machine.files.Hold(Machine::kConfig, kForever);
       machine.files.Hold(Machine::kList, kForever);
     }},
    {"WhatIsWrittenIsScanned", [](Machine& machine) { machine.files.ScanWrittenFiles(100); }},
    {"WhatIsWrittenIsHeldForLong",
     [](Machine& machine) { machine.files.ScanWrittenFiles(kForever); }},
    {"FirstStart", MakeFirstStart},
    {"WithoutAJournal", [](Machine& machine) { machine.files.LoseNamesInAMove(); }},
    {"WithoutAJournalAndScanned",
     [](Machine& machine) {
       machine.files.LoseNamesInAMove();
       machine.files.ScanWrittenFiles(100);
     }},
};

class InterruptedSave : public testing::TestWithParam<Trouble> {
 protected:
  InterruptedSave() {
    Machine machine;
    old_config_ = machine.Config();
    old_list_ = machine.List();
    if (is_first_) MakeFirstStart(machine);
    EXPECT_TRUE(machine.Save());
    new_config_ = machine.Config();
    new_list_ = machine.List();
    EXPECT_NE(new_config_, old_config_);
    EXPECT_NE(new_list_, old_list_);
    EXPECT_EQ(new_config_.size() == old_config_.size(), !is_first_) << "an old tail stays";
  }

  [[nodiscard]] std::unique_ptr<Machine> Troubled() const {
    auto machine = std::make_unique<Machine>();
    GetParam().begin(*machine);
    return machine;
  }
  void ExpectWhole(const Machine& machine, const std::string& when) const {
    for (const auto& [is, was, becomes] : {std::tuple(machine.Config(), old_config_, new_config_),
                                           std::tuple(machine.List(), old_list_, new_list_)}) {
      EXPECT_TRUE(is == becomes || is == (is_first_ ? "no file" : was))
          << when << ": " << is.size() << " bytes, neither the old file nor the new one";
    }
  }

  const bool is_first_ = GetParam().label == std::string("FirstStart");
  std::string old_config_;
  std::string old_list_;
  std::string new_config_;
  std::string new_list_;
};

TEST_P(InterruptedSave, GetsThroughInTheEndAndLeavesNothingBeside) {
  const auto machine = Troubled();
  EXPECT_TRUE(machine->Save());
  machine->files.Pause(kForever);
  machine->Load();
  EXPECT_EQ(machine->Config(), new_config_);
  EXPECT_EQ(machine->List(), new_list_);
  EXPECT_EQ(machine->files.Files(kFolder).size(), 2U);
}

TEST_P(InterruptedSave, PowerCutAtAnyStepLeavesTheOldOrTheNewFile) {
  std::int32_t step = 0;
  for (bool cut = true; cut; ++step) {
    // The power goes in the save and comes back; in the next start it goes once more, at every
    // step of taking up what the first one left.
    bool cut_again = true;
    for (std::int32_t again = 0; cut_again; ++again) {
      const auto machine = Troubled();
      const std::string when = "cut at " + std::to_string(step) + " and " + std::to_string(again);
      machine->files.CutPowerAt(step);
      (void)machine->Save();
      cut = machine->files.PowerIsOff();
      machine->files.PowerOn();
      machine->files.ScanWrittenFiles(0);
      machine->files.CutPowerAt(again);
      machine->Load();
      cut_again = machine->files.PowerIsOff();
      machine->files.PowerOn();
      machine->Load();
      ExpectWhole(*machine, when);

      machine->view.Text(u"a new page");
      EXPECT_TRUE(machine->Save()) << when;
      EXPECT_EQ(machine->List(), new_list_) << when;
      EXPECT_EQ(machine->files.Files(kFolder).size(), 2U) << when;
      if (testing::Test::HasFailure()) return;
    }
  }
  EXPECT_GE(step, 12) << "six steps a file at least";
}

TEST_P(InterruptedSave, AStepThatFailsLeavesTheOldOrTheNewFile) {
  for (const FileStep outcome : {FileStep::kFailed, FileStep::kBusy}) {
    for (std::int32_t step = 0; step < 80; ++step) {
      const auto machine = Troubled();
      machine->files.Fault(step, outcome);
      (void)machine->Save();
      machine->files.Pause(kForever);
      machine->Load();
      ExpectWhole(*machine, "fault at " + std::to_string(step));
      if (testing::Test::HasFailure()) return;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Troubles, InterruptedSave, testing::ValuesIn(kTroubles),
                         [](const auto& row) { return std::string(row.param.label); });

TEST(SaveUnderTrouble, WaitsASecondAtMostForEachFile) {
  Machine machine;
  machine.files.Hold(Machine::kConfig, 900);
  EXPECT_TRUE(machine.Save());
  EXPECT_EQ(machine.files.Files(kFolder).size(), 2U);
  EXPECT_GE(machine.files.Paused(), 900);
  EXPECT_LE(machine.files.Paused(), 1000);
}

TEST(SaveUnderTrouble, WithoutLeaveToMakeFilesTheOldOnesAreWrittenInPlace) {
  Machine machine;
  machine.files.Protect(kFolder, true);
  EXPECT_TRUE(machine.Save());
  Machine other;
  EXPECT_TRUE(other.Save());
  EXPECT_EQ(machine.Config(), other.Config());
  EXPECT_EQ(machine.List(), other.List());
}

TEST(SaveUnderTrouble, OnADiskWithoutJournalAHeldFileIsWaitedForToo) {
  Machine other;
  EXPECT_TRUE(other.Save());
  // Five steps each for fresh file and mark, then the old file is opened.
  for (std::int32_t step = 0; step <= 10; ++step) {
    Machine machine;
    machine.files.LoseNamesInAMove();
    machine.files.Fault(step, FileStep::kBusy);
    EXPECT_TRUE(machine.Save()) << step;
    EXPECT_EQ(machine.files.Paused(), 20) << step;
    EXPECT_EQ(machine.List(), other.List()) << step;
    EXPECT_EQ(machine.files.Files(kFolder).size(), 2U) << step;
  }
}

// The page grows: there is room for the new copy next to the old one, but not for writing it in
// place too.
TEST(SaveUnderTrouble, OnAFullDiskWithoutJournalAPageThatGrewIsNotLost) {
  constexpr StringView kLonger = u"a new page with much more on it than there was on the old one";
  Machine other;
  other.view.Text(kLonger);
  EXPECT_TRUE(other.Save());
  Machine machine;
  machine.view.Text(kLonger);
  machine.files.LoseNamesInAMove();
  machine.files.FreeSpace(other.List().size() + 1);
  (void)machine.Save();
  machine.Load();
  EXPECT_EQ(machine.List(), other.List());
  EXPECT_EQ(machine.files.Files(kFolder).size(), 2U);
}

TEST(SaveUnderTrouble, OnAFullDiskSettingsThatFitAreSavedAndThePageStaysTheOldOne) {
  Machine machine;
  const std::string old_list = machine.List();
  machine.files.FreeSpace(0);
  EXPECT_TRUE(machine.Save());
  EXPECT_EQ(machine.List(), old_list);
  Machine other;
  EXPECT_TRUE(other.Save());
  EXPECT_EQ(machine.Config(), other.Config());
  EXPECT_EQ(machine.files.Files(kFolder).size(), 2U);
}

}  // namespace
}  // namespace tolvane
