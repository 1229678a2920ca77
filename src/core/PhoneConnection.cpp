#include "core/PhoneConnection.h"

#include "codecs/Faults.h"
#include "controls/WindowHost.h"
#include "core/Asking.h"
#include "core/TextIndex.h"
#include "core/frmPhoneInfo.h"
#include "link/FolderListing.h"

namespace tessarin {

namespace {

namespace words = text::interface_;

constexpr char16_t kMake[] = u"ericsson";
constexpr char16_t kCharacterSet[] = u"\"UTF-8\"";
constexpr std::int32_t kConnectedSpeed = 57600;
constexpr std::int16_t kFirstPort = 3;
constexpr std::int16_t kLastPort = 256;

}  // namespace

// A phone is recognised, and made ready, in this order.
const PhoneConnection::Step PhoneConnection::kSteps[] = {
    &PhoneConnection::PortIsThere,          &PhoneConnection::NoPrinterOwnsIt,
    &PhoneConnection::PhoneAnswers,         &PhoneConnection::MakeIsRight,
    &PhoneConnection::NameTheModel,         &PhoneConnection::PrepareTheWindow,
    &PhoneConnection::SetTheCharacterSet,   &PhoneConnection::ReadTheStorageRoots,
    &PhoneConnection::AskAboutThePhonebook, &PhoneConnection::LoadThePhonebook,
    &PhoneConnection::StartWorking,
};

PhoneConnection::PhoneConnection(TessarinMenu& session, const PhoneLink& link,
                                 frmSplashFindCOM& splash)
    : session_(session), link_(link), splash_(splash), bar_(session.host(), session.language()) {}

void PhoneConnection::ScanStep() {
  for (const Step step : kSteps) {
    const Verdict verdict = (this->*step)();
    if (verdict == Verdict::End) return;
    if (verdict == Verdict::NextPort) {
      ++session_.scanPort;
      break;
    }
  }
  if (session_.scanPort <= kLastPort) return;
  session_.scanPort = kFirstPort;
  splash_.NothingFound();
}

PhoneConnection::Verdict PhoneConnection::Fail(int errorIndex) {
  session_.ShowError(errorIndex);
  session_.Unload();
  return Verdict::End;
}

PhoneConnection::Verdict PhoneConnection::PortIsThere() {
  if (link_.com.PortExists(session_.scanPort)) return Verdict::GoOn;
  splash_.PassedOver(session_.scanPort, {});
  return Verdict::NextPort;
}

PhoneConnection::Verdict PhoneConnection::NoPrinterOwnsIt() {
  return link_.com.PortHasPrinter(PortName()) ? Verdict::NextPort : Verdict::GoOn;
}

PhoneConnection::Verdict PhoneConnection::PhoneAnswers() {
  splash_.Trying(session_.scanPort, link_.diagnosis.DeviceName(session_.scanPort));
  splash_.Refresh();
  link_.com.SetBaudRate(session_.baudRate);
  if (link_.com.OpenPhonePort(PortName())) return Verdict::GoOn;
  splash_.PassedOver(session_.scanPort, link_.diagnosis.TroubleAt(session_.scanPort));
  link_.com.ClosePhonePort();
  return Verdict::NextPort;
}

// A device that answers AT but is of another make stops the search: nothing more is sent to it.
PhoneConnection::Verdict PhoneConnection::MakeIsRight() {
  splash_.Progress(words::kConnectIdentifying);
  const Text manufacturer = link_.at.GetManufacturer();
  modelCode_ = link_.at.GetModelCode();
  session_.phoneSerial = link_.at.GetSerialNumber();
  if (ToLower(manufacturer).find(kMake) != Text::npos) return Verdict::GoOn;
  return Fail(text::error::kForeignPhone);
}

PhoneConnection::Verdict PhoneConnection::NameTheModel() {
  session_.baudRate = kConnectedSpeed;
  session_.phoneModel = AskModelName(link_.at, modelCode_);
  session_.connectedPort = session_.scanPort;
  return Verdict::GoOn;
}

PhoneConnection::Verdict PhoneConnection::PrepareTheWindow() {
  session_.EnablePhoneControls(true);
  session_.phoneWasSeen = true;
  session_.files().CheckDataFiles();
  for (SessionPart* part : session_.parts()) part->PhoneFound();
  session_.EnablePages(true);
  return Verdict::GoOn;
}

// An OBEX session that an earlier run left open is closed first; whether there was one is of no
// interest.
PhoneConnection::Verdict PhoneConnection::SetTheCharacterSet() {
  splash_.Progress(words::kConnectPreparing);
  link_.obex.EndOBEXSession();
  if (link_.at.SetCharacterSet(kCharacterSet)) return Verdict::GoOn;
  return Fail(text::error::kCharacterSet);
}

bool PhoneConnection::ReadRootListing(Text& xml) {
  std::string connectionId;
  link_.obex.EndOBEXSession();
  return link_.obex.ConnectFolderBrowsing(connectionId) && link_.obex.SetPathRoot(connectionId) &&
         link_.files.GetFolderListing(connectionId, xml, kFolderListingType);
}

PhoneConnection::Verdict PhoneConnection::ReadTheStorageRoots() {
  Text xml;
  if (!ReadRootListing(xml)) {
    link_.obex.EndOBEXSession();
    return Fail(text::error::kPrepare);
  }
  session_.storageNames = ParseFolderListing(xml).folders;
  FillStorageChoices();
  splash_.Unload();
  link_.obex.EndOBEXSession();
  return Verdict::GoOn;
}

// Every phone of the make has two top-level folders; one with fewer does not fit this program.
void PhoneConnection::FillStorageChoices() {
  const auto& names = session_.storageNames;
  for (ComboBox* box : {&session_.comboStorage, &session_.combostore, &session_.comboStorage2,
                        &session_.comboStorage3}) {
    box->Clear();
    for (const std::size_t index : {0U, 1U}) {
      if (index >= names.size()) throw BoundsError();
      box->Add(names[index]);
    }
  }
  for (ComboBox* box : {&session_.combostore, &session_.comboStorage, &session_.comboStorage2}) {
    box->Select(0);
  }
  session_.storageRoot = session_.combostore.SelectedText();
  session_.storageRoot2 = session_.comboStorage.SelectedText();
  session_.storageRoot3 = session_.comboStorage2.SelectedText();
}

PhoneConnection::Verdict PhoneConnection::AskAboutThePhonebook() {
  Asking(session_.host(), session_.language(), session_).Show(Modality::Modal);
  return Verdict::GoOn;
}

PhoneConnection::Verdict PhoneConnection::LoadThePhonebook() {
  if (session_.phonebookLoadChoice != 1) return Verdict::GoOn;
  bar_.Show(Modality::Modeless);
  bar_.Refresh();
  for (SessionPart* part : session_.parts()) {
    if (!part->LoadWhileConnecting(bar_)) return Fail(text::error::kReadPhonebook);
  }
  return Verdict::GoOn;
}

PhoneConnection::Verdict PhoneConnection::StartWorking() {
  session_.statusPhase = kPhonePresent;
  session_.ShowStartPanel();
  session_.UpdateStatusTexts(session_.statusPhase);
  session_.isClosing = false;
  session_.SetCommandIdle();
  session_.Timer1.enabled = true;
  session_.Timer2.enabled = false;
  bar_.Unload();
  session_.Refresh();
  return Verdict::GoOn;
}

}  // namespace tessarin
