#include "ui/windows/Layouts.h"

#include "calendar/frmAddEvent.h"
#include "core/Asking.h"
#include "core/TessarinMenu.h"
#include "core/bar.h"
#include "core/frmAbout.h"
#include "core/frmHelp.h"
#include "core/frmPhoneInfo.h"
#include "core/frmSplashFindCOM.h"
#include "files/frmOverwrite.h"
#include "files/frmSplashTransmission.h"
#include "messages/frmAddTextTemplate.h"
#include "messages/frmComposeSMS.h"
#include "phonebook/frmAddContact.h"
#include "phonebook/frmAddGroup.h"
#include "phonebook/frmCopyToSIM.h"

#include "outlook/frmCalendarSync.h"
#include "outlook/frmPhonebookSync.h"

namespace tessarin {

namespace {

template <class W>
Layout Of(const char* name, Layout::Kind kind) {
  return {name, kind, [](Window& window, QWidget& top, Binder& bind) {
            LayOut(static_cast<W&>(window), top, bind);
          }};
}

}  // namespace

std::vector<Layout> AllLayouts() {
  using Kind = Layout::Kind;
  return {
      Of<TessarinMenu>("TessarinMenu", Kind::Main),
      Of<Asking>("Asking", Kind::Dialog),
      Of<bar>("bar", Kind::Busy),
      Of<frmAbout>("frmAbout", Kind::Dialog),
      Of<frmAddContact>("frmAddContact", Kind::Dialog),
      Of<frmCopyToSIM>("frmCopyToSIM", Kind::Dialog),
      Of<frmAddEvent>("frmAddEvent", Kind::Dialog),
      Of<frmAddGroup>("frmAddGroup", Kind::Dialog),
      Of<frmAddTextTemplate>("frmAddTextTemplate", Kind::Dialog),
      Of<frmComposeSMS>("frmComposeSMS", Kind::Dialog),
      Of<frmCalendarSync>("frmCalendarSync", Kind::Dialog),
      Of<frmHelp>("frmHelp", Kind::Dialog),
      Of<frmOverwrite>("frmOverwrite", Kind::Dialog),
      Of<frmPhoneInfo>("frmPhoneInfo", Kind::Dialog),
      Of<frmPhonebookSync>("frmPhonebookSync", Kind::Dialog),
      Of<frmSplashFindCOM>("frmSplashFindCOM", Kind::Busy),
      Of<frmSplashTransmission>("frmSplashTransmission", Kind::Busy),
  };
}

}  // namespace tessarin
