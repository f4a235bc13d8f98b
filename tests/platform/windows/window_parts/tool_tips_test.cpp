#include <gtest/gtest.h>

#include <tolvane_control_ids.h>
#include <iterator>

#include "platform/windows/dialogs/formhelp_window.h"
#include "platform/windows/dialogs/formoptionlog1_window.h"
#include "platform/windows/main_window/form1_window.h"
#include "platform/windows/system/code_page.h"
#include "platform/windows/system/file_services.h"
#include "platform/windows/system/shell.h"
#include "platform/windows/system/text.h"

namespace tolvane::platform::windows {
namespace {

/// The tool tips that `owner` made, null without.
HWND ToolTipsOf(HWND owner) {
  HWND found = nullptr;
  while ((found = FindWindowExW(nullptr, found, TOOLTIPS_CLASSW, nullptr)) != nullptr) {
    if (GetWindow(found, GW_OWNER) == owner) return found;
  }
  return nullptr;
}

/// The tip of a control, empty when it has none.
String TipOf(HWND tool_tips, HWND owner, int control) {
  wchar_t text[256] = L"";
  TTTOOLINFOW info{};
  info.cbSize = sizeof(info);
  info.hwnd = owner;
  info.uId = reinterpret_cast<UINT_PTR>(GetDlgItem(owner, control));
  info.lpszText = text;
  SendMessageW(tool_tips, TTM_GETTEXTW, std::size(text), reinterpret_cast<LPARAM>(&info));
  return String(FromWide(text, static_cast<std::size_t>(lstrlenW(text))));
}

TEST(ToolTips, OfTheCautionAndOfTheProtocolWithItsLabel) {
  const HINSTANCE instance = GetModuleHandleW(nullptr);
  EventGate gate;
  WindowsEventLoop loop(gate);
  WindowsCodePage code_page;
  SplashWindow splash(instance);
  Form1Window::WorkerWindows workers{gate, instance, 30};
  Form1Window window(instance, gate, loop, code_page, splash, workers);
  ASSERT_TRUE(window.CreateHidden());
  const HWND tool_tips = ToolTipsOf(window.Hwnd());
  ASSERT_NE(tool_tips, nullptr);

  const StringView protocol =
      u"【通信モード】　通信速度の設定は、[ツール(T)] - [共通設定(S)] で変更できます";
  const struct {
    int control;
    StringView tip;
  } rows[] = {{id::Pic_Caution,
               u"接続中にウィンドウを動かしたり、メニューバーを操作すると、受信が途絶します。"},
              {id::TB_Protocol, protocol},
              {id::Lb_Protocol, protocol},
              {id::TB_Status, u""}};
  for (const auto& row : rows) {
    EXPECT_EQ(TipOf(tool_tips, window.Hwnd(), row.control), row.tip) << row.control;
  }
}

TEST(ToolTips, OfTheDropTargetsOfTheLogSettings) {
  const HINSTANCE instance = GetModuleHandleW(nullptr);
  EventGate gate;
  WindowsEventLoop loop(gate);
  WindowsCodePage code_page;
  WindowsFileServices files(code_page);
  WindowsStringResources resources;
  ELM327_Info device(u"C:\\Tolvane");
  device.Param_ALL_Clear();
  const HWND owner = CreateWindowExW(0, WC_STATICW, L"", WS_OVERLAPPED, 0, 0, 10, 10, nullptr,
                                     nullptr, instance, nullptr);
  const DialogSurroundings surroundings{instance, gate, loop, owner};
  FormHelpWindow help(surroundings, device);
  FormOptionLog1Window dialog(surroundings, help, resources, device, files);
  dialog.Show();
  const HWND tool_tips = ToolTipsOf(dialog.Hwnd());
  ASSERT_NE(tool_tips, nullptr);
  for (const int control :
       {id::Img_save_folder, id::Img_save_folder_path, id::TB_SaveFilePath, id::Img_Log_save_folder,
        id::Img_Log_save_folder_path, id::TB_LogSaveFilePath}) {
    EXPECT_EQ(TipOf(tool_tips, dialog.Hwnd(), control),
              u"保存先のフォルダをドラッグ＆ドロップしてください")
        << control;
  }
  EXPECT_EQ(TipOf(tool_tips, dialog.Hwnd(), id::Img_Help_Setting), u"");
  dialog.Unload();
  DestroyWindow(owner);
}

}  // namespace
}  // namespace tolvane::platform::windows
