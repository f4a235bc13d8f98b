// sample_books FOLDER: writes full.xlsx, short.xlsx (3 records), full.xls and short.xls through the
// server's own members, for the checks by independent readers beside it.
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

}  // namespace

int main(int count, char** words) {
  if (count != 2) return 2;
  const std::filesystem::path folder = words[1];
  std::filesystem::create_directories(folder);
  for (const Book& book : kBooks) {
    if (!Write(folder, book)) return 1;
  }
  return 0;
}
