#include "simulator/office/zip_archive.h"

#include <gtest/gtest.h>

namespace tolvane::office {
namespace {

using namespace std::string_literals;

TEST(OfficeZipArchive, StoresAnEntryByteForByte) {
  ZipArchive archive;
  archive.Add("a/b", "123456789");
  const std::string common =
      "\x14\0\0\0\0\0\0\0\x21\0"
      "\x26\x39\xF4\xCB\x09\0\0\0\x09\0\0\0\x03\0\0\0"s;
  EXPECT_EQ(archive.Finish(), "PK\x03\x04"s + common + "a/b123456789" +  //
                                  "PK\x01\x02\x14\0"s + common + "\0\0\0\0\0\0\0\0\0\0\0\0\0\0"s +
                                  "a/b" +
                                  "PK\x05\x06\0\0\0\0\x01\0\x01\0\x31\0\0\0\x2A\0\0\0\0\0"s);
}

}  // namespace
}  // namespace tolvane::office
