// The examples of docs/formats.md are what the program writes: each is made here by a session of
// the whole program on a machine in memory.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "config/configfilerecord.h"
#include "platform/utf8.h"
#include "simulator/bench_config.h"
#include "tests/docs/document.h"
#include "tests/run/control/run_control.h"
#include "tests/tools/log/memory_files.h"
#include "tools/log/command/command.h"

namespace tolvane {
namespace {

/// Sixteen bytes in a line behind their offset, all in hexadecimal.
std::string HexDump(const std::string& bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto two = [kDigits](std::size_t value) {
    return std::string{kDigits[value >> 4 & 0xF], kDigits[value & 0xF]};
  };
  std::string dump;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    if (at % 16 == 0) dump += (at == 0 ? "" : "\n") + two(at >> 8) + two(at) + " ";
    dump += " " + two(static_cast<unsigned char>(bytes[at]));
  }
  return dump + "\n";
}

/// Lines as documents have them.
std::string WithoutReturns(std::string text) {
  std::erase(text, '\r');
  return text;
}

class Formats : public RunControl {
 protected:
  Formats() { form_.device.t_LogSave_Enable = 1; }

  static platform::CanusbMessage Frame(std::int32_t id, std::int32_t timestamp, std::uint8_t flags,
                                       std::uint8_t len, std::uint8_t first_byte) {
    return {.id = id,
            .timestamp = timestamp,
            .flags = flags,
            .len = len,
            .data = {first_byte, 0x1A, 0xFF, 3, 0x44, 0x55, 0x66, 0x77}};
  }

  /// A run that receives these frames and shows them once.
  void RunWith(const std::vector<platform::CanusbMessage>& frames) {
    memory_.canusbdrv.frames.Play(frames);
    Connect({[this] { memory_.FormBG.Tick(); }});
  }

  std::string Written(StringView file) {
    return memory_.files.Bytes(Form1Bench::Path(kFolder, file)).value_or("(no such file)");
  }
  /// The text of a file in the code page.
  std::string WrittenText(StringView file) {
    return WithoutReturns(ToUtf8(memory_.code_page.Decode(Written(file))));
  }

  /// What tolvane-log makes of a csv log.
  std::string Converted(StringView file) {
    logtool::MemoryFiles files;
    files.texts["log.csv"] = Written(file);
    std::string output;
    std::string messages;
    logtool::TextSink output_sink(output);
    logtool::TextSink message_sink(messages);
    const int status = logtool::RunCommand({"convert", "--to", "csv", "log.csv"},
                                           {.files = files,
                                            .output = output_sink,
                                            .messages = message_sink,
                                            .code_page = memory_.code_page,
                                            .unix_seconds = [](const platform::LocalTime&) {
                                              return std::optional<std::int64_t>(1);
                                            }});
    EXPECT_EQ(status, 0) << messages;
    return output;
  }

  Document document_{"docs/formats.md"};
};

TEST_F(Formats, ConfigFileOfAFirstStart) {
  form_.menu_file_close_Click();
  EXPECT_TRUE(IsTheExample(document_, "text config.dat", HexDump(Written(u"config.dat"))));
}

/// One row of the table of config.dat: where a field lies, how long it is, and what it holds.
class FieldRow {
 public:
  FieldRow(const std::string& bytes, std::size_t offset, const std::string& length)
      : bytes_(bytes), offset_(offset) {
    const bool is_text = length.starts_with("2 + ");
    size_ = static_cast<std::size_t>(std::stoi(is_text ? length.substr(4) : length));
    if (is_text) {
      EXPECT_EQ(Number(offset, 2), size_) << "the count ahead of the text at " << offset;
      size_ += 2;
    }
    is_text_ = is_text;
  }

  [[nodiscard]] std::size_t End() const { return offset_ + size_; }

  [[nodiscard]] std::string Value(platform::CodePage& code_page) const {
    if (is_text_) return ToUtf8(code_page.Decode(bytes_.substr(offset_ + 2, size_ - 2)));
    if (size_ == 8) return Number(offset_, 8) == 0x3FF0000000000000 ? "1.0" : "(another ratio)";
    std::string value = std::to_string(static_cast<std::int32_t>(Number(offset_, 4)));
    for (std::size_t at = offset_ + 4; at < End(); at += 4) {
      if (Number(at, 4) != Number(offset_, 4)) return "(not all the same)";
    }
    return size_ == 32 ? "8 times " + value : value;
  }

 private:
  [[nodiscard]] std::uint64_t Number(std::size_t at, std::size_t count) const {
    std::uint64_t value = 0;
    for (std::size_t i = count; i-- > 0;) {
      value = value << 8 | static_cast<unsigned char>(bytes_.at(at + i));
    }
    return value;
  }

