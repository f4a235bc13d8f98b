#include "tests/simulator/office/sample_flush.h"

#include <iterator>
#include <string>
#include <utility>

namespace tolvane::office {
namespace {

using Argument = SampleClient::Argument;
using Handle = SampleClient::Handle;

constexpr std::size_t kRows = 20'001;
constexpr std::size_t kColumns = 12;
// Identifiers of the first records, which a program that takes texts for typed ones spoils.
constexpr const char16_t* kLikeNumbers[] = {u"7E8", u"1E5", u"001"};

String Digits(std::size_t number, unsigned base, std::size_t width) {
  String out;
  for (; number != 0 || out.size() < width; number /= base) {
    out.insert(out.begin(), u"0123456789ABCDEF"[number % base]);
  }
  return out;
}

class Flush {
 public:
  explicit Flush(SampleClient& client) : client_(client) {
    client_.Call(client_.Get(kProgram, u"Workbooks", {}), u"Add", {}, {});
    sheet_ = client_.Get(kProgram, u"ActiveSheet", {});
  }

  Handle Cell(std::int32_t row, std::int32_t column) {
    return client_.Get(sheet_, u"cells", {row, column});
  }

  Handle Range(const char16_t* text) { return client_.Get(sheet_, u"Range", {String(text)}); }

  Handle Range(std::int32_t first_row, std::int32_t last_row) {
    const Handle first = Cell(first_row, 1);
    return client_.Get(sheet_, u"Range", {first, Cell(last_row, 12)});
  }

  void FontSize(Handle range, std::int32_t size) {
    client_.Put(client_.Get(range, u"Font", {}), u"size", size);
  }

  /// As a list of one: a lone text would be taken as if typed.
  void Text(Handle cell, const char16_t* text) { client_.Put(cell, u"Value", Table{1, 1, {text}}); }

  void Head(std::int32_t row, std::int32_t column, const char16_t* text, std::int32_t size) {
    Text(Cell(row, column), text);
    FontSize(Cell(row, column), size);
  }

  void Width(Argument columns, std::int32_t width) {
    client_.Put(client_.Get(sheet_, u"Columns", {std::move(columns)}), u"ColumnWidth", width);
  }

  void Heads() {
    FontSize(client_.Get(sheet_, u"cells", {}), 10);
    Head(1, 1, u"Title & <more>", 10);
    Head(2, 1, u"https://example.invalid/", 8);
    Head(3, 1, u"機器 、\"版\"", 9);
    Head(4, 1, u"  コメント  ", 10);
    Head(1, 3, u"Copyright", 8);
    Head(2, 4, u"bit rate：500k bps", 10);
    Head(1, 8, u"2024/01/02 3:04:05", 10);
    client_.Put(Range(u"H1:K1"), u"MergeCells", true);
    client_.Put(Range(u"H1:K2"), u"HorizontalAlignment", -4152);
    Text(Cell(2, 11), u"除外ON");
  }

  void TableHead() {
    Table names{1,
                kColumns,
                {u"経過時間 [ms]", u"EX", u"CAN ID", u"DLC", u"D1", u"D2", u"D3", u"D4", u"D5",
                 u"D6", u"D7", u"D8"}};
    client_.Put(Range(6, 6), u"Value", std::move(names));
    client_.Put(client_.Get(Range(6, 6), u"Interior", {}), u"ColorIndex", 36);
    client_.Put(client_.Get(Range(6, 6), u"Borders", {}), u"LineStyle", 1);
    FontSize(Range(6, 6), 9);
    constexpr std::int32_t kWidths[] = {11, 4, 9, 5};
    for (std::int32_t column = 1; column <= 4; ++column) Width(column, kWidths[column - 1]);
    Width(String(u"E:L"), 4);
  }

  void Records(std::size_t filled) {
    Table records{kRows, kColumns, {}};
    for (std::size_t index = 0; index < kRows * kColumns; ++index) {
      const std::size_t row = index / kColumns;
      records.texts.push_back(row < filled ? SampleText(row, index % kColumns) : String());
    }
    client_.Put(Range(7, 20'007), u"Value", std::move(records));
    client_.Call(Cell(7, 1), u"AutoFilter", {1}, {});
  }

 private:
  SampleClient& client_;
  Handle sheet_{};
};

}  // namespace

String SampleText(std::size_t row, std::size_t column) {
  switch (column) {
    case 0:
      return Digits(row * 3, 10, 1) + u".125";
    case 1:
      return row % 2 == 0 ? u"*" : u"";
    case 2:
      return row < std::size(kLikeNumbers) ? kLikeNumbers[row]
                                           : Digits(row * 7919 % 0x20000000, 16, 8);
    case 3:
      return u"8";
    default:
      return Digits((row * 31 + column) % 256, 16, 2);
  }
}

void WriteSampleBook(SampleClient& client, const String& path, std::int32_t format,
                     std::size_t filled) {
  Flush flush(client);
  flush.Heads();
  flush.TableHead();
  flush.Records(filled);
  const Handle book = client.Get(kProgram, u"ActiveWorkbook", {});
  if (format == 0) {
    client.Call(book, u"SaveAs", {path}, {});
  } else {
    client.Call(book, u"SaveAs", {}, {{u"FileName", path}, {u"FileFormat", format}});
  }
  client.Call(client.Get(kProgram, u"ActiveWorkbook", {}), u"Close", {}, {});
}

}  // namespace tolvane::office
