#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/utf8.h"
#include "shell/discovery/dll_presence_check.h"
#include "tests/run/control/form1_bench.h"

namespace tolvane {
namespace {

using testing::IsEmpty;

using Boxes = std::vector<platform::memory::MessageBox::Shown>;

constexpr StringView kTitle = u"Tolvane Ver1.23";

void ExpectOneStopBox(const Boxes& boxes, const String& text) {
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0].kind, platform::memory::MessageBox::Kind::kCritical);
  EXPECT_EQ(boxes[0].text, text) << ToUtf8(boxes[0].text);
  EXPECT_EQ(boxes[0].title, kTitle);
}

const String kSupportMissing =
    u"qxt100.dll が見つかりません。\r\nqxt100.dll は同梱のものを使用してください。\r\n"
    u"アプリケーションを終了します。";
const String kLibrariesMissing =
    u"CANインタフェース用DLLが見つかりません。\r\nC:\\Windows\\System32\\canusbdrv.dll\r\n"
    u"ドライバがインストールされていません。\r\nアプリケーションを終了します。";
const String kNoDevice = u"デバイスが見つかりません。\r\nアプリケーションを終了します。";
const String kDeviceFails = u"機器が正常に動作していません。\r\nアプリケーションを終了します。";

struct FailureRow {
  const char* label;
  void (*break_it)(Form1Bench& bench);
  const String& text;
  bool writes_config;
};

void RemoveAdapterLibraries(Form1Bench& bench) {
  for (const StringView file : {u"canusbdrv.dll", u"IFCan.dll", u"canlib32.dll"}) {
    bench.Remove(kSystem, file);
  }
}

const FailureRow kFailures[] = {
    {"NoSupportLibrary", [](Form1Bench& bench) { bench.Remove(kFolder, u"qxt100.dll"); },
     kSupportMissing, false},
    {"UnusableSupportLibrary", [](Form1Bench& bench) { bench.memory.qxt100.Usable(false); },
     kSupportMissing, false},
    {"NoSupportLibraryComesBeforeNoAdapterLibrary",
     [](Form1Bench& bench) {
       bench.Remove(kFolder, u"qxt100.dll");
       RemoveAdapterLibraries(bench);
     },
     kSupportMissing, false},
    {"NoAdapterLibrary", RemoveAdapterLibraries, kLibrariesMissing, false},
    {"NothingPluggedIn", [](Form1Bench& bench) { bench.memory.canusbdrv.serials.clear(); },
     kNoDevice, true},
    {"OnlySerialsTooShort", [](Form1Bench& bench) { bench.memory.canusbdrv.serials = {"123456"}; },
     kNoDevice, true},
    {"OnlyChannelsThatDoNotOpen",
     [](Form1Bench& bench) {
       bench.memory.canusbdrv.serials.clear();
       bench.memory.canlib32.channels = {-1, -3};
     },
     kNoDevice, true},
    {"VersionQueryFails", [](Form1Bench& bench) { bench.memory.canusbdrv.version_result = -4; },
     kDeviceFails, true},
};

class FailedStart : public testing::TestWithParam<FailureRow> {};

TEST_P(FailedStart, SaysWhyAndClosesWritingWhatIsTold) {
  Form1Bench bench;
  bench.memory.canusbdrv.serials = {"LAW00001"};
  bench.memory.files.AddFile(bench.Path(kFolder, u"lglist.dat"), "{\\rtf1 the user's notes}");
  GetParam().break_it(bench);
  bench.form.Form_Load();
  ExpectOneStopBox(bench.memory.message_box.Boxes(), GetParam().text);
  EXPECT_EQ(bench.form.ApplicationOpenFlag, 0);
  EXPECT_EQ(bench.Noted("Form1.Unload").size(), 1u);
  EXPECT_EQ(bench.Noted("FormHelp.Unload").size(), 1u);
  EXPECT_THAT(bench.Noted("Bt_Connect"), IsEmpty());
  // The page was not restored yet: an empty one takes the place of the notes.
  const auto view = bench.memory.files.Bytes(bench.Path(kFolder, u"lglist.dat"));
  ASSERT_TRUE(view.has_value());
  EXPECT_EQ(view->find("notes"), std::string::npos);
  EXPECT_EQ(bench.Wrote(u"config.dat"), GetParam().writes_config);
}

INSTANTIATE_TEST_SUITE_P(Reasons, FailedStart, testing::ValuesIn(kFailures),
                         [](const auto& row) { return std::string(row.param.label); });

TEST(FailedStartLater, SavesTheCommentOfTheStillEmptyBox) {
  Form1Bench bench;
  bench.form.Form_Load();
  EXPECT_EQ(bench.form.device.t_LogComment, u"");
}

TEST(FailedStartLater, ALibraryThatIsMissingIsToldAsMinusOne) {
  platform::memory::MemoryPlatform memory;
  const ELM327_Info device{u"C:\\Tolvane"};
  EXPECT_EQ(Common_Function::DLL_Presence_Check(memory.Platform(), device), -1)
      << "the program's own";
  memory.files.AddFolder(u"C:\\Tolvane");
  memory.files.AddFile(u"C:\\Tolvane\\qxt100.dll", "MZ");
  EXPECT_EQ(Common_Function::DLL_Presence_Check(memory.Platform(), device), -1) << "any adapter's";
}

/// That a program told that it stands in `told` finds its support library in `cut`.
void ExpectSupportLibraryFoundIn(const String& cut, const String& told) {
  platform::memory::MemoryPlatform memory;
  memory.files.AddFolder(cut);
  memory.files.AddFile(cut + u"\\qxt100.dll", "MZ");
  Form1 form(memory.Platform(), memory.MainWindow(), told);
  form.Form_Load();
  ExpectOneStopBox(memory.message_box.Boxes(), kLibrariesMissing);
}

TEST(ExecutableFolder, ThatNamesTheExecutableIsCutBeforeTheSupportLibraryIsSought) {
  ExpectSupportLibraryFoundIn(u"C:\\Tools", u"C:\\Tools\\Tolvane.exe");
}

TEST(ExecutableFolder, ThatNamesTheExecutableTwiceIsCutTwice) {
  ExpectSupportLibraryFoundIn(u"C:\\Tools.old", u"C:\\ToolsTolvane.exe.old\\Tolvane.exe");
}

}  // namespace
}  // namespace tolvane
