#pragma once

#include <cstdint>

#include "platform/controls.h"
#include "platform/rich_text_view.h"

namespace tolvane::platform {

/// The main window itself, without its controls.
class Window {
 public:
  virtual ~Window() = default;
  virtual void Caption(StringView text) = 0;
  /// Closes the window before it returns: Form_QueryUnload, and unless that refuses, Form_Unload.
  /// May be called before the window was ever shown, by a start that fails; the object and its
  /// controls stay usable until the process ends.
  virtual void Unload() = 0;
};

/// What is unloaded with the main window.
enum class OtherForm : std::uint8_t {
  Form2,
  FormBG,
  FormBG_29,
  FormBG2,
  FormBG2_29,
  FormVersion,
  FormCommonSetting,
  FormOption1,
  FormHelp
};

class OtherForms {
 public:
  virtual ~OtherForms() = default;
  /// Destroys the window and what belongs to it, of a worker its timer. Without effect on a form
  /// that was never loaded.
  virtual void Unload(OtherForm form) = 0;
};

class PopupMenu {
 public:
  virtual ~PopupMenu() = default;
  /// Shows the menu at the mouse pointer, or at the caret when the keyboard asked for it, and
  /// returns when it is closed. Pumps messages; the chosen command has run or is waiting then.
  virtual void PopUp() = 0;
};

/// The progress splash shown while adapters are searched.
class Splash {
 public:
  virtual ~Splash() = default;
  virtual void Lb_msg(StringView text) = 0;
  /// 0.0 to 1.0 of the track's width, the bar's left edge being the rounded product.
  virtual void Progress(double fraction) = 0;
  /// What is hidden may stay the active window until the main window is there: a program without a
  /// window gives the foreground to another one and does not get it back.
  virtual void Visible(bool visible) = 0;
};

/// The main window's controls under their own names, which are also their ids in resource.h.
struct MainWindow {
  Window& window;
  Splash& Form2;
  OtherForms& other_forms;

  Button& Bt_Connect;
  Button& Bt_Disconnect;
  ComboBox& Cmb_Serect_Device;
  TextBox& TB_ODB_Hard_Version;
  TextBox& TB_Protocol;
  TextBox& TB_Status;
  TextBox& TB_LogComment;
  Picture& Pic_Caution;
  RichTextView& RTB_MainView;

  MenuItem& menu_common_setting;
  MenuItem& menu_opt_function1;
  MenuItem& menu_opt_log1;

  // The view's pop-up.
  PopupMenu& menu_View;
  MenuItem& menu_View_All_Copy;
  MenuItem& menu_View_Ctrl_Z;
  MenuItem& menu_View_Ctrl_X;
  MenuItem& menu_View_Ctrl_C;
  MenuItem& menu_View_Ctrl_V;
  MenuItem& menu_View_DEL;
  MenuItem& menu_View_Text_Red;
  MenuItem& menu_View_Text_Blue;
  MenuItem& menu_View_Text_Black;
  MenuItem& menu_View_Marker_Pink;
  MenuItem& menu_View_Marker_Yellow;
  MenuItem& menu_View_Marker_black;
  MenuItem& menu_View_Marker_white;
  MenuItem& menu_View_Date;
};

}  // namespace tolvane::platform
