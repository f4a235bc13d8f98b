// The calls of the vendors' libraries and of qxt100.dll, against declarations that share nothing
// with the program's: order and width of the arguments, layout of the records, calling convention.
#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <string_view>

#include "tests/simulator/abi/c_caller.h"
#include "tests/simulator/library_bed.h"

namespace tolvane::simulator {
namespace {

// The second one has a stamp that is not 0.
constexpr std::string_view kFrames = "(1.000) c 7FF#\n(1.001) c 1ABCDEF0#112233\n";

class CallsFromC : public SimulatedLibrary {
 protected:
  /// What `drive` finds wrong in the library, empty for nothing. `bench` follows the bus in the
  /// file.
  std::string Fault(const char* (*drive)(void*), const std::filesystem::path& library,
                    std::string_view bench) {
    WriteFile("bus.log", kFrames);
    UseBench(std::string(kBus).append(bench));
    const HMODULE module = LoadLibraryW(library.c_str());
    if (module == nullptr) return "not loaded";
    const char* const fault = drive(module);
    const std::string text = fault == nullptr ? "" : fault;
    FreeLibrary(module);
    return text;
  }
};

TEST_F(CallsFromC, FitCanusbdrv) {
  EXPECT_EQ(Fault(DriveCanusb, SimulatorFolder() / "canusbdrv.dll",
                  "[canusb 1]\nserial=LWR12345\nversion=V7\n"),
            "");
  EXPECT_NE(Report().find("canusb_Open(\"LWR12345\", \"500\", 0, -1, 1)"), std::string::npos)
      << Report();
}

TEST_F(CallsFromC, FitIFCan) {
  EXPECT_EQ(Fault(DriveIfcan, SimulatorFolder() / "IFCan.dll",
                  "[interface 3]\nconfig=0,11,12,13,14,15,39\nstruct_length=100\nvendor=101\n"
                  "device=102\nsubsystem=103\nrevision=104\nboard=105\nmodel=106\nchannel=107\n"
                  "physical_layer=108\n"),
            "");
  EXPECT_NE(Report().find(", 1, 11, 12, 13, 14, 15, 295) = 0\n"), std::string::npos) << Report();
}

TEST_F(CallsFromC, FitCanlib32) {
  EXPECT_EQ(Fault(DriveCanlib, SimulatorFolder() / "canlib32.dll", "[kvaser 0]\nname=the first\n"),
            "");
  EXPECT_NE(Report().find("canSetBusParams(0, -2, 5, 2, 1, 3, 0) = 0\n"), std::string::npos)
      << Report();
  EXPECT_NE(Report().find("canSetBusOutputControl(0, 1) = 0\n"), std::string::npos) << Report();
}

TEST_F(CallsFromC, FitQxt100) {
  EXPECT_EQ(Fault(DriveQxt100, SimulatorFolder() / ".." / "program" / "qxt100.dll", ""), "");
}

}  // namespace
}  // namespace tolvane::simulator