  const std::string& bytes_;
  std::size_t offset_;
  std::size_t size_;
  bool is_text_;
};

TEST_F(Formats, TableOfConfigFileTellsEachOfItsBytes) {
  form_.menu_file_close_Click();
  const std::string bytes = Written(u"config.dat");
  std::size_t offset = 0;
  std::size_t texts = 0;
  for (const auto& cells : document_.TableBelow("### Its fields")) {
    ASSERT_EQ(cells.size(), 5U);
    const std::string& field = cells[2];
    EXPECT_EQ(cells[0], std::to_string(offset)) << field;
    const FieldRow row(bytes, offset, cells[1]);
    EXPECT_EQ(row.Value(memory_.code_page), cells[3]) << field;
    if (cells[1].starts_with("2 + ")) texts += row.End() - offset - 2;
    offset = row.End();
  }
  EXPECT_EQ(offset, bytes.size());
  EXPECT_EQ(bytes.size(), 382 + texts);
}

TEST_F(Formats, TableOfConfigFileNamesTheFieldsOfTheRecord) {
  ELM327_Info device{String(kFolder)};
  for (String* const text : {&device.Application_title, &device.Copy_light, &device.t_SaveFilePath,
                             &device.t_LogSaveFilePath, &device.t_LogComment}) {
    text->clear();
  }
  device.t_SaveFormat = 3;
  device.t_bitRate = 7;
  device.t_DataChangeColor = 14;
  device.t_MsgBlackout_Enable = 22;
  device.t_DisableID_End(0, 25);
  device.t_MsgMarkerID(0, 27);
  device.t_MsgMarkerColor(0, 30);
  device.t_Excel_Format = 34;
  device.t_LogSave_subFolder = 39;
  const std::map<std::string, int> numbers = {
      {"`t_SaveFormat`", 3},          {"`t_bitRate`", 7},        {"`t_DataChangeColor`", 14},
      {"`t_MsgBlackout_Enable`", 22}, {"`t_DisableID_End`", 25}, {"`t_MsgMarkerID`", 27},
      {"`t_MsgMarkerColor`", 30},     {"`t_Excel_Format`", 34},  {"`t_LogSave_subFolder`", 39}};
  const auto bytes = EncodeConfigFileRecord(device, memory_.code_page);
  std::size_t found = 0;
  std::size_t offset = 0;  // all texts are empty here
  for (const auto& cells : document_.TableBelow("### Its fields")) {
    const auto number = numbers.find(cells.at(2));
    if (number != numbers.end()) {
      EXPECT_EQ(std::to_integer<int>(bytes.at(offset)), number->second) << number->first;
      ++found;
    }
    offset += static_cast<std::size_t>(std::stoi(cells[1]));
  }
  EXPECT_EQ(offset, bytes.size());
  EXPECT_EQ(found, numbers.size());
}

TEST_F(Formats, PageFileOfARun) {
  RunWith({Frame(0x1A0, 1000, 0, 8, 1), Frame(0x00F, 1050, 0, 2, 9), Frame(0x1A0, 1100, 0, 8, 2)});
  form_.menu_file_close_Click();
  EXPECT_TRUE(IsTheExample(document_, "text lglist.dat", WithoutReturns(Written(u"lglist.dat"))));
}

TEST_F(Formats, CsvLogOf11BitMode) {
  RunWith({Frame(0x1A0, 1000, 0, 8, 1), Frame(0x00F, 1050, 0, 2, 9), Frame(0x7FF, 1100, 0, 0, 0)});
  EXPECT_TRUE(IsTheExample(document_, "text csv, 11 bits", WrittenText(u"KL26010509-001.csv")));
  EXPECT_TRUE(IsTheExample(document_, "text csv of tolvane-log", Converted(u"KL26010509-001.csv")));
}

TEST_F(Formats, CsvLogOf29BitMode) {
  form_.device.t_msgID_type = kMsgIdType29Bit;
  RunWith({Frame(0x18DAF110, 1000, 128, 8, 1), Frame(0x123, 1050, 0, 2, 9)});
  EXPECT_TRUE(IsTheExample(document_, "text csv, 29 bits", WrittenText(u"KL26010509-001.csv")));
  EXPECT_TRUE(IsTheExample(document_, "text csv of tolvane-log, 29 bits",
                           Converted(u"KL26010509-001.csv")));
}

/// Everything that a flush puts into its workbook, one line each.
TEST_F(Formats, WorkbookOfARun) {
  form_.device.t_LogSaveFormat = kLogFormatSpreadsheet;
  form_.device.ExcelInstallCheck = 1;
  form_.device.ExcelInstallVersion = 16;
  form_.device.t_Excel_Format = 2;
  form_.device.t_Save_ID_DisableMode = 0;
  memory_.automation.Register(u"Excel.Application", String(u"16.0"));
  RunWith({Frame(0x1A0, 1000, 0, 8, 1), Frame(0x00F, 1050, 0, 2, 9)});

  const std::string sheet = "Excel.Application.ActiveSheet.";
  std::string made;
  for (const std::string kind : {"put ", "call "}) {
    for (const std::string& line : bench_.Noted(kind + sheet)) {
      std::string rest = line.substr(kind.size() + sheet.size());
      for (std::size_t at; (at = rest.find(sheet)) != std::string::npos;)
        rest.erase(at, sheet.size());
      made += rest + "\n";
    }
  }
  EXPECT_TRUE(IsTheExample(document_, "text workbook", made));

  std::string rows;
  const auto& tables = memory_.automation.Tables();
  ASSERT_GE(tables.size(), 2U);
  for (const auto& table : {tables[tables.size() - 2], tables.back()}) {
    for (std::size_t at = 0; at < table.cells.size() && !table.cells[at].empty();
         at += table.columns) {
      for (std::size_t i = 0; i < table.columns; ++i) {
        rows += (i == 0 ? "" : "|") + ToUtf8(table.cells[at + i]);
      }
      rows += "\n";
    }
  }
  EXPECT_TRUE(IsTheExample(document_, "text rows of a workbook", rows));
}

TEST_F(Formats, FilesOfAMorning) {
  ELM327_Info& device = form_.device;
  const auto run = [this] { RunWith({Frame(0x1A0, 1000, 0, 8, 1)}); };
  run();
  run();
  bench_.Click(&Form1::Bt_SaveFile_Click);
  device.t_SaveFormat = 2;
  bench_.Click(&Form1::Bt_SaveFile_Click);
  memory_.wall_clock.Set(
      {.year = 2026, .month = 1, .day = 5, .weekday = 1, .hour = 10, .minute = 0, .second = 0});
  run();
  memory_.files.AddFolder(u"C:\\Tolvane\\logs");
  device.t_LogSaveFilePath_mode = 2;
  device.t_LogSaveFilePath = u"C:\\Tolvane\\logs";
  device.t_LogSave_subFolder = 1;
  memory_.window.TB_LogComment.Text(u"試験 1/2");
  run();
  run();
  form_.menu_file_close_Click();

  std::string listing;
  for (const String& path : memory_.files.Files(kFolder)) {
    if (!path.ends_with(u".dll")) listing += ToUtf8(path) + "\n";
  }
  EXPECT_TRUE(IsTheExample(document_, "text files", listing));
}

TEST(BenchFile, TheExamplesOfTheDocumentsAreUnderstoodToTheLastLine) {
  for (const char* const path : {"docs/formats.md", "simulator/README.md"}) {
    const auto examples = Document(path).Examples("ini");
    EXPECT_EQ(examples.size(), 1U) << path;
    for (const std::string& example : examples) {
      EXPECT_EQ(simulator::ReadBenchConfig(example).problems, std::vector<std::string>{}) << path;
    }
  }
}

TEST(BenchFile, TheExampleSaysWhatTheDocumentSaysOfIt) {
  const auto examples = Document("docs/formats.md").Examples("ini");
  ASSERT_EQ(examples.size(), 1U);
  const simulator::BenchConfig config = simulator::ReadBenchConfig(examples[0]);
  EXPECT_EQ(config.report, "report.txt");
  EXPECT_EQ(config.bus.source, simulator::BusPlan::Source::kLog);
  EXPECT_EQ(config.bus.log, "car.log");
  EXPECT_EQ(config.bus.repeat, 3);
  ASSERT_EQ(config.canusb.size(), 1U);
  EXPECT_EQ(config.canusb[0].serial, "TV100001");
  EXPECT_EQ(config.canusb[0].adapter.clock.start, 59'000);
  ASSERT_EQ(config.ifcan.size(), 1U);
  EXPECT_EQ(config.ifcan[0].port, 2);
  EXPECT_EQ(config.ifcan[0].adapter.tap.pulled_at_us, 30'000'000);
  ASSERT_EQ(config.canlib.size(), 1U);
  ASSERT_EQ(config.canlib[0].adapter.results.size(), 1U);
  EXPECT_EQ(config.canlib[0].adapter.results[0].call, "canBusOn");
  EXPECT_EQ(config.canlib[0].adapter.results[0].result, -15);
}

}  // namespace
}  // namespace tolvane
