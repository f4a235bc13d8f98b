// Numbers of the resources, of the controls and of the commands, for the resource compiler. Only
// #defines, grouped by window; a control's number has the control's own name. C++ takes them from
// tolvane_control_ids.h, which is made from this: as macros they would replace members of the same
// names.
#ifndef TOLVANE_RESOURCE_H
#define TOLVANE_RESOURCE_H

// Manifest, as the system wants it.
#define TOLVANE_MANIFEST 1

// Icons. The lowest number is the one that the system shows for the program.
#define ICON_TOLVANE 1
#define ICON_CAUTION 2
#define ICON_SPLASH 3

// Pictures of the dialogs, kept as icons: several sizes in one resource.
#define PICTURE_OK 201
#define PICTURE_HELP 202
#define PICTURE_FOLDER 203
#define PICTURE_FOLDER_PATH 204
#define PICTURE_LINK 205

// Sides of the pictures in units of 96 dpi. make_pictures draws them by these numbers.
#define ICON_CAUTION_SIZE 48
#define ICON_SPLASH_SIZE 96
#define PICTURE_OK_SIZE 56
#define PICTURE_HELP_SIZE 32
#define PICTURE_FOLDER_SIZE 32
#define PICTURE_FOLDER_PATH_SIZE 32
#define PICTURE_LINK_SIZE 40

// Help texts of the settings dialogs.
#define HELP_COMMON_SETTING 101
#define HELP_OPTION1 102
#define HELP_OPTION_LOG1 103

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

// Settings dialogs, in all three.
#define Bt_OK 3001
#define Bt_Cancell 3002
#define Img_Help_Setting 3003

// Common settings, FormCommonSetting.
#define RB_BitRate_0 3101
#define RB_BitRate_1 3102
#define RB_BitRate_2 3103
#define RB_BitRate_3 3104
#define RB_BitRate_4 3105
#define RB_BitRate_5 3106
#define RB_BitRate_6 3107
#define RB_BitRate_7 3108
#define RB_BitRate_8 3109
#define Label9 3110
#define Label6 3111
#define RB_MsgType_0 3112
#define RB_MsgType_1 3113
#define RB_MsgFmtTyp_0 3114
#define RB_MsgFmtTyp_1 3115
#define RB_Silent_Mode_0 3116
#define RB_Silent_Mode_1 3117
#define Label7 3118
#define Label8 3119
#define RB_Timer_Mode_0 3120
#define RB_Timer_Mode_1 3121
#define TB_dividend_ratio 3122
#define CB_DataChangeColor_Enable 3123
#define TB_DataChangeColorTime 3124
#define Bt_DataChangeColor_Dialog 3125
#define CB_MsgLateColor_Enable 3126
#define TB_MsgLateColor_Ratio 3127
#define Bt_MsgLateColor_Dialog 3128
#define TB_MsgLateColor_Time 3129
#define CB_Msg_Blackout_Enable 3130
#define TB_Msg_Blackout_Ratio 3131
#define Bt_Msg_Blackout_Dialog 3132
#define CB_ViewCaution 3133

