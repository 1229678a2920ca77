#pragma once

// The window in which a message is written and sent to one or more recipients.
//
// The recipients are entries with ";" between them. An entry is a number, or a name and a number:
// "<name>number", or "name<number>" as the choice from the phonebook writes it.

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "codecs/ATMessages.h"
#include "controls/Basics.h"
#include "controls/ItemList.h"
#include "controls/TextEditor.h"
#include "controls/Window.h"
#include "core/TessarinMenu.h"

namespace tessarin {

inline constexpr int kLongestMessage = 804;  // characters

class frmComposeSMS : public Window {
 public:
  // Both must outlive the window.
  frmComposeSMS(TessarinMenu& session, ATMessages& messages);

  Label lblTo{*this, "lblTo"};
  TextBox Text1{*this, "Text1"};  // recipients
  Button toPhoneBook{*this, "toPhoneBook"};
  Label lblMessage{*this, "lblMessage"};
  TextEditor RichTextBox1{*this, "RichTextBox1"};
  Label Label2{*this, "Label2"};  // characters in the text
  Label Label3{*this, "Label3"};  // how many fit one part: "/ 160" or "/ 70"
  Label lblParts{*this, "lblParts"};
  // How the sending goes and where it stopped, or how much of a text did not fit. The next writing
  // empties it.
  Label lblSending{*this, "lblSending"};
  Button CmdSend{*this, "CmdSend"};
  Button cmdCancel{*this, "cmdCancel"};
  Button Command2{*this, "Command2"};  // shows the side panels
  Button Command3{*this, "Command3"};  // hides them

  Panel Frame1{*this, "Frame1"};  // the side: Frame2 or Frame3
  Button Label5{*this, "Label5"};
  Button Label6{*this, "Label6"};
  Panel Frame2{*this, "Frame2"};                  // smileys
  std::vector<std::unique_ptr<Button>> Command1;  // one each
  Panel Frame3{*this, "Frame3"};                  // templates
  ListBox List1{*this, "List1"};
  Button Command4{*this, "Command4"};  // save
  Button Command5{*this, "Command5"};  // new
  Button Command6{*this, "Command6"};  // use
  Button Command7{*this, "Command7"};  // edit
  Button Command8{*this, "Command8"};  // delete

  Text templateResult;  // what the editor of templates gave; empty when it was cancelled

  // What stands in the window when it is shown. Of a text that is too long the window says how much
  // was left out.
  void SetVariable(const Text& recipients, const Text& text);

  // What `toPhoneBook` opens: it adds to the recipients in `Text1`.
  void SetPicker(std::function<void()> picker) { picker_ = std::move(picker); }

  // Sends the text to each recipient in turn, a job of the session's tick. The first that fails, or
  // is no number, ends it with a message; the window stays with its text, and with how far it came.
  // Does nothing when the window was closed meanwhile.
  void StartSendingSMS();

 protected:
  void FormLoad() override;
  void FormUnload() override;

 private:
  static constexpr int kSent = -1;  // no error

  void MakeSmileys();
  void ApplyTexts();
  void ShowSide(bool shown);
  void ChooseSide(bool templates);
  void Count();
  void Insert(TextView piece);
  // What `lblSending` says of that many characters that did not fit.
  Text LeftOut(std::size_t characters) const;
  // Asks for the job, unless there is no phone.
  void AskToSend();
  // The error to show, or kSent.
  int SendTo(const Text& number);

  void ConnectTemplates();
  void LoadTemplateList();
  void SaveTemplateList();
  void TellTemplates(int error, const Text& why);
  // Shows the editor with that text; false when it was cancelled.
  bool EditTemplate(const Text& text);
  void AddTemplate();
  void ChangeTemplate();
  void RemoveTemplate();
  void ShowTemplates(const std::vector<Text>& templates, int selected);
  std::vector<Text> TemplatesShown() const;
  void EnableTemplateButtons();

  TessarinMenu& session_;
  ATMessages& messages_;
  std::function<void()> picker_;
  Text statusAtLoad_;  // what `lblSending` shows when the window comes up
  std::set<Text> foreignTemplates_;
  std::optional<Text> whyUnread_;  // the templates' file
};

// The number of a recipient's entry, empty when there is none.
Text RecipientNumber(TextView entry);

}  // namespace tessarin
