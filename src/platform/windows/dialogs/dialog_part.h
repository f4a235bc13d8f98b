#pragma once

#include <cstdint>
#include <span>

#include "platform/windows/window_parts/dpi.h"

namespace tolvane::platform::windows {

/// What a control of a dialog is. Their order in a table is the tab order; radio buttons that
/// follow a kFirstRadio are one group for the arrow keys.
enum class PartKind : std::uint8_t {
  kGroup,
  kLabel,
  kCentredLabel,
  kFirstRadio,
  kRadio,
  kLeftover,  // a radio button that is never shown
  kCheck,
  kTextBox,
  kNumberBox,
  kStatus,  // text of the program that can be copied
  kColour,  // push button whose face is the colour
  kButton,
  kDefaultButton,
  kPicture,  // square; a click on it, or the space bar, is told
};

constexpr int kNoId = 0xFFFF;  // of labels and groups that nobody asks for

/// A control of a dialog. Places are in units of 96 dpi.
struct DialogPart {
  int control;
  PartKind kind;
  const wchar_t* text;
  int left;
  int top;
  int width;
  int height;
  // For screen readers, where neither the text nor a label right before says it.
  const wchar_t* name = nullptr;
};

/// Height of a line of controls and of a push button.
constexpr int kLine = 22;
constexpr int kButtonHeight = 28;
constexpr int kButtonWidth = 88;

/// Makes the controls of a dialog as children of `window`.
void AddParts(HWND window, const Dpi& dpi, HFONT font, std::span<const DialogPart> parts);

/// `count` times the same line of controls, `step` lower each time, their numbers counted up by
/// one, their names for screen readers beginning with the line's number.
void AddRows(HWND window, const Dpi& dpi, HFONT font, std::span<const DialogPart> line, int count,
             int step);

}  // namespace tolvane::platform::windows
