#pragma once

#include <any>
#include <cstdint>
#include <functional>
#include <memory>

#include "platform/main_window.h"
#include "platform/platform.h"
#include "receive/adapters/can_db.h"
#include "receive/adapters/can_db_interface.h"
#include "receive/adapters/can_db_kvaser.h"
#include "receive/adapters/canusb.h"
#include "receive/adapters/interfacecan.h"
#include "receive/adapters/kvasercan.h"
#include "receive/workers.h"
#include "run/elm327_info.h"

namespace tolvane {

/// The main window as the controller of everything: one class in two folders. Each method is
/// declared below under its file, which lies where what it includes lets it:
///
///   run/control/form1.cpp      a run and the choice of its adapter: workers, logs, discovery
///   run/control/view_menu.cpp  the page's events and the items of its pop-up menu: the end of a
///                              run makes up for what the menu missed
///   shell/application.cpp      the life of the process: settings files and office programs as well
///   shell/view_commands.cpp    the page as a notebook: the page alone, but a subject of the shell
///
/// Handlers run on the user-interface thread, during a run nested inside its yields.
class Form1 {
 public:
  /// `executable_folder` without a trailing backslash.
  Form1(const platform::Platform& platform, const platform::MainWindow& window,
        String executable_folder);

  // shell/application.cpp

  /// The whole start; returns when the program waits for the user, or when the start has failed
  /// and the window is unloaded. Yields and shows message boxes. The window is not visible yet.
  void Form_Load();
  void Application_Open();
  /// Sets `Cancel` to 1 to refuse the closing of the window; otherwise saves what the user had.
  void Form_QueryUnload(std::int32_t& Cancel);
  void Form_Unload();
  void menu_file_close_Click();
  /// Every command of the main window and its menus comes through here. From the Form_QueryUnload
  /// on that lets the window close none is carried out: in the yields of closing nothing starts
  /// that would outlive the window.
  template <typename Command>
  void Do(Command command) {
    if (!closing_) command();
  }
  /// What makes Form_QueryUnload refuse, without its saving: for the question at the end of a
  /// Windows session.
  [[nodiscard]] bool ClosingIsRefused() const;
  /// The session ends although ClosingIsRefused: saves the records of the run, then what closing
  /// saves, and ends the run. The process may be ended as soon as this returns. It yields to
  /// nobody, as it may be called from within anything that pumps messages.
  void Session_Ends();

  // run/control/form1.cpp

  /// The whole run: returns when it has ended and the window is put back. No frame is received once
  /// the session has ended.
  void Bt_Connect_Click();
  void Bt_Disconnect_Click();
  void Bt_ViewClear_Click();
  void Bt_SaveFile_Click();
  /// Raised by every selection of a line, by the user or in code.
  void Cmb_Serect_Device_Click();

  // run/control/view_menu.cpp

  /// The pop-up's items follow the selection, but not while the timer of FormBG is on: what they
  /// miss then is made up for at the end of the run.
  void RTB_MainView_SelChange();
  /// A right click in the view, or the menu key while it has the focus.
  void RTB_MainView_ContextMenu();
  void RTB_MainView_GotFocus();

  // shell/view_commands.cpp

  void menu_View_All_Copy_Click();
  void menu_View_Ctrl_Z_Click();
  void menu_View_Ctrl_X_Click();
  void menu_View_Ctrl_C_Click();
  void menu_View_Ctrl_V_Click();
  void menu_View_DEL_Click();
  void menu_View_Text_Red_Click();
  void menu_View_Text_Blue_Click();
  void menu_View_Text_Black_Click();
  void menu_View_Marker_Pink_Click();
  void menu_View_Marker_Yellow_Click();
  void menu_View_Marker_black_Click();
  void menu_View_Marker_white_Click();
  void menu_View_Date_Click();
  /// Background of the selection; components 0 to 255.
  void View_Set_Char_Effect(std::int16_t red, std::int16_t green, std::int16_t blue);

  ELM327_Info device;
  std::any now_diagcodes;                // nothing reads or writes it
  std::int32_t ApplicationOpenFlag = 0;  // 1 after a successful start-up; nothing reads it
  std::int32_t SettingFileOpenFlag = 0;  // 1 when config.dat was read; nothing reads it
  std::int32_t DebugMode = 0;            // nothing reads it
  std::int32_t RxFlag = 0;               // 1 while a receive loop is to go on
  CANUSB CAN_u;
  CAN_DB CAN_d;
  InterfaceCAN IfCan_u;
  CAN_DB_Interface IfCan_d;
  KvaserCAN kvCan_u;
  CAN_DB_Kvaser kvCan_d;
  std::int32_t mouseCursor = 0;  // the hand shown over the link of FormVersion
  std::unique_ptr<platform::AutomationObject> objExcel;  // empty outside a run

 private:
  /// How far start-up came decides what closing may write.
  enum class StartUp : std::uint8_t { kNotBegun, kBegun, kSettingsRead };

  // shell/application.cpp: the stages of Application_Open
  void Clear_All_Parameters();
  void Search_Devices(std::int32_t libraries);
  [[nodiscard]] bool Found_Any_Device() const;
  void List_Devices();
  void Restore_View();
  void Check_Office();
  /// Moves the splash's bar and lets it repaint.
  void Splash_Step(double progress);
  /// The page and, once they were read, the settings.
  void Save_For_Next_Start();
  /// The message of a start that cannot go on, and the closing of the window.
  void End_Start(StringView reason);

  // run/control/form1.cpp: the stages of Bt_Connect_Click
  void Lock_Window();
  /// False when the settings ask for a spreadsheet server that does not start, which is shown.
  [[nodiscard]] bool Open_Spreadsheet_Server();
  /// Moves the comment into the settings. False when one is missing, which is shown.
  [[nodiscard]] bool Take_Comment();
  void Run_Worker();
  void Put_Window_Back();
  void Close_Spreadsheet_Server();

  /// Makes the adapter of the chosen line the one of the next run. As Apply_Device_Select.
  std::int32_t Device_Select();
  /// What the comment's box holds, without the blanks at its ends.
  [[nodiscard]] String Trimmed_Comment() const;
  /// Cuts to kLogComment_MAX.
  void Store_Comment(StringView comment);

  // run/control/view_menu.cpp
  struct ViewMenuFacts;
  void Set_View_Menu(const ViewMenuFacts& facts);
  void Set_View_Menu_At_Start();
  void Set_View_Menu_After_Run();
  [[nodiscard]] bool Clipboard_Has_Text();

  // shell/view_commands.cpp
  void To_Clipboard(StringView plain_text, StringView rich_text);
  /// How long a command may wait for the clipboard, in ms: frames wait with it in a run.
  [[nodiscard]] std::int32_t Clipboard_Patience() const { return RxFlag == 1 ? 20 : 100; }

  platform::Platform platform_;
  platform::MainWindow window_;
  std::function<void()> Session_End_Output_;  // of the run, empty while there is nothing to write
  Workers workers_;
  StartUp start_up_ = StartUp::kNotBegun;
  bool closing_ = false;
  bool session_ended_ = false;
  bool view_menu_missed_a_change_ = false;
};

}  // namespace tolvane
