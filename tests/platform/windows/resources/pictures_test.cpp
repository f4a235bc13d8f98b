// Which picture stands where, and what is on it.
#include <gtest/gtest.h>

#include <tolvane_control_ids.h>
#include <algorithm>
#include <set>
#include <vector>

#include "tests/platform/windows/all_windows_bed.h"
#include "tests/platform/windows/resources/icon_pixels.h"

namespace tolvane::platform::windows {
namespace {

constexpr int kAllPictures[] = {id::ICON_TOLVANE,        id::ICON_CAUTION, id::ICON_SPLASH,
                                id::PICTURE_OK,          id::PICTURE_HELP, id::PICTURE_FOLDER,
                                id::PICTURE_FOLDER_PATH, id::PICTURE_LINK};

std::vector<std::uint32_t> Resource(int picture, int size) {
  const IconHandle icon(static_cast<HICON>(
      LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(picture), IMAGE_ICON, size, size, 0)));
  return IconPixels(icon.Get(), size);
}

/// The pictures, by their numbers, that an icon of `size` pixels is.
std::set<int> PicturesEqualTo(HICON icon, int size) {
  const std::vector<std::uint32_t> shown = IconPixels(icon, size);
  std::set<int> equal;
  for (const int picture : kAllPictures) {
    if (!shown.empty() && Resource(picture, size) == shown) equal.insert(picture);
  }
  return equal;
}

/// What a picture control shows.
std::set<int> PicturesIn(HWND window, int control) {
  const HWND hwnd = GetDlgItem(window, control);
  RECT client{};
  GetClientRect(hwnd, &client);
  const auto icon = reinterpret_cast<HICON>(SendMessageW(hwnd, STM_GETICON, 0, 0));
  EXPECT_EQ(client.right, client.bottom) << control;
  return PicturesEqualTo(icon, static_cast<int>(client.right));
}

HICON ClassIcon(HWND window) {
  return reinterpret_cast<HICON>(GetClassLongPtrW(window, GCLP_HICON));
}

class Pictures : public testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(windows_.Made()); }

  AllWindows windows_;
};

TEST_F(Pictures, StandInTheWindowsThatTheyAreFor) {
  EXPECT_EQ(PicturesIn(windows_.Main(), id::Pic_Caution), std::set{id::ICON_CAUTION});
  EXPECT_EQ(PicturesIn(windows_.SplashScreen(), id::Image1), std::set{id::ICON_SPLASH});
  EXPECT_EQ(PicturesEqualTo(ClassIcon(windows_.Main()), GetSystemMetrics(SM_CXICON)),
            std::set{id::ICON_TOLVANE});
  for (int i = 0; i < 3; ++i) {
    const HWND dialog = windows_.OpenSettings(i);
    EXPECT_EQ(PicturesIn(dialog, id::Img_Help_Setting), std::set{id::PICTURE_HELP}) << i;
    const HWND help = AllWindows::OpenHelp(dialog, id::Img_Help_Setting);
    EXPECT_EQ(PicturesEqualTo(ClassIcon(help), GetSystemMetrics(SM_CXICON)),
              std::set{id::ICON_TOLVANE});
    if (i == 2) {
      EXPECT_EQ(PicturesIn(dialog, id::Img_save_folder), std::set{id::PICTURE_FOLDER});
      EXPECT_EQ(PicturesIn(dialog, id::Img_save_folder_path), std::set{id::PICTURE_FOLDER_PATH});
      EXPECT_EQ(PicturesIn(dialog, id::Img_Log_save_folder), std::set{id::PICTURE_FOLDER});
      EXPECT_EQ(PicturesIn(dialog, id::Img_Log_save_folder_path),
                std::set{id::PICTURE_FOLDER_PATH});
    }
    AllWindows::Close(dialog);
  }
  const HWND version = windows_.OpenVersion();
  EXPECT_EQ(PicturesIn(version, id::Img_OK), std::set{id::PICTURE_OK});
  EXPECT_EQ(PicturesIn(version, id::PicURL), std::set{id::PICTURE_LINK});
}

// The areas of a picture that have one flat colour tell which one it is.
TEST(PictureResources, HaveTheColoursOfWhatTheyShow) {
  constexpr std::uint32_t kSignYellow = 0xFFCF33;
  constexpr std::uint32_t kFolderBack = 0xE0A51C;
  constexpr std::uint32_t kFolderFront = 0xFFD35C;
  constexpr std::uint32_t kArrowGreen = 0x3AA58F;
  constexpr std::uint32_t kBlue = 0x2F6F8F;
  constexpr std::uint32_t kGlobe = 0xD8EDF2;
  constexpr std::uint32_t kTyre = 0x1D2D38;
  constexpr std::uint32_t kSignalGreen = 0x8FE0D0;
  constexpr std::uint32_t kPalette[] = {kSignYellow, kFolderBack, kFolderFront, kArrowGreen,
                                        kBlue,       kGlobe,      kTyre,        kSignalGreen};
  constexpr std::ptrdiff_t kArea = 6;  // pixels; fewer come of smoothed edges
  const struct {
    int picture;
    int size;
    std::set<std::uint32_t> colours;
    bool has_white_middle;  // letters, in a picture that is otherwise the colour of another one
  } rows[] = {{id::ICON_TOLVANE, 64, {kBlue, kFolderFront, kSignalGreen}, false},
              {id::ICON_CAUTION, 48, {kSignYellow}, false},
              {id::ICON_SPLASH, 96, {kFolderBack, kArrowGreen, kBlue, kGlobe, kTyre}, false},
              {id::PICTURE_OK, 56, {kBlue}, false},
              {id::PICTURE_HELP, 32, {kBlue}, true},
              {id::PICTURE_FOLDER, 32, {kFolderBack, kFolderFront}, false},
              {id::PICTURE_FOLDER_PATH, 32, {kArrowGreen, kBlue}, false},
              {id::PICTURE_LINK, 40, {kBlue, kFolderFront, kGlobe}, false}};
  for (const auto& row : rows) {
    const std::vector<std::uint32_t> pixels = Resource(row.picture, row.size);
    ASSERT_FALSE(pixels.empty()) << row.picture;
    std::set<std::uint32_t> found;
    for (const std::uint32_t colour : kPalette) {
      if (std::ranges::count(pixels, colour) >= kArea) found.insert(colour);
    }
    EXPECT_EQ(found, row.colours) << row.picture;
    if (row.colours != std::set{kBlue}) continue;
    // In the middle half, where no ground shows.
    std::ptrdiff_t white = 0;
    for (int y = row.size / 4; y < row.size * 3 / 4; ++y) {
      for (int x = row.size / 4; x < row.size * 3 / 4; ++x) {
        if (pixels[static_cast<std::size_t>(y * row.size + x)] == 0xFFFFFF) ++white;
      }
    }
    EXPECT_EQ(white >= kArea, row.has_white_middle) << row.picture;
  }
}

}  // namespace
}  // namespace tolvane::platform::windows
