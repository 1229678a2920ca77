#pragma once

// How each window looks: one function a window, each in a file of its own, gathered in one table.

#include <vector>

#include "ui/qt/QtWindowHost.h"

namespace tessarin {

class Asking;
class TessarinMenu;
class bar;
class frmAbout;
class frmAddContact;
class frmCopyToSIM;
class frmAddEvent;
class frmAddGroup;
class frmAddTextTemplate;
class frmComposeSMS;
class frmCalendarSync;
class frmHelp;
class frmOverwrite;
class frmPhoneInfo;
class frmPhonebookSync;
class frmSplashFindCOM;
class frmSplashTransmission;

void LayOut(TessarinMenu& window, QWidget& top, Binder& bind);
void LayOut(Asking& window, QWidget& top, Binder& bind);
void LayOut(bar& window, QWidget& top, Binder& bind);
void LayOut(frmAbout& window, QWidget& top, Binder& bind);
void LayOut(frmAddContact& window, QWidget& top, Binder& bind);
void LayOut(frmCopyToSIM& window, QWidget& top, Binder& bind);
void LayOut(frmAddEvent& window, QWidget& top, Binder& bind);
void LayOut(frmAddGroup& window, QWidget& top, Binder& bind);
void LayOut(frmAddTextTemplate& window, QWidget& top, Binder& bind);
void LayOut(frmComposeSMS& window, QWidget& top, Binder& bind);
void LayOut(frmCalendarSync& window, QWidget& top, Binder& bind);
void LayOut(frmHelp& window, QWidget& top, Binder& bind);
void LayOut(frmOverwrite& window, QWidget& top, Binder& bind);
void LayOut(frmPhoneInfo& window, QWidget& top, Binder& bind);
void LayOut(frmPhonebookSync& window, QWidget& top, Binder& bind);
void LayOut(frmSplashFindCOM& window, QWidget& top, Binder& bind);
void LayOut(frmSplashTransmission& window, QWidget& top, Binder& bind);

std::vector<Layout> AllLayouts();

}  // namespace tessarin
