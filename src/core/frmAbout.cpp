#include "core/frmAbout.h"

#include "core/TextIndex.h"

namespace tessarin {

namespace words = text::interface_;

frmAbout::frmAbout(WindowHost& host, const Language& language)
    : Window(host, "frmAbout"), language_(language) {
  cmdOK.clicked.Always([this] { Unload(); });
}

void frmAbout::setLanguage() {
  caption = language_.getTSInterfaceStr(words::kAbout);
  cmdOK.caption = language_.getTSInterfaceStr(words::kOk);
  lblVersion.text = language_.Filled(words::kAboutVersion, {FromUtf8(TESSARIN_VERSION)});
  lblPurpose.text = language_.getTSInterfaceStr(words::kAboutPurpose);
  lblLicense.text = language_.getTSInterfaceStr(words::kAboutLicense);
}

void frmAbout::FormLoad() {
  Image1.image = "tessarin";
  Image1.accessibleName = u"Tessarin";
  lblTitle.text = u"Tessarin";
  setLanguage();
}

}  // namespace tessarin
