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

/// The main window as the controller of everything: one class in two folders. Each method lies
/// where what it needs lets it. By file, the methods and what they need:
///
///   run/control/form1.cpp: a run and the choice of its adapter
///     Form1                          the outside, the workers
///     Bt_Connect_Click               the stages below, in their order
///     Lock_Window                    the window's controls, run_protection
///     Open_Spreadsheet_Server        logging/spreadsheet_server.h
///     Take_Comment                   the comment's box, the settings
///     Run_Worker                     the workers, the adapters' records
///     Put_Window_Back                the window's controls, run_protection
///     Close_Spreadsheet_Server       logging/spreadsheet_server.h
///     Bt_Disconnect_Click            RxFlag
///     Bt_ViewClear_Click             the page
///     Bt_SaveFile_Click              logging/ime_function.h
///     Cmb_Serect_Device_Click        the list of adapters
///     Device_Select                  shell/discovery/device_select.h
///     Trimmed_Comment                the comment's box
///     Store_Comment                  the settings
///
///   run/control/view_menu.cpp: events of the page; the end of a run makes up for what they missed
///     RTB_MainView_SelChange         the timer of FormBG
///     RTB_MainView_ContextMenu       the timer of FormBG, the menu
///     RTB_MainView_GotFocus          the timer of FormBG, the status line
///     Set_View_Menu                  the items of the menu
///     Set_View_Menu_At_Start         the same, of an empty page
///     Set_View_Menu_After_Run        RTB_MainView_SelChange
///     Clipboard_Has_Text             the clipboard
///
///   shell/application.cpp: the life of the process, with settings files and office programs
///     Form_Load                      single_instance
///     Application_Open               config/filesavesystem.h, shell/discovery
///     Clear_All_Parameters           all records
///     Search_Devices                 shell/discovery/adapter_discovery.h
///     Found_Any_Device               the adapters' records
///     List_Devices                   shell/discovery/adapter_discovery.h
///     Restore_View                   config/filesavesystem.h
///     Check_Office                   shell/common_function.h
///     Splash_Step                    the splash
///     End_Start                      run/stop_message.h
///     ClosingIsRefused               the page, RxFlag, the timer of FormBG
///     Form_QueryUnload               Save_For_Next_Start
///     Session_Ends                   the log of the run, Save_For_Next_Start
///     Save_For_Next_Start            config/filesavesystem.h
///     Form_Unload                    the other forms
///     menu_file_close_Click          the window
///
///   shell/view_commands.cpp: the page as a notebook, which only the user asks for and no run
///     To_Clipboard                   the clipboard
///     menu_View_All_Copy_Click       To_Clipboard
///     menu_View_Ctrl_Z_Click         the page
///     menu_View_Ctrl_X_Click         the two commands that it joins
///     menu_View_Ctrl_C_Click         To_Clipboard
///     menu_View_Ctrl_V_Click         the clipboard
///     menu_View_DEL_Click            the page
///     menu_View_Text_Red_Click       the page
///     menu_View_Text_Blue_Click      the page
///     menu_View_Text_Black_Click     the page
///     menu_View_Marker_Pink_Click    View_Set_Char_Effect
///     menu_View_Marker_Yellow_Click  View_Set_Char_Effect
///     menu_View_Marker_black_Click   View_Set_Char_Effect
///     menu_View_Marker_white_Click   View_Set_Char_Effect
///     View_Set_Char_Effect           the page
///     menu_View_Date_Click           wall_clock, run/number_text.h
///
/// Handlers run on the user-interface thread, during a run nested inside its yields.
class Form1 {
 public:
  /// `executable_folder` without a trailing backslash.
  Form1(const platform::Platform& platform, const platform::MainWindow& window,
        String executable_folder);

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

  /// The whole run: returns when it has ended and the window is put back. No frame is received once
  /// the session has ended.
  void Bt_Connect_Click();
  void Bt_Disconnect_Click();
  void Bt_ViewClear_Click();
  void Bt_SaveFile_Click();
  /// Raised by every selection of a line, by the user or in code.
  void Cmb_Serect_Device_Click();

  /// The pop-up's items follow the selection, but not while the timer of FormBG is on: what they
  /// miss then is made up for at the end of the run.
  void RTB_MainView_SelChange();
  /// A right click in the view, or the menu key while it has the focus.
  void RTB_MainView_ContextMenu();
  void RTB_MainView_GotFocus();

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

  // The stages of Application_Open
  void Clear_All_Parameters();
  void Search_Devices(std::int32_t libraries);
  [[nodiscard]] bool Found_Any_Device() const;
  void List_Devices();
  void Restore_View();
  void Check_Office();
  /// Moves the splash's bar and lets it repaint.
  void Splash_Step(double progress);
  /// The message of a start that cannot go on, and the closing of the window.
  void End_Start(StringView reason);
  /// The page and, once they were read, the settings.
  void Save_For_Next_Start();

  // The stages of Bt_Connect_Click
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

  struct ViewMenuFacts;
  void Set_View_Menu(const ViewMenuFacts& facts);
  void Set_View_Menu_At_Start();
  void Set_View_Menu_After_Run();
  [[nodiscard]] bool Clipboard_Has_Text();

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
