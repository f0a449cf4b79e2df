// The numbers of the program's resources, shared by the resource script and the code that loads them.
// Macros, since the resource compiler knows nothing else.
#pragma once

#define ZT_DIALOG_REPORT 102
#define ZT_ICON_PROGRAM 134

// Controls of the dialog; its buttons "send" and "exit" carry the system's IDOK and IDCANCEL.
#define ZT_CONTROL_SEND 1
#define ZT_CONTROL_EXIT 2
#define ZT_CONTROL_FEEDBACK 1003
#define ZT_CONTROL_VIEW_LINK 1005
#define ZT_CONTROL_RESTART 1006
#define ZT_CONTROL_FIX_LINK 1007
#define ZT_CONTROL_FIRST_LINE 1008
#define ZT_CONTROL_SECOND_LINE 1009
#define ZT_CONTROL_PRIVACY_LINE 1010
#define ZT_CONTROL_FRAME 1011
#define ZT_CONTROL_BANNER 1012
#define ZT_CONTROL_SEPARATOR 1013

#define ZT_TEXT_CAPTION 103
#define ZT_TEXT_FIRST_LINE 119
#define ZT_TEXT_SECOND_LINE 120
#define ZT_TEXT_PRIVACY_LINE 121
#define ZT_TEXT_VIEW_LINK 122
#define ZT_TEXT_RESTART 123
#define ZT_TEXT_FRAME 124
#define ZT_TEXT_SEND 125
#define ZT_TEXT_EXIT 126
#define ZT_TEXT_FIX_LINK 127
