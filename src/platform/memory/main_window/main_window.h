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
  Journal& journal_;  // ahead of the controls, which are made with it

 public:
  explicit MainWindow(Journal& journal) : journal_(journal) {}

  /// References into this object and to `RTB_MainView`; both must outlive the result.
  [[nodiscard]] platform::MainWindow Face(platform::RichTextView& RTB_MainView);

  Window window{journal_};
  Splash Form2{journal_};
  OtherForms other_forms{journal_};
  Button Bt_Connect{journal_, "Bt_Connect", false};
  Button Bt_Disconnect{journal_, "Bt_Disconnect", false};
  ComboBox Cmb_Serect_Device{journal_, "Cmb_Serect_Device"};
  TextBox TB_ODB_Hard_Version{journal_, "TB_ODB_Hard_Version", u"Nothing"};
  TextBox TB_Protocol{journal_, "TB_Protocol", u"---"};
  TextBox TB_Status{journal_, "TB_Status", u""};
  TextBox TB_LogComment{journal_, "TB_LogComment", u""};
  Picture Pic_Caution{journal_, "Pic_Caution"};
  MenuItem menu_common_setting{journal_, "menu_common_setting", true};
  MenuItem menu_opt_function1{journal_, "menu_opt_function1", true};
  MenuItem menu_opt_log1{journal_, "menu_opt_log1", true};
  PopupMenu menu_View{journal_};
  MenuItem menu_View_All_Copy{journal_, "menu_View_All_Copy", true};
  MenuItem menu_View_Ctrl_Z{journal_, "menu_View_Ctrl_Z", true};
  MenuItem menu_View_Ctrl_X{journal_, "menu_View_Ctrl_X", true};
  MenuItem menu_View_Ctrl_C{journal_, "menu_View_Ctrl_C", true};
  MenuItem menu_View_Ctrl_V{journal_, "menu_View_Ctrl_V", true};
  MenuItem menu_View_DEL{journal_, "menu_View_DEL", true};
  MenuItem menu_View_Text_Red{journal_, "menu_View_Text_Red", true};
  MenuItem menu_View_Text_Blue{journal_, "menu_View_Text_Blue", true};
  MenuItem menu_View_Text_Black{journal_, "menu_View_Text_Black", true};
  MenuItem menu_View_Marker_Pink{journal_, "menu_View_Marker_Pink", true};
  MenuItem menu_View_Marker_Yellow{journal_, "menu_View_Marker_Yellow", true};
  MenuItem menu_View_Marker_black{journal_, "menu_View_Marker_black", true};
  MenuItem menu_View_Marker_white{journal_, "menu_View_Marker_white", true};
  MenuItem menu_View_Date{journal_, "menu_View_Date", true};
};

}  // namespace tolvane::platform::memory
