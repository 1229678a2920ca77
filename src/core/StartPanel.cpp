#include "core/StartPanel.h"

#include "core/PageTable.h"
#include "core/TextIndex.h"

namespace tessarin {

namespace words = text::interface_;

const std::array<NextStep, 6> kNextSteps = {{
    {"cmdOpenMessages", 1, words::kStartOpenMessages},
    {"cmdOpenPhonebook", kPhonebookPanel, words::kStartOpenPhonebook},
    {"cmdOpenCalendar", kCalendarPanel, words::kStartOpenCalendar},
    {"cmdOpenPictures", 4, words::kStartOpenPictures},
    {"cmdOpenRingtones", kRingtonePanel, words::kStartOpenRingtones},
    {"cmdOpenFiles", kFilePanel, words::kStartOpenFiles},
}};

StartPanel::StartPanel(Window& window)
    : imgPhone(window, "imgPhone"),
      lblHeading(window, "lblHeading"),
      lblHint(window, "lblHint"),
      lblBattery(window, "lblBattery"),
      lblBatteryValue(window, "lblBatteryValue"),
      lblStorage(window, "lblStorage"),
      lblStorageValue(window, "lblStorageValue"),
      lblPort(window, "lblPort"),
      lblPortValue(window, "lblPortValue"),
      imgBattery(window, "imgBattery"),
      lblNext(window, "lblNext"),
      lblStep1(window, "lblStep1"),
      lblStep2(window, "lblStep2"),
      lblStep3(window, "lblStep3") {
  for (std::size_t i = 0; i < cmdNext.size(); ++i) {
    cmdNext[i] = std::make_unique<Button>(window, kNextSteps[i].button);
  }
}

void StartPanel::Update(const Session& session, const Language& language) {
  const bool connected = session.statusPhase == kPhonePresent;
  const auto word = [&](int index) { return language.getTSInterfaceStr(index); };
  imgPhone.image = connected ? "phone-large" : "phone-missing";
  imgPhone.accessibleName = word(words::kNamePhonePicture);
  lblHeading.text = connected ? language.Filled(words::kStartConnected, {session.phoneModel})
                              : word(words::kStartNoPhone);
  lblHint.text = word(words::kStartNoPhoneHint);
  lblHint.visible = !connected;
  lblNext.text = word(connected ? words::kStartNextSteps : words::kSearchHowTo);
  lblStep1.text = word(words::kStartStepSwitchOn);
  lblStep2.text = word(words::kStartStepConnect);
  lblStep3.text = word(words::kStartStepWait);
  for (Label* step : {&lblStep1, &lblStep2, &lblStep3}) step->visible = !connected;
  for (std::size_t i = 0; i < cmdNext.size(); ++i) {
    const NextStep& step = kNextSteps[i];
    cmdNext[i]->caption = word(step.caption);
    cmdNext[i]->image = kPages[static_cast<std::size_t>(step.panel)].image;
    cmdNext[i]->visible = connected;
  }

  lblBattery.text = word(words::kStartBattery);
  lblStorage.text = word(words::kStartStorage);
  lblPort.text = word(words::kStartPort);
  Text storage;
  for (const Text& name : session.storageNames) storage += (storage.empty() ? u"" : u", ") + name;
  lblStorageValue.text = storage;
  lblPortValue.text = u"COM" + ToText(session.connectedPort);
  imgBattery.accessibleName = word(words::kStartBattery);
  lblStorageValue.accessibleName = lblStorage.text() + u": " + storage;
  lblPortValue.accessibleName = lblPort.text() + u": " + lblPortValue.text();
  NameBattery();
  for (Control* fact : {static_cast<Control*>(&lblBattery), static_cast<Control*>(&lblBatteryValue),
                        static_cast<Control*>(&imgBattery), static_cast<Control*>(&lblStorage),
                        static_cast<Control*>(&lblStorageValue), static_cast<Control*>(&lblPort),
                        static_cast<Control*>(&lblPortValue)}) {
    fact->visible = connected;
  }
}

void StartPanel::SetBattery(const Text& level, const std::string& image) {
  lblBatteryValue.text = level;
  imgBattery.image = image;
  NameBattery();
}

void StartPanel::NameBattery() {
  lblBatteryValue.accessibleName = lblBattery.text() + u": " + lblBatteryValue.text();
}

}  // namespace tessarin
