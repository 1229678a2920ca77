#include "messages/frmAddTextTemplate.h"

#include "core/TextIndex.h"
#include "messages/frmComposeSMS.h"

namespace tessarin {

namespace words = text::interface_;

frmAddTextTemplate::frmAddTextTemplate(WindowHost& host, const Language& language, Text& result)
    : Window(host, "frmAddTextTemplate"), language_(language) {
  Text1.maximumLength = kLongestMessage;
  Command1.clicked.Always([this, &result] {
    result = Text1.text();
    Unload();
  });
  Command2.clicked.Always([this] { Unload(); });
}

void frmAddTextTemplate::initializeForm(const Text& text) {
  const auto word = [this](int index) { return language_.getTSInterfaceStr(index); };
  caption = word(text.empty() ? words::kTemplateNewTitle : words::kTemplateEditTitle);
  Text1.text = text;
  Label1.text = word(words::kTemplateText);
  Text1.accessibleName = Label1.text();
  Command1.caption = word(words::kTemplateOk);
  Command2.caption = word(words::kTemplateCancel);
}

}  // namespace tessarin
