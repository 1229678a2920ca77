#include "core/frmSplashFindCOM.h"

#include "core/TextIndex.h"

namespace tessarin {

namespace {

namespace words = text::interface_;

constexpr std::size_t kLinesShown = 4;

Text PortName(int port, const std::string& device) {
  const Text name = u"COM" + ToText(port);
  return device.empty() ? name : name + u" (" + FromUtf8(device) + u")";
}

Text Sentence(const Language& language, const Text& port, const PortTrouble& trouble) {
  using Kind = PortTrouble::Kind;
  switch (trouble.kind) {
    case Kind::NoPermission:
      return trouble.group.empty()
                 ? language.Filled(words::kPortNoPermissionAtAll, {port})
                 : language.Filled(words::kPortNoPermission, {port, FromUtf8(trouble.group)});
    case Kind::Busy:
      return language.Filled(words::kPortBusy, {port});
    case Kind::NoTerminal:
      return language.Filled(words::kPortNoTerminal, {port});
    case Kind::Silent:
      return language.Filled(words::kPortSilent, {port});
    case Kind::None:
      break;
  }
  return {};
}

}  // namespace

frmSplashFindCOM::frmSplashFindCOM(WindowHost& host, const Language& language)
    : Window(host, "frmSplashFindCOM"), language_(language) {}

void frmSplashFindCOM::FormLoad() {
  troubles_.clear();
  caption = language_.getTSInterfaceStr(words::kSearchTitle);
  lblPort.text = language_.getTSInterfaceStr(words::kStatusSearching);
  lblHint.text = language_.getTSInterfaceStr(words::kSearchHint);
  lblHint.visible = true;
  ShowTroubles();
  Animation1.accessibleName = language_.getTSInterfaceStr(words::kNameSearchAnimation);
  Animation1.file = u"\\FindCOM.avi";
  Animation1.playing = true;
}

void frmSplashFindCOM::FormUnload() { Animation1.playing = false; }

void frmSplashFindCOM::Trying(int port, const std::string& device) {
  lblPort.text = language_.Filled(words::kSearchTrying, {PortName(port, device)});
}

void frmSplashFindCOM::PassedOver(int port, const PortTrouble& trouble) {
  const Text sentence = Sentence(language_, PortName(port, trouble.device), trouble);
  if (sentence.empty()) {
    troubles_.erase(port);
  } else {
    troubles_[port] = sentence;
  }
  ShowTroubles();
}

void frmSplashFindCOM::NothingFound() {
  lblPort.text = language_.getTSInterfaceStr(words::kSearchNoPort);
}

void frmSplashFindCOM::Progress(int step) {
  lblPort.text = language_.getTSInterfaceStr(step);
  lblHint.visible = false;
  lblTrouble.visible = false;
}

void frmSplashFindCOM::ShowTroubles() {
  Text lines;
  std::size_t count = 0;
  for (const auto& [port, sentence] : troubles_) {
    if (++count > kLinesShown) break;
    lines += (lines.empty() ? u"" : u"\n") + sentence;
  }
  lblTrouble.text = lines;
  lblTrouble.visible = !lines.empty();
}

}  // namespace tessarin
