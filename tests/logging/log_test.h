#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>

#include "logging/excel_outputdb.h"
#include "platform/memory/automation/automation.h"
#include "platform/memory/system/code_page_932.h"
#include "platform/memory/system/event_loop.h"
#include "platform/memory/system/file_system.h"
#include "platform/memory/system/journal.h"
#include "platform/memory/system/special_folders.h"
#include "platform/memory/system/wall_clock.h"
#include "run/elm327_info.h"

namespace tolvane {

constexpr std::array<std::uint8_t, 8> kBytes = {0x00, 0x1A, 0xFF, 0x03, 0x44, 0x55, 0x66, 0x77};

// The head of every csv file of a LogTest, up to the column line.
inline const std::string kHead =
    "Tolvane Ver1.23,,,Copyright (C) 2026 Tolvane Project,,,,https://tolvane.example/\r\n"
    "\r\n"
    "2026/11/20 9:05:07,,,bit rate\x81\x46,500k bps\r\n"
    "CANUSB ABCD \x81\x41V1.0\r\n"
    "\r\n"
    "\x82\x62\x82\x60\x82\x6d\x8e\xf3\x90\x4d\x83\x8d\x83\x4f\r\n"
    "\r\n";
inline const std::string kColumns11 =
    "  \x8e\x9e\x8a\xd4[ms] , ID  ,DLC,  D1,D2,D3,D4,D5,D6,D7,D8\r\n";
inline const std::string kColumns29 =
    "  \x8e\x9e\x8a\xd4[ms] , E ,    ID    ,DLC,  D1,D2,D3,D4,D5,D6,D7,D8\r\n";

/// A log on a machine in memory: program in C:\Tolvane, desktop D:\Desktop, 20 November 2026 after
/// nine. What a run would set is set here.
class LogTest : public ::testing::Test {
 protected:
  LogTest() {
    files.AddFolder(u"C:\\Tolvane");
    files.AddFolder(u"D:\\Desktop");
    device.Param_ALL_Clear();
    device.t_LogSaveFormat = kLogFormatCsv;
    StartRun();
  }

  void StartRun() {
    FileName_Date.clear();
    FileName_No.clear();
    db.Param_ALL_Clear();
    db.hardware_information = u"CANUSB ABCD 、V1.0";
    db.str_bitrate = u"500k bps";
    if (device.t_LogSaveFormat == kLogFormatCsv) db.csv_DB_Initialize(0, device);
  }

  void Flush(std::int32_t Output_ch, platform::AutomationObject* objExcel = nullptr) {
    db.Excel_DataOutput(Output_ch, device, objExcel, FileName_Date, FileName_No, FolderName);
  }

  /// What the receive loop does after each record.
  void RollOver(platform::AutomationObject* objExcel = nullptr) {
    db.RollOver(device, objExcel, FileName_Date, FileName_No, FolderName);
  }
  /// The same with a channel that was full with its last record.
  void RollOverNow(platform::AutomationObject* objExcel = nullptr) {
    db.Excel_DB_ArayyCounter_MAX = db.Excel_DB_ArayyCounter - 1;
    RollOver(objExcel);
    db.Excel_DB_ArayyCounter_MAX = Excel_OutputDB::kRow_MAX;
  }

  /// The bytes of log number `number` of the hour, empty when there is none.
  std::string LogBytes(StringView number, StringView extension = u".csv") {
    String path = u"C:\\Tolvane\\KL26112009-";
    path.append(number).append(extension);
    return files.Bytes(path).value_or("");
  }

  platform::memory::Journal journal;
  platform::memory::CodePage932 code_page;
  platform::memory::FileSystem files{code_page};
  platform::memory::SpecialFolders folders{u"D:\\Desktop", u"C:\\Windows\\system32"};
  platform::memory::WallClock wall_clock{{2026, 11, 20, 5, 9, 5, 7}};
  platform::EventGate gate;
  platform::memory::EventLoop events{gate};
  platform::memory::AutomationServers servers{journal};
  ELM327_Info device{u"C:\\Tolvane"};
  Excel_OutputDB db{{events, files, folders, wall_clock}};
  String FileName_Date;
  String FileName_No;
  String FolderName;
};

}  // namespace tolvane
