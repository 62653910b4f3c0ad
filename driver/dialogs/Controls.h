#pragma once

// Numbers of the dialogs' resources and controls; the resource compiler reads this file as well.

#define kDialogResource_frmOutSelFolder 100
#define kDialogResource_frmOutListFolder 101
#define kDialogResource_FLog 102
#define kDialogResource_frmMessageForm 103

// frmOutSelFolder
#define kControl_Label1 1001
#define kControl_listFolder 1002
#define kControl_PSTLabel 1003
#define kControl_Label2 1004
#define kControl_ReinitCheck 1005
#define kControl_CmdSelect 1006
#define kControl_Count 1007
#define kControl_CmdRetry 1008

// frmOutListFolder
#define kControl_TreeLabel 1101
#define kControl_treeFolder 1102
#define kControl_NameLabel 1103
#define kControl_Name 1104
#define kControl_CmdCreate 1105
#define kControl_Answer 1106

// FLog
#define kControl_LLog 1201
#define kMenu_Copy 1202

// frmMessageForm
#define kControl_Message 0
