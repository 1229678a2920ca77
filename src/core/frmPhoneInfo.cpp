#include "core/frmPhoneInfo.h"

#include "core/ModelTable.h"
#include "core/TextIndex.h"

namespace tessarin {

namespace words = text::interface_;

Text AskModelName(AT& phone, TextView modelCode) {
  Text name = ModelName(modelCode);
  if (name != kUnknownModel) return name;
  const Text own = phone.GetModelName();
  return own.empty() ? name : TrimBlanks(own);
}

frmPhoneInfo::frmPhoneInfo(TessarinMenu& session)
    : Window(session.host(), "frmPhoneInfo"), session_(session) {
  Command1.clicked.Always([this] { Unload(); });
}

void frmPhoneInfo::Ask(AT& phone) {
  LabManu.text = phone.GetManufacturer();
  LabModel.text = AskModelName(phone, phone.GetModelCode());
  LabFirmware.text = phone.GetFirmware();
  LabIMEI.text = phone.GetSerialNumber();
}

void frmPhoneInfo::FormLoad() {
  const Language& language = session_.language();
  caption = language.getTSInterfaceStr(words::kPhoneInfoTitle);
  Label1.text = language.getTSInterfaceStr(words::kPhoneInfoManufacturer);
  Label3.text = language.getTSInterfaceStr(words::kPhoneInfoModel);
  Label5.text = language.getTSInterfaceStr(words::kPhoneInfoFirmware);
  Label7.text = language.getTSInterfaceStr(words::kPhoneInfoImei);
  const std::pair<const Label*, Label*> rows[] = {
      {&Label1, &LabManu}, {&Label3, &LabModel}, {&Label5, &LabFirmware}, {&Label7, &LabIMEI}};
  for (const auto& [head, value] : rows) {
    value->accessibleName = head->text() + u": " + value->text();
  }
  Command1.caption = language.getTSInterfaceStr(words::kButtonClose);
  Image1.image = "phone-large";
  Image1.accessibleName = language.getTSInterfaceStr(words::kNamePhonePicture);
}

void frmPhoneInfo::FormUnload() { session_.Refresh(); }

}  // namespace tessarin
