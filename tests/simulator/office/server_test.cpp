#include "simulator/office/server.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/utf8.h"
#include "tests/simulator/office/direct_client.h"

namespace tolvane::office {
namespace {

using Handle = SampleClient::Handle;

class OfficeServer : public testing::Test {
 protected:
  OfficeServer() {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directories(folder_);
  }
  ~OfficeServer() override {
    std::error_code error;
    std::filesystem::remove_all(folder_, error);
  }

  std::string Read(const char* name) const {
    std::ifstream file(folder_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  String Path(const char* name) const { return (folder_ / name).u16string(); }
  Record NewRecord() const { return Record(folder_ / "record.txt"); }

  static void AddBook(DirectClient& client) {
    client.Call(client.Get(kProgram, u"Workbooks", {}), u"Add", {}, {});
  }

  /// A folder of this test case's own: cases run side by side.
  const std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() /
      (std::string("tolvane_office_") +
       testing::UnitTest::GetInstance()->current_test_info()->name());
};

TEST_F(OfficeServer, CarriesOutAFlushAndRecordsEachOperation) {
  Record record = NewRecord();
  Server server(u"Excel.Application", u"16.0", Script{}, record);
  DirectClient client(server);
  WriteSampleBook(client, Path("a.xlsx"), 51, 3);
  EXPECT_TRUE(client.failures.empty());
  const std::string text = Read("record.txt");
  EXPECT_EQ(text.find("create Excel.Application\nget Workbooks\ncall Workbooks.Add\n"
                      "get ActiveSheet\nget ActiveSheet.cells\nget ActiveSheet.cells.Font\n"
                      "put ActiveSheet.cells.Font.size = 10\nget ActiveSheet.cells(1, 1)\n"
                      "put ActiveSheet.cells(1, 1).Value = table(1x1) \"Title & <more>\"\n"),
            0U);
  for (const char* line :
       {"put ActiveSheet.Range(\"H1:K1\").MergeCells = True\n",
        "put ActiveSheet.Range(\"H1:K2\").HorizontalAlignment = -4152\n",
        "put ActiveSheet.Range(ActiveSheet.cells(6, 1), ActiveSheet.cells(6, 12))"
        ".Interior.ColorIndex = 36\n",
        "put ActiveSheet.Columns(\"E:L\").ColumnWidth = 4\n",
        "put ActiveSheet.Range(ActiveSheet.cells(7, 1), ActiveSheet.cells(20007, 12))"
        ".Value = table(20001x12)\n",
        "call ActiveSheet.cells(7, 1).AutoFilter(1)\n", "FileFormat:=51)\n"}) {
    EXPECT_NE(text.find(line), std::string::npos) << line;
  }
  EXPECT_TRUE(text.ends_with("get ActiveWorkbook\ncall ActiveWorkbook.Close\n"));
}

TEST_F(OfficeServer, SavesEachFormatInItsOwnForm) {
  Record record;
  Server server(u"Ket.Application", u"", Script{}, record);
  DirectClient client(server);
  WriteSampleBook(client, Path("a.xlsx"), 51, 3);
  WriteSampleBook(client, Path("b.xls"), 56, 3);
  WriteSampleBook(client, Path("c.xls"), 0, 3);
  EXPECT_TRUE(client.failures.empty());
  EXPECT_TRUE(Read("a.xlsx").starts_with("PK\x03\x04"));
  EXPECT_TRUE(Read("b.xls").starts_with("\xD0\xCF\x11\xE0"));
  EXPECT_EQ(Read("c.xls"), Read("b.xls"));
}

TEST_F(OfficeServer, NamesDoNotCareAboutCaseAndAreRecordedInTheirOwn) {
  Record record = NewRecord();
  Server server(u"Excel.Application", u"9,0 x", Script{}, record);
  DirectClient client(server);
  EXPECT_EQ(client.GetText(kProgram, u"VERSION"), u"9,0 x");
  EXPECT_EQ(Read("record.txt"), "create Excel.Application\nget Version\n");
}

TEST_F(OfficeServer, TheDatabaseProgramHasAVersionAndNoWorkbooks) {
  Record record = NewRecord();
  Server server(u"Access.Application", u"15.0", Script{}, record);
  DirectClient client(server);
  EXPECT_EQ(client.GetText(kProgram, u"Version"), u"15.0");
  client.Get(kProgram, u"Workbooks", {});
  EXPECT_EQ(client.failures, std::vector<std::uint32_t>{kUnknownName});
  EXPECT_TRUE(Read("record.txt").ends_with("name Workbooks ! 80020006\n"));
}

TEST_F(OfficeServer, TheScriptedOperationFailsAndNoOther) {
  Script script;
  script.fail_at = 2;
  Record record = NewRecord();
  Server server(u"Excel.Application", u"16.0", script, record);
  DirectClient client(server);
  client.Put(kProgram, u"Visible", false);
  client.Put(kProgram, u"Interactive", false);
  client.Put(kProgram, u"Interactive", false);
  EXPECT_EQ(client.failures, std::vector<std::uint32_t>{kRefused});
  EXPECT_EQ(Read("record.txt"),
            "create Excel.Application\nput Visible = False\n"
            "put Interactive = False ! 800A03EC\nput Interactive = False\n");
}

TEST_F(OfficeServer, ARefusedCreationGivesNoObject) {
  Script script;
  script.fail_creation = 1;
  Record record = NewRecord();
  Server server(u"Excel.Application", u"16.0", script, record);
  EXPECT_FALSE(server.Create());
  EXPECT_EQ(Read("record.txt"), "create Excel.Application ! 800A03EC\n");
}

TEST_F(OfficeServer, ADelayIsWaitedBeforeEachOperation) {
  Script script;
  script.delay_ms = 30;
  Record record;
  Server server(u"Excel.Application", u"16.0", script, record);
  DirectClient client(server);
  const auto start = std::chrono::steady_clock::now();
  client.Put(kProgram, u"Visible", false);
  client.Put(kProgram, u"Visible", false);
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(60));
}

TEST_F(OfficeServer, AnExistingFileIsOverwrittenOnlyWithoutAlerts) {
  std::ofstream(folder_ / "a.xls") << "old";
  Record record;
  Server server(u"Excel.Application", u"16.0", Script{}, record);
  DirectClient client(server);
  AddBook(client);
  const Handle book = client.Get(kProgram, u"ActiveWorkbook", {});
  client.Call(book, u"SaveAs", {Path("a.xls")}, {});
  EXPECT_EQ(client.failures, std::vector<std::uint32_t>{kRefused});
  EXPECT_EQ(Read("a.xls"), "old");
  client.Put(kProgram, u"DisplayAlerts", false);
  client.Call(book, u"SaveAs", {Path("a.xls")}, {});
  EXPECT_EQ(client.failures.size(), 1U);
  EXPECT_NE(Read("a.xls"), "old");
}

TEST_F(OfficeServer, ASaveIntoAMissingFolderFailsAndTheBookStaysOpen) {
  Record record;
  Server server(u"Excel.Application", u"16.0", Script{}, record);
  DirectClient client(server);
  AddBook(client);
  const Handle book = client.Get(kProgram, u"ActiveWorkbook", {});
  client.Call(book, u"SaveAs", {Path("missing/a.xls")}, {});
  EXPECT_EQ(client.failures, std::vector<std::uint32_t>{kRefused});
  client.Call(client.Get(kProgram, u"ActiveWorkbook", {}), u"Close", {}, {});
  EXPECT_EQ(client.failures.size(), 1U);
}

TEST_F(OfficeServer, APathIsSavedToUpTo218CharactersAndWithoutBrackets) {
  Record record;
  Server server(u"Excel.Application", u"16.0", Script{}, record);
  DirectClient client(server);
  const std::string long_folder(219 - Path("f/a.xls").size(), 'f');
  const std::string longer_folder = long_folder + "f";
  struct Row {
    std::string file;
    bool is_saved;
  };
  const Row rows[] = {{long_folder + "/a.xls", true},
                      {longer_folder + "/a.xls", false},
                      {"a[1/a.xls", false},
                      {"a]1/a.xls", false},
                      {"a[1.xls", false},
                      {"a]1.xls", false}};
  for (const Row& row : rows) {
    AddBook(client);
    client.failures.clear();
    std::filesystem::create_directories((folder_ / row.file).parent_path());
    client.Call(client.Get(kProgram, u"ActiveWorkbook", {}), u"SaveAs", {Path(row.file.c_str())},
                {});
    const std::vector<std::uint32_t> refusals(row.is_saved ? 0 : 1, kRefused);
    EXPECT_EQ(client.failures, refusals) << row.file;
    EXPECT_EQ(std::filesystem::exists(folder_ / row.file), row.is_saved) << row.file;
  }
}

TEST_F(OfficeServer, WithoutAWorkbookThereIsNoSheetAndClosingBringsTheOlderOneBack) {
  Record record;
  Server server(u"Excel.Application", u"16.0", Script{}, record);
  DirectClient client(server);
  client.Get(kProgram, u"ActiveSheet", {});
  EXPECT_EQ(client.failures, std::vector<std::uint32_t>{kRefused});
  AddBook(client);
  AddBook(client);
  const Handle newer = client.Get(kProgram, u"ActiveWorkbook", {});
  client.Call(newer, u"Close", {}, {});
  client.Get(kProgram, u"ActiveSheet", {});
  EXPECT_EQ(client.failures.size(), 1U);
  client.Call(newer, u"Close", {}, {});
  EXPECT_EQ(client.failures.size(), 2U) << "closed twice";
}

TEST_F(OfficeServer, QuitIsRemembered) {
  Record record;
  Server server(u"Excel.Application", u"16.0", Script{}, record);
  DirectClient client(server);
  EXPECT_FALSE(server.QuitAsked());
  client.Call(kProgram, u"Quit", {}, {});
  EXPECT_TRUE(server.QuitAsked());
}

TEST_F(OfficeServer, ATextStaysATextInATableAndALoneOneIsRefused) {
  Record record = NewRecord();
  Server server(u"Excel.Application", u"16.0", Script{}, record);
  DirectClient client(server);
  AddBook(client);
  const Handle cell = client.Get(client.Get(kProgram, u"ActiveSheet", {}), u"cells", {1, 1});
  for (const char16_t* const text : {u"7E8", u"001", u"=== test ==="}) {
    client.Put(cell, u"Value", Table{1, 1, {text}});
    client.Call(client.Get(kProgram, u"ActiveWorkbook", {}), u"SaveAs", {},
                {{u"FileName", Path("a.xlsx")}, {u"FileFormat", 51}});
    ASSERT_TRUE(client.failures.empty());
    EXPECT_NE(Read("a.xlsx").find("<t xml:space=\"preserve\">" + ToUtf8(text) + "</t>"),
              std::string::npos);
    client.Put(kProgram, u"DisplayAlerts", false);
  }
  client.Put(cell, u"Value", String(u"7E8"));
  EXPECT_EQ(client.failures, std::vector<std::uint32_t>{kTypeMismatch});
  EXPECT_NE(Read("record.txt").find("cells(1, 1).Value = \"7E8\" ! 80020005\n"), std::string::npos);
}

TEST_F(OfficeServer, SoManyCallsAreTurnedAwayAheadOfTheScriptedOperation) {
  Script script;
  script.busy_at = 1;
  script.busy_calls = 2;
  script.busy_as = BusyAs::kLater;
  Record record = NewRecord();
  Server server(u"Excel.Application", u"16.0", script, record);
  EXPECT_FALSE(server.TurnsAway(BusyAs::kLater)) << "the creation";
  DirectClient client(server);
  EXPECT_FALSE(server.TurnsAway(BusyAs::kRejected)) << "in another way";
  EXPECT_TRUE(server.TurnsAway(BusyAs::kLater));
  EXPECT_TRUE(server.TurnsAway(BusyAs::kLater));
  EXPECT_FALSE(server.TurnsAway(BusyAs::kLater));
  EXPECT_EQ(Read("record.txt"), "create Excel.Application\nbusy\nbusy\n");
}

TEST_F(OfficeServer, AllCallsAreTurnedAwayForTheScriptedTime) {
  Script script;
  script.busy_ms = 60;
  Record record;
  Server server(u"Excel.Application", u"16.0", script, record);
  const auto start = std::chrono::steady_clock::now();
  while (server.TurnsAway(BusyAs::kRejected)) {
  }
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(60));
  EXPECT_FALSE(server.TurnsAway(BusyAs::kRejected)) << "once it is over";
}

TEST_F(OfficeServer, OnlyEnglishCallsAreUnderstood) {
  Record record = NewRecord();
  Server server(u"Excel.Application", u"16.0", Script{}, record);
  EXPECT_TRUE(server.Understands(1033));
  EXPECT_FALSE(server.Understands(1041));
  EXPECT_FALSE(server.Understands(0x400));
  EXPECT_EQ(Read("record.txt"), "locale 1041\nlocale 1024\n");
}

TEST_F(OfficeServer, WhatWouldNotShowInTheFileIsRefused) {
  Record record;
  Server server(u"Excel.Application", u"16.0", Script{}, record);
  DirectClient client(server);
  AddBook(client);
  const Handle sheet = client.Get(kProgram, u"ActiveSheet", {});
  const Handle cell = client.Get(sheet, u"cells", {1, 1});
  const Handle interior = client.Get(cell, u"Interior", {});
  const Handle borders = client.Get(cell, u"Borders", {});
  ASSERT_TRUE(client.failures.empty());

  struct Row {
    const char* label;
    Handle object;
    StringView name;
    SampleClient::Argument value;
    std::uint32_t result;
  };
  const Row rows[] = {
      {"another colour", interior, u"ColorIndex", 35, kRefused},
      {"another line", borders, u"LineStyle", 2, kRefused},
      {"another alignment", cell, u"HorizontalAlignment", -4108, kRefused},
      {"merged no more", cell, u"MergeCells", false, kRefused},
      {"a number as value", cell, u"Value", 5, kTypeMismatch},
      {"a table of another size", cell, u"Value", Table{1, 2, {u"", u""}}, kRefused},
      {"a text as a switch", kProgram, u"Visible", String(u"no"), kTypeMismatch},
      {"a method put to", cell, u"AutoFilter", 1, kMemberNotFound},
      {"a member of another object", cell, u"LineStyle", 1, kUnknownName},
  };
  for (const Row& row : rows) {
    client.failures.clear();
    client.Put(row.object, row.name, row.value);
    EXPECT_EQ(client.failures, std::vector<std::uint32_t>{row.result}) << row.label;
  }
}

TEST_F(OfficeServer, WrongIndicesAndCornersAreRefused) {
  Record record;
  Server server(u"Excel.Application", u"16.0", Script{}, record);
  DirectClient client(server);
  AddBook(client);
  const Handle sheet = client.Get(kProgram, u"ActiveSheet", {});
  AddBook(client);
  const Handle other = client.Get(client.Get(kProgram, u"ActiveSheet", {}), u"cells", {1, 1});

  struct Row {
    const char* label;
    StringView name;
    std::vector<SampleClient::Argument> arguments;
    std::uint32_t result;
  };
  const Row rows[] = {
      {"row 0", u"cells", {0, 1}, kRefused},
      {"column 257", u"cells", {1, 257}, kRefused},
      {"one index", u"cells", {1}, kBadParameterCount},
      {"a text as row", u"cells", {String(u"1"), 1}, kTypeMismatch},
      {"no range at all", u"Range", {}, kBadParameterCount},
      {"no range text", u"Range", {String(u"?")}, kRefused},
      {"one corner", u"Range", {sheet}, kTypeMismatch},
      {"a sheet as corner", u"Range", {sheet, sheet}, kTypeMismatch},
      {"corners of another sheet", u"Range", {other, other}, kRefused},
      {"column 0", u"Columns", {0}, kRefused},
      {"no columns", u"Columns", {String(u"E1")}, kRefused},
  };
  for (const Row& row : rows) {
    client.failures.clear();
    client.Get(sheet, row.name, row.arguments);
    EXPECT_EQ(client.failures, std::vector<std::uint32_t>{row.result}) << row.label;
  }
}

}  // namespace
}  // namespace tolvane::office
