#include "platform/windows/main_window/form1_binding.h"

#include <gtest/gtest.h>
#include <tolvane_control_ids.h>

#include "tests/run/control/form1_bench.h"

namespace tolvane::platform::windows {
namespace {

/// A disk without a file, which counts who looks for one.
class NoFiles final : public FileServices {
 public:
  bool FolderExists(StringView) override { return false; }
  bool FileExists(StringView) override {
    ++searches;
    return false;
  }
  std::vector<String> FileNames(StringView) override { return {}; }
  bool CreateFolder(StringView) override { return false; }
  std::unique_ptr<TextStream> CreateTextFile(StringView, bool, bool) override { return nullptr; }
  bool DeleteFile(StringView, bool) override { return false; }
  std::optional<BinaryRead> ReadBinary(StringView, std::size_t) override { return std::nullopt; }
  bool WriteBinary(StringView, std::span<const std::byte>) override { return false; }
  std::optional<std::int32_t> Attributes(StringView) override { return std::nullopt; }

  int searches = 0;
};

class Form1BindingTest : public testing::Test {
 protected:
  Form1BindingTest() { bench_.Start(); }

  Form1Bench bench_;
  EventGate gate_;
  WindowsEventLoop loop_{gate_};
  NoFiles files_;
  DialogWindows dialogs_{{GetModuleHandleW(nullptr), gate_, loop_, nullptr},
                         files_,
                         bench_.form.device,
                         bench_.form.mouseCursor};
  Form1Binding binding_{bench_.form, dialogs_};
};

TEST_F(Form1BindingTest, F1LooksForTheManualUntilClosingHasBegun) {
  binding_.HelpKey();
  EXPECT_EQ(files_.searches, 1);
  int yields = 0;
  bench_.memory.events.OnYield([&] {
    ++yields;
    binding_.HelpKey();
  });
  bench_.form.menu_file_close_Click();
  EXPECT_GT(yields, 1);
  EXPECT_EQ(files_.searches, 1) << "the manual opens while the program closes";
}

TEST_F(Form1BindingTest, CommandsComeThroughUntilClosingHasBegun) {
  const auto commands = [this] {
    bench_.form.RxFlag = 1;
    binding_.Command(id::Bt_Disconnect);
    binding_.ViewContextMenu();
    return bench_.form.RxFlag;
  };
  EXPECT_EQ(commands(), 0);
  EXPECT_EQ(bench_.Noted("menu_View.PopUp").size(), 1U);
  int yields = 0;
  bench_.memory.events.OnYield([&] {
    ++yields;
    EXPECT_EQ(commands(), 1) << "a command comes through while the program closes";
  });
  bench_.form.menu_file_close_Click();
  EXPECT_GT(yields, 1);
  EXPECT_EQ(bench_.Noted("menu_View.PopUp").size(), 1U);
}

}  // namespace
}  // namespace tolvane::platform::windows
