// The composer's panel of templates.

#include <utility>

#include "codecs/Faults.h"
#include "controls/WindowHost.h"
#include "core/TextIndex.h"
#include "messages/Templates.h"
#include "messages/frmAddTextTemplate.h"
#include "messages/frmComposeSMS.h"

namespace tessarin {

void frmComposeSMS::ConnectTemplates() {
  List1.clicked.Always([this] { EnableTemplateButtons(); });
  Command4.clicked.Always([this] { SaveTemplateList(); });
  Command5.clicked.Always([this] { AddTemplate(); });
  Command6.clicked.Always([this] { Insert(List1.SelectedText()); });
  Command7.clicked.Always([this] { ChangeTemplate(); });
  Command8.clicked.Always([this] { RemoveTemplate(); });
}

void frmComposeSMS::LoadTemplateList() {
  TemplateFile file;
  whyUnread_.reset();
  try {
    file = LoadTemplates(session_.files());
  } catch (const FileError& fault) {
    whyUnread_ = fault.Message();
    TellTemplates(text::error::kReadTemplates, fault.Message());
  }
  foreignTemplates_ = std::move(file.foreign);
  ShowTemplates(file.templates, -1);
}

// A file that could not be read is not written over: its templates are not in the list.
void frmComposeSMS::SaveTemplateList() {
  if (whyUnread_) return TellTemplates(text::error::kSaveTemplates, *whyUnread_);
  try {
    SaveTemplates(session_.files(), {TemplatesShown(), foreignTemplates_});
  } catch (const FileError& fault) {
    TellTemplates(text::error::kSaveTemplates, fault.Message());
  }
}

void frmComposeSMS::TellTemplates(int error, const Text& why) {
  session_.host().MessageBox(FillPlaceholders(session_.language().getTSErrStr(error), {why}),
                             MessageKind::Error);
}

bool frmComposeSMS::EditTemplate(const Text& text) {
  templateResult.clear();
  frmAddTextTemplate editor(session_.host(), session_.language(), templateResult);
  editor.initializeForm(text);
  editor.Show(Modality::Modal);
  return !templateResult.empty();
}

void frmComposeSMS::AddTemplate() {
  if (!EditTemplate(u"")) return;
  auto templates = TemplatesShown();
  templates.push_back(templateResult);
  ShowTemplates(templates, static_cast<int>(templates.size()) - 1);
}

void frmComposeSMS::ChangeTemplate() {
  const int row = List1.Selected();
  if (row < 0 || !EditTemplate(List1.SelectedText())) return;
  auto templates = TemplatesShown();
  templates[static_cast<std::size_t>(row)] = templateResult;
  ShowTemplates(templates, row);
}

void frmComposeSMS::RemoveTemplate() {
  if (List1.Selected() < 0) return;
  auto templates = TemplatesShown();
  templates.erase(templates.begin() + List1.Selected());
  ShowTemplates(templates, -1);
}

void frmComposeSMS::ShowTemplates(const std::vector<Text>& templates, int selected) {
  List1.Clear();
  for (const Text& line : templates) List1.Add(line);
  List1.Select(selected);
  EnableTemplateButtons();
}

std::vector<Text> frmComposeSMS::TemplatesShown() const {
  std::vector<Text> templates;
  for (int row = 0; row < List1.Count(); ++row) templates.push_back(List1.Item(row));
  return templates;
}

void frmComposeSMS::EnableTemplateButtons() {
  const bool isSelected = List1.Selected() >= 0;
  for (Button* button : {&Command6, &Command7, &Command8}) button->enabled = isSelected;
}

}  // namespace tessarin
