#include "platform/memory/automation/automation.h"

#include <gtest/gtest.h>

namespace tolvane::platform::memory {
namespace {

class Automation : public ::testing::Test {
 protected:
  Automation() { servers.Register(u"Excel.Application", String(u"16.0")); }

  Journal journal;
  AutomationServers servers{journal};
};

TEST_F(Automation, OnlyRegisteredServersStart) {
  EXPECT_NE(servers.CreateObject(u"Excel.Application"), nullptr);
  EXPECT_EQ(servers.CreateObject(u"Ket.Application"), nullptr);
}

TEST_F(Automation, TellsEveryOperationWithItsArguments) {
  const auto server = servers.CreateObject(u"Excel.Application");
  const AutomationArgument corner[] = {1, String(u"E:L")};
  auto cell = server->Get(u"cells", corner);
  ASSERT_TRUE(cell.has_value());
  auto& object = std::get<std::unique_ptr<AutomationObject>>(*cell);
  const std::vector<String> texts(6, u"x");
  EXPECT_TRUE(object->Put(u"Value", AutomationTable{texts, 3}));
  const AutomationArgument borrowed[] = {object.get(), true, std::monostate{}};
  const NamedArgument named[] = {{u"FileFormat", 51}};
  EXPECT_TRUE(server->Call(u"Do", borrowed, named));
  EXPECT_EQ(journal.Lines(),
            (std::vector<std::string>{
                "create Excel.Application", "get Excel.Application.cells(1, \"E:L\")",
                "put Excel.Application.cells(1, \"E:L\").Value = table 2 x 3",
                "call Excel.Application.Do(Excel.Application.cells(1, \"E:L\"), True, Empty, "
                "FileFormat:=51)"}));
  EXPECT_EQ(servers.Tables().size(), 1U);
  EXPECT_EQ(servers.LiveObjects(), 2);
}

TEST_F(Automation, ATableOfOneTextIsToldWithItAndASequenceWithItsPlace) {
  const auto server = servers.CreateObject(u"Excel.Application");
  const std::vector<String> text(1, u"x");
  EXPECT_TRUE(server->Put(u"Value", AutomationTable{text, 1}));
  EXPECT_EQ(journal.Lines().back(), "put Excel.Application.Value = table \"x\"");
  server->BeginSequence();
  EXPECT_EQ(servers.Sequences(), std::vector<std::int32_t>{1});
}

TEST_F(Automation, TheNthOperationFailsAndTheNextOneWorks) {
  const auto server = servers.CreateObject(u"Excel.Application");
  servers.FailAt(2);
  EXPECT_TRUE(server->Put(u"Visible", false));
  EXPECT_FALSE(server->Put(u"Visible", true));
  EXPECT_TRUE(server->Put(u"Visible", false));
  EXPECT_EQ(journal.Lines()[2], "put Excel.Application.Visible = True fails");
  EXPECT_EQ(servers.Operations(), 3);
}

TEST_F(Automation, CallsBackInsideEveryOperation) {
  std::int32_t calls = 0;
  servers.WhileCalled([&] { ++calls; });
  const auto server = servers.CreateObject(u"Excel.Application");
  EXPECT_TRUE(server->Put(u"Visible", false));
  EXPECT_TRUE(server->Get(u"ActiveSheet", {}).has_value());
  EXPECT_TRUE(server->Call(u"Quit", {}, {}));
  EXPECT_EQ(calls, 3);
}

}  // namespace
}  // namespace tolvane::platform::memory
