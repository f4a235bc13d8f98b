#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "config/filesavesystem.h"
#include "platform/memory/dialogs/message_box.h"
#include "platform/memory/system/code_page_932.h"
#include "platform/memory/system/file_system.h"
#include "platform/memory/system/journal.h"
#include "run/elm327_info.h"

namespace tolvane {

inline std::string Number(std::int32_t value) {
  std::string bytes;
  const auto bits = static_cast<std::uint32_t>(value);
  for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(bits >> shift & 0xFF);
  return bytes;
}

inline std::string CountedText(std::string_view encoded) {
  std::string bytes = {static_cast<char>(encoded.size() & 0xFF),
                       static_cast<char>(encoded.size() >> 8)};
  return bytes.append(encoded);
}

/// A settings file in C:\Tolvane, on a disk in memory.
class ConfigTest : public ::testing::Test {
 protected:
  ConfigTest() {
    files.AddFolder(u"C:\\Tolvane");
    device.Param_ALL_Clear();
  }

  std::int32_t Load() {
    return FileSaveSystem::LoadConfigFile(device, files, code_page, message_box);
  }
  std::int32_t Save() { return FileSaveSystem::SaveConfigFile(device, files, code_page); }

  std::string Config() { return files.Bytes(kPath).value_or("no file"); }

  /// The present file with another version in it.
  void SetVersion(std::int32_t version) {
    std::string bytes = Config();
    bytes.replace(kVersionOffset, 4, Number(version));
    files.AddFile(kPath, bytes);
  }

  static constexpr StringView kPath = u"C:\\Tolvane\\config.dat";
  // Behind the two texts of the defaults and three numbers.
  static constexpr std::size_t kVersionOffset = 2 + 15 + 2 + 34 + 3 * 4;

  platform::memory::Journal journal;
  platform::memory::CodePage932 code_page;
  platform::memory::FileSystem files{code_page};
  platform::EventGate gate;
  platform::memory::MessageBox message_box{journal, gate};
  ELM327_Info device{u"C:\\Tolvane"};
};

}  // namespace tolvane
