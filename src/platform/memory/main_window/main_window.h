#pragma once

#include <functional>
#include <utility>

#include "platform/main_window.h"
#include "platform/memory/main_window/controls.h"

namespace tolvane::platform::memory {

class Window final : public platform::Window {
 public:
  explicit Window(Journal& journal) : journal_(journal) {}

  void Caption(StringView text) override { journal_.Assign("Form1", "Caption", text); }
  void Unload() override {
    journal_.Note("Form1.Unload()");
    if (on_unload_) on_unload_();
  }
  /// What closing does: the owner's Form_QueryUnload and Form_Unload.
  void OnUnload(std::function<void()> handler) { on_unload_ = std::move(handler); }

 private:
  Journal& journal_;
  std::function<void()> on_unload_;
};

class Splash final : public platform::Splash {
 public:
  explicit Splash(Journal& journal) : journal_(journal) {}

  void Lb_msg(StringView text) override { journal_.Assign("Form2", "Lb_msg", text); }
  void Progress(double fraction) override { journal_.Assign("Form2", "Progress", fraction); }
  void Visible(bool visible) override { journal_.Assign("Form2", "Visible", visible); }

 private:
  Journal& journal_;
};

class OtherForms final : public platform::OtherForms {
 public:
  explicit OtherForms(Journal& journal) : journal_(journal) {}
  void Unload(OtherForm form) override;

 private:
  Journal& journal_;
};

class PopupMenu final : public platform::PopupMenu {
 public:
  explicit PopupMenu(Journal& journal) : journal_(journal) {}
  void PopUp() override { journal_.Note("menu_View.PopUp()"); }

 private:
  Journal& journal_;
};

/// The main window as it stands before start-up: every control with the state of its design.
class MainWindow {
 public:
  explicit MainWindow(Journal& journal);

  /// References into this object and to `RTB_MainView`; both must outlive the result.
  [[nodiscard]] platform::MainWindow Face(platform::RichTextView& RTB_MainView);

  Window window;
  Splash Form2;
  OtherForms other_forms;
  Button Bt_Connect;
  Button Bt_Disconnect;
  ComboBox Cmb_Serect_Device;
  TextBox TB_ODB_Hard_Version;
  TextBox TB_Protocol;
  TextBox TB_Status;
  TextBox TB_LogComment;
  Picture Pic_Caution;
  MenuItem menu_common_setting;
  MenuItem menu_opt_function1;
  MenuItem menu_opt_log1;
  PopupMenu menu_View;
  MenuItem menu_View_All_Copy;
  MenuItem menu_View_Ctrl_Z;
  MenuItem menu_View_Ctrl_X;
  MenuItem menu_View_Ctrl_C;
  MenuItem menu_View_Ctrl_V;
  MenuItem menu_View_DEL;
  MenuItem menu_View_Text_Red;
  MenuItem menu_View_Text_Blue;
  MenuItem menu_View_Text_Black;
  MenuItem menu_View_Marker_Pink;
  MenuItem menu_View_Marker_Yellow;
  MenuItem menu_View_Marker_black;
  MenuItem menu_View_Marker_white;
  MenuItem menu_View_Date;
};

}  // namespace tolvane::platform::memory
