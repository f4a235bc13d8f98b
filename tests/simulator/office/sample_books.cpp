// sample_books FOLDER: writes full.xlsx, short.xlsx (3 records), full.xls, short.xls, and
// typed.xlsx and typed.xls with texts taken as typed, through the server's own members, for the
// checks by independent readers beside it.
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <utility>

#include "simulator/office/record.h"
#include "simulator/office/server.h"
#include "tests/simulator/office/direct_client.h"

namespace {

using namespace tolvane;
using namespace tolvane::office;

struct Book {
  const char* name;
  std::int32_t format;
  std::size_t filled;
};

constexpr Book kBooks[] = {
    {"full.xlsx", 51, 20'001},
    {"short.xlsx", 51, 3},
    {"full.xls", 56, 20'001},
    {"short.xls", 0, 3},
};

bool Write(const std::filesystem::path& folder, const Book& book) {
  Record record;
  Server server(u"Excel.Application", u"16.0", Script{}, record);
  DirectClient client(server);
  client.Put(kProgram, u"DisplayAlerts", false);
  const auto start = std::chrono::steady_clock::now();
  WriteSampleBook(client, (folder / book.name).u16string(), book.format, book.filled);
  const auto taken = std::chrono::steady_clock::now() - start;
  std::printf(
      "%s: %lld ms\n", book.name,
      static_cast<long long>(std::chrono::duration_cast<std::chrono::milliseconds>(taken).count()));
  return client.failures.empty();
}

/// Texts that come alone, from A1 down; typed_check.py knows what becomes of them.
bool WriteTyped(const std::filesystem::path& file, std::int32_t format) {
  constexpr const char16_t* kTexts[] = {u"7E8",  u"1E5", u"001",  u"00",
                                        u"0E",   u"50%", u"TRUE", u"2024/01/02 3:04:05",
                                        u"'001", u"CAN"};
  Record record;
  Server server(u"Excel.Application", u"16.0", Script{}, record);
  DirectClient client(server);
  client.Put(kProgram, u"DisplayAlerts", false);
  client.Call(client.Get(kProgram, u"Workbooks", {}), u"Add", {}, {});
  const SampleClient::Handle sheet = client.Get(kProgram, u"ActiveSheet", {});
  std::int32_t row = 0;
  for (const char16_t* const text : kTexts) {
    client.Put(client.Get(sheet, u"cells", {++row, 1}), u"Value", String(text));
  }
  client.Call(client.Get(kProgram, u"ActiveWorkbook", {}), u"SaveAs", {},
              {{u"FileName", file.u16string()}, {u"FileFormat", format}});
  return client.failures.empty();
}

}  // namespace

int main(int count, char** words) {
  if (count != 2) return 2;
  const std::filesystem::path folder = words[1];
  std::filesystem::create_directories(folder);
  for (const Book& book : kBooks) {
    if (!Write(folder, book)) return 1;
  }
  return WriteTyped(folder / "typed.xlsx", 51) && WriteTyped(folder / "typed.xls", 56) ? 0 : 1;
}
