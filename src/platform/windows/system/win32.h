#pragma once

/// The one way into the Windows headers. Macros that would rename members of the platform's
/// classes are taken away; the W functions behind them are called by their own names.
#include <windows.h>

// After windows.h, which they need.
#include <commctrl.h>
#include <commdlg.h>
#include <richedit.h>
#include <shellapi.h>
#include <uxtheme.h>
#include <vssym32.h>
#include <windowsx.h>

#undef CreateDialog
#undef CreateWindow
#undef DeleteFile
#undef GetMessage
#undef IsMinimized
#undef LoadString
#undef MessageBox
#undef Yield

static_assert(sizeof(wchar_t) == sizeof(char16_t));
