#include "files/frmOverwrite.h"

#include "core/TextIndex.h"

namespace tessarin {

namespace words = text::interface_;

frmOverwrite::frmOverwrite(WindowHost& host, const Language& language, std::int16_t& mode)
    : Window(host, "frmOverwrite"), language_(language), mode_(mode) {
  const auto answer = [this](Button& button, std::int16_t value) {
    button.clicked.Always([this, value] {
      mode_ = value;
      Leave();
    });
  };
  cmdYes.clicked.Always([this] { Leave(); });
  answer(cmdYesToAll, overwrite::kYesToAll);
  answer(cmdNo, overwrite::kNo);
  answer(cmdNoToAll, overwrite::kNoToAll);
}

void frmOverwrite::Leave() {
  answered_ = true;
  Unload();
}

void frmOverwrite::FormLoad() {
  answered_ = false;
  chkAddNew.checked = false;
  const auto word = [this](int index) { return language_.getTSInterfaceStr(index); };
  caption = word(words::kReplaceThis);
  const std::pair<Property<Text>*, int> texts[] = {
      {&Label1.text, words::kReplaceThis},
      {&Label2.text, words::kReplaceWith},
      {&chkAddNew.caption, words::kReplaceAddNew},
      {&cmdYes.caption, words::kReplaceYes},
      {&cmdYesToAll.caption, words::kReplaceYesToAll},
      {&cmdNo.caption, words::kReplaceNo},
      {&cmdNoToAll.caption, words::kReplaceNoToAll},
      {&lblOverwrite[1].toolTip, words::kNameReplaced},
      {&lblOverwrite[0].toolTip, words::kNameReplacing}};
  for (const auto& [property, index] : texts) *property = word(index);
}

void frmOverwrite::FormUnload() {
  if (!answered_) mode_ = overwrite::kNo;
}

}  // namespace tessarin
