/* Resource numbers of the toolbox pictures, for the resource script and for registration. */
#pragma once

#define OBK_TOOLBOX_UPDOWNTEXTBOX 101
#define OBK_TOOLBOX_DATECALENDAR 102
#define OBK_TOOLBOX_BUTTONPALETTE 103
#define OBK_TOOLBOX_BUTTONARROW 104
#define OBK_TOOLBOX_GRIDEDIT 105
#define OBK_TOOLBOX_PAGETAB 106
#define OBK_TOOLBOX_LNS 107