// Extension settings, FormOption1.
#define CB_DisableID_0 3201
#define CB_DisableID_1 3202
#define CB_DisableID_2 3203
#define CB_DisableID_3 3204
#define CB_DisableID_4 3205
#define CB_DisableID_5 3206
#define CB_DisableID_6 3207
#define CB_DisableID_7 3208
#define TB_DisableID_Start_0 3209
#define TB_DisableID_Start_1 3210
#define TB_DisableID_Start_2 3211
#define TB_DisableID_Start_3 3212
#define TB_DisableID_Start_4 3213
#define TB_DisableID_Start_5 3214
#define TB_DisableID_Start_6 3215
#define TB_DisableID_Start_7 3216
#define TB_DisableID_End_0 3217
#define TB_DisableID_End_1 3218
#define TB_DisableID_End_2 3219
#define TB_DisableID_End_3 3220
#define TB_DisableID_End_4 3221
#define TB_DisableID_End_5 3222
#define TB_DisableID_End_6 3223
#define TB_DisableID_End_7 3224
#define CB_MsgMarker_0 3225
#define CB_MsgMarker_1 3226
#define CB_MsgMarker_2 3227
#define CB_MsgMarker_3 3228
#define CB_MsgMarker_4 3229
#define CB_MsgMarker_5 3230
#define CB_MsgMarker_6 3231
#define CB_MsgMarker_7 3232
#define TB_MsgMarkerID_0 3233
#define TB_MsgMarkerID_1 3234
#define TB_MsgMarkerID_2 3235
#define TB_MsgMarkerID_3 3236
#define TB_MsgMarkerID_4 3237
#define TB_MsgMarkerID_5 3238
#define TB_MsgMarkerID_6 3239
#define TB_MsgMarkerID_7 3240
#define TB_MsgMarkerStartByte_0 3241
#define TB_MsgMarkerStartByte_1 3242
#define TB_MsgMarkerStartByte_2 3243
#define TB_MsgMarkerStartByte_3 3244
#define TB_MsgMarkerStartByte_4 3245
#define TB_MsgMarkerStartByte_5 3246
#define TB_MsgMarkerStartByte_6 3247
#define TB_MsgMarkerStartByte_7 3248
#define TB_MsgMarkerEndByte_0 3249
#define TB_MsgMarkerEndByte_1 3250
#define TB_MsgMarkerEndByte_2 3251
#define TB_MsgMarkerEndByte_3 3252
#define TB_MsgMarkerEndByte_4 3253
#define TB_MsgMarkerEndByte_5 3254
#define TB_MsgMarkerEndByte_6 3255
#define TB_MsgMarkerEndByte_7 3256
#define Bt_MarkerColor_Dialog_0 3257
#define Bt_MarkerColor_Dialog_1 3258
#define Bt_MarkerColor_Dialog_2 3259
#define Bt_MarkerColor_Dialog_3 3260
#define Bt_MarkerColor_Dialog_4 3261
#define Bt_MarkerColor_Dialog_5 3262
#define Bt_MarkerColor_Dialog_6 3263
#define Bt_MarkerColor_Dialog_7 3264
#define CB_Save_ID_DisableMode 3265

// Log settings, FormOptionLog1.
#define RB_SV_Format_0 3301
#define RB_SV_Format_1 3302
#define RB_SaveFilePath_0 3303
#define RB_SaveFilePath_1 3304
#define RB_SaveFilePath_2 3305
#define TB_SaveFilePath 3306
#define Img_save_folder 3307
#define Img_save_folder_path 3308
#define CB_LogFile_Enable 3309
#define GB_LogSave_Format 3310
#define RB_LogSV_Format_0 3311
#define RB_LogSV_Format_1 3312
#define RB_LogSV_Format_2 3313
#define RB_LogSV_Format_3 3314
#define GB_Excel_Format 3315
#define RB_Excel_Format_0 3316
#define RB_Excel_Format_1 3317
#define GB_LogSave_path 3318
#define RB_LogSaveFilePath_0 3319
#define RB_LogSaveFilePath_1 3320
#define RB_LogSaveFilePath_2 3321
#define TB_LogSaveFilePath 3322
#define Img_Log_save_folder 3323
#define Img_Log_save_folder_path 3324
#define CB_LogSave_subFolder 3325
#define CB_Excel_soft_KO 3326
#define TB_Excel_Status 3327
#define TB_Excel_Ver 3328
#define TB_Excel_Status2 3329
#define TB_Access_Status 3330
#define TB_Access_Ver 3331

// Help, FormHelp.
#define TB_View 3401
#define Bt_Close 3402

// Version, FormVersion.
#define Lb_App_Title 3501
#define Lb_copylight 3502
#define Lb_URL 3503
#define PicURL 3504
#define Lb_OK 3505
#define Img_OK 3506
#define Shape1 3507

#endif
