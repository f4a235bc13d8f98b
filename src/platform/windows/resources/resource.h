// Numbers of everything that Tolvane.rc and the windows name, shared by the resource compiler, C++
// and the tests. Only #defines, grouped by window; a control's number bears the control's own name.
// In C++ this is included last: the names are also those of members of the platform's classes,
// which would be replaced in every header that came after.
#ifndef TOLVANE_RESOURCE_H
#define TOLVANE_RESOURCE_H

// Manifest, as the system wants it.
#define TOLVANE_MANIFEST 1

// Icons. The lowest number is the one that the system shows for the program.
#define ICON_TOLVANE 1
#define ICON_CAUTION 2
#define ICON_SPLASH 3

// Menus.
#define MENU_MAIN 10
#define MENU_VIEW 11

// Main window, controls.
#define Bt_Connect 1001
#define Bt_Disconnect 1002
#define Bt_SaveFile 1003
#define Bt_ViewClear 1004
#define Cmb_Serect_Device 1005
#define TB_ODB_Hard_Version 1006
#define TB_Protocol 1007
#define TB_Status 1008
#define TB_LogComment 1009
#define Pic_Caution 1010
#define RTB_MainView 1011
#define Lb_Serect_Device 1021
#define Lb_ODB_Hard_Version 1022
#define Lb_Protocol 1023
#define Lb_Status 1024
#define Lb_LogComment 1025

// Main window, menu bar.
#define menu_file_close 2001
#define menu_common_setting 2002
#define menu_opt_function1 2003
#define menu_opt_log1 2004
#define menu_help_version 2005

// Pop-up of the view.
#define menu_View_All_Copy 2101
#define menu_View_Ctrl_Z 2102
#define menu_View_Ctrl_X 2103
#define menu_View_Ctrl_C 2104
#define menu_View_Ctrl_V 2105
#define menu_View_DEL 2106
#define menu_View_Text_Red 2107
#define menu_View_Text_Blue 2108
#define menu_View_Text_Black 2109
#define menu_View_Marker_Pink 2110
#define menu_View_Marker_Yellow 2111
#define menu_View_Marker_black 2112
#define menu_View_Marker_white 2113
#define menu_View_Date 2114

// Splash, Form2.
#define Lb_msg 1101
#define Pic_ProgressBar_0 1102
#define Pic_ProgressBar_1 1103
#define Image1 1104
#define Lb_Splash_Title 1105

#endif
