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
    case Kind::InputOutput:
      return language.Filled(words::kPortInputOutput, {port});
    case Kind::Silent:
      return language.Filled(words::kPortSilent, {port});
    case Kind::None:
      break;
  }
  return {};
}

}  // namespace

frmSplashFindCOM::frmSplashFindCOM(WindowHost& host, const Language& language)
    : Window(host, "frmSplashFindCOM"), language_(language), step_(words::kStatusSearching) {}

void frmSplashFindCOM::FormLoad() {
  troubles_.clear();
  step_ = words::kStatusSearching;
  port_.clear();
  lblHint.visible = true;
  ApplyTexts();
  Animation1.file = u"\\FindCOM.avi";
  Animation1.playing = true;
}

void frmSplashFindCOM::FormUnload() { Animation1.playing = false; }

void frmSplashFindCOM::ApplyTexts() {
  caption = language_.getTSInterfaceStr(words::kSearchTitle);
  lblPort.text = language_.Filled(step_, {port_});
  lblHint.text = language_.getTSInterfaceStr(words::kSearchHint);
  lblPassedOver.text = language_.getTSInterfaceStr(words::kSearchPassedOver);
  Animation1.accessibleName = language_.getTSInterfaceStr(words::kNameSearchAnimation);
  ShowTroubles();
}

void frmSplashFindCOM::Trying(int port, const std::string& device) {
  step_ = words::kSearchTrying;
  port_ = PortName(port, device);
  lblPort.text = language_.Filled(step_, {port_});
}

void frmSplashFindCOM::PassedOver(int port, const PortTrouble& trouble) {
  if (trouble.kind == PortTrouble::Kind::None) {
    if (troubles_.erase(port) == 0) return;
  } else {
    troubles_[port] = trouble;
  }
  ShowTroubles();
}

void frmSplashFindCOM::NothingFound() {
  step_ = words::kSearchNoPort;
  lblPort.text = language_.getTSInterfaceStr(step_);
}

void frmSplashFindCOM::Progress(int step) {
  step_ = step;
  lblPort.text = language_.getTSInterfaceStr(step_);
  for (Label* label : {&lblHint, &lblPassedOver, &lblTrouble}) label->visible = false;
}

void frmSplashFindCOM::ShowTroubles() {
  Text lines;
  std::size_t count = 0;
  for (const auto& [port, trouble] : troubles_) {
    if (++count > kLinesShown) break;
    lines += (lines.empty() ? u"" : u"\n") +
             Sentence(language_, PortName(port, trouble.device), trouble);
  }
  lblTrouble.text = lines;
  lblPassedOver.visible = lblTrouble.visible = !lines.empty();
}

}  // namespace tessarin
