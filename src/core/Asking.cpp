#include "core/Asking.h"

#include "core/TextIndex.h"

namespace tessarin {

namespace words = text::interface_;

Asking::Asking(WindowHost& host, const Language& language, Session& session)
    : Window(host, "Asking"), language_(language), session_(session) {
  escapeCloses = false;
  const auto answer = [this](std::int16_t choice) {
    session_.phonebookLoadChoice = choice;
    Unload();
  };
  Command1.clicked.Always([answer] { answer(1); });
  Command2.clicked.Always([answer] { answer(2); });
}

void Asking::FormLoad() {
  session_.phonebookLoadChoice = 2;
  caption = language_.getTSInterfaceStr(words::kAskingTitle);
  Image1.image = "page-phonebook";
  Image1.accessibleName = language_.getTSInterfaceStr(words::kPhonebook);
  Label1.text = language_.getTSInterfaceStr(words::kAskingQuestion);
  Command1.caption = language_.getTSInterfaceStr(words::kOk);
  Command2.caption = language_.getTSInterfaceStr(words::kNotNow);
}

}  // namespace tessarin
