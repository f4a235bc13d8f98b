#include "tests/window/damaged_library.h"

#include <windows.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <string>

namespace tolvane::window {
namespace {

/// Changes the machine that the file's header names into the other of the two.
bool ChangeMachine(std::string& image) {
  IMAGE_DOS_HEADER dos{};
  if (image.size() < sizeof(dos)) return false;
  std::memcpy(&dos, image.data(), sizeof(dos));
  const std::size_t at = static_cast<std::size_t>(dos.e_lfanew) + sizeof(DWORD);
  WORD machine = 0;
  if (dos.e_magic != IMAGE_DOS_SIGNATURE || at + sizeof(machine) > image.size()) return false;
  std::memcpy(&machine, image.data() + at, sizeof(machine));
  machine = machine == IMAGE_FILE_MACHINE_I386 ? IMAGE_FILE_MACHINE_AMD64 : IMAGE_FILE_MACHINE_I386;
  std::memcpy(image.data() + at, &machine, sizeof(machine));
  return true;
}

/// Changes the last letter of the export's name, so that the names stay in their order. The library
/// may hold the same text elsewhere, which changes with it.
bool RenameExport(std::string& image, std::string_view name) {
  const std::string whole = std::string(1, '\0').append(name).append(1, '\0');
  std::size_t at = image.find(whole);
  if (at == std::string::npos) return false;
  for (; at != std::string::npos; at = image.find(whole, at)) ++image[at + name.size()];
  return true;
}

bool DoDamage(std::string& image, Damage damage, std::string_view lost_export) {
  switch (damage) {
    case Damage::kNoLibrary:
      image = "Not a library, only its name.\r\n";
      return true;
    case Damage::kOtherMachine:
      return ChangeMachine(image);
    case Damage::kLacksExport:
      return RenameExport(image, lost_export);
    default:
      return true;
  }
}

}  // namespace

bool CopyDamaged(const std::filesystem::path& source, const std::filesystem::path& target,
                 Damage damage, std::string_view lost_export) {
  std::ifstream in(source, std::ios::binary);
  std::string image{std::istreambuf_iterator<char>(in), {}};
  if (image.empty() || !DoDamage(image, damage, lost_export)) return false;
  std::ofstream out(target, std::ios::binary | std::ios::trunc);
  out << image;
  out.close();
  return !out.fail();
}

}  // namespace tolvane::window
