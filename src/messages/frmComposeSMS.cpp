#include "messages/frmComposeSMS.h"

#include <algorithm>

#include "codecs/NumberFilter.h"
#include "controls/WindowHost.h"
#include "core/TextIndex.h"
#include "messages/MessageJobs.h"
#include "messages/Smileys.h"

namespace tessarin {

namespace {

namespace words = text::interface_;

constexpr char16_t kNarrowLimit[] = u"/ 160";
constexpr char16_t kWideLimit[] = u"/ 70";

// Only these units survive the way through septets.
bool IsNarrow(TextView text) {
  return std::all_of(text.begin(), text.end(), [](char16_t unit) { return unit <= 0x7F; });
}

}  // namespace

Text RecipientNumber(TextView entry) {
  const Text trimmed = TrimBlanks(entry);
  const Text number = TrimBlanks(Split(trimmed, u">").back());
  const auto open = trimmed.rfind(u'<');
  if (!number.empty() || open == Text::npos) return number;
  return TrimBlanks(TextView(trimmed).substr(open + 1, trimmed.size() - open - 2));
}

frmComposeSMS::frmComposeSMS(TessarinMenu& session, ATMessages& messages)
    : Window(session.host(), "frmComposeSMS"), session_(session), messages_(messages) {
  RichTextBox1.maximumLength = kLongestMessage;
  Label3.text = kNarrowLimit;
  RichTextBox1.edited.Always([this] {
    lblSending.text = u"";
    Count();
  });
  RichTextBox1.cut.Always(
      [this](std::size_t characters) { lblSending.text = LeftOut(characters); });
  Text1.edited.Always([this] { lblSending.text = u""; });
  toPhoneBook.image = "page-phonebook";
  toPhoneBook.clicked.Always([this] {
    if (picker_) picker_();
  });
  CmdSend.clicked.Always([this] { AskToSend(); });
  cmdCancel.clicked.Always([this] { Unload(); });
  Command2.clicked.Always([this] { ShowSide(true); });
  Command3.clicked.Always([this] { ShowSide(false); });
  Label5.clicked.Always([this] { ChooseSide(false); });
  Label6.clicked.Always([this] { ChooseSide(true); });
  MakeSmileys();
  ConnectTemplates();
}

void frmComposeSMS::MakeSmileys() {
  for (std::size_t index = 0; index < Smileys().size(); ++index) {
    const Text& smiley = Smileys()[index];
    auto button = std::make_unique<Button>(*this, "Command1_" + std::to_string(index));
    button->image = SmileyPicture(index);
    button->toolTip = smiley;
    button->accessibleName = smiley;
    button->clicked.Always([this, &smiley] { Insert(smiley); });
    Command1.push_back(std::move(button));
  }
}

void frmComposeSMS::SetVariable(const Text& recipients, const Text& text) {
  const std::size_t fits = FittingLength(text, kLongestMessage);
  Text1.text = recipients;
  RichTextBox1.text = text.substr(0, fits);
  RichTextBox1.caret = 0;
  statusAtLoad_ = LeftOut(text.size() - fits);
  Count();
}

void frmComposeSMS::FormLoad() {
  ApplyTexts();
  lblSending.text = statusAtLoad_;
  ShowSide(false);
  ChooseSide(false);
  LoadTemplateList();
  Count();
}

// A job that still waits is taken back: it would find the next message in the window and send that.
void frmComposeSMS::FormUnload() {
  if (session_.commandState == job::kSendMessage) session_.SetCommandIdle();
  SetVariable(u"", u"");
  Label3.text = kNarrowLimit;
}

void frmComposeSMS::ApplyTexts() {
  const auto word = [this](int index) { return session_.language().getTSInterfaceStr(index); };
  caption = word(words::kComposerTitle);
  const std::pair<Property<Text>*, int> texts[] = {
      {&lblTo.text, words::kComposerRecipients},
      {&lblMessage.text, words::kComposerText},
      {&toPhoneBook.caption, words::kComposerPhonebook},
      {&CmdSend.caption, words::kComposerSend},
      {&cmdCancel.caption, words::kComposerCancel},
      {&Command2.caption, words::kComposerMore},
      {&Command3.caption, words::kComposerLess},
      {&Label5.caption, words::kComposerSmileys},
      {&Label6.caption, words::kComposerTemplates},
      {&Command4.caption, words::kTemplateSave},
      {&Command5.caption, words::kTemplateNew},
      {&Command6.caption, words::kTemplateUse},
      {&Command7.caption, words::kTemplateEdit},
      {&Command8.caption, words::kTemplateDelete}};
  for (const auto& [shown, index] : texts) *shown = word(index);
  Text1.accessibleName = lblTo.text();
  RichTextBox1.accessibleName = lblMessage.text();
  List1.accessibleName = Label6.caption();
  Frame1.accessibleName = word(words::kComposerMore);
  Frame2.accessibleName = Label5.caption();
  Frame3.accessibleName = Label6.caption();
}

void frmComposeSMS::ShowSide(bool shown) {
  Frame1.visible = shown;
  Command2.visible = !shown;
  Command3.visible = shown;
}

void frmComposeSMS::ChooseSide(bool templates) {
  Frame2.visible = !templates;
  Frame3.visible = templates;
}

// An empty text has no width: the limit stays what it was.
void frmComposeSMS::Count() {
  const int caret = RichTextBox1.caret;
  const Text& before = RichTextBox1.text;
  const auto front = TextView(before).substr(0, static_cast<std::size_t>(std::max(caret, 0)));
  const auto moved = front.size() - Replace(front, u"\r\n", u"\n").size();
  RichTextBox1.text = Replace(before, u"\r\n", u"\n");
  RichTextBox1.caret = caret - static_cast<int>(moved);
  const Text& text = RichTextBox1.text;
  const int length = static_cast<int>(text.size());
  const Language& language = session_.language();
  Label2.text = ToText(length);
  Label2.accessibleName = language.getTSInterfaceStr(words::kNameCounter) + u": " + Label2.text();
  if (!text.empty()) Label3.text = IsNarrow(text) ? kNarrowLimit : kWideLimit;
  Label3.accessibleName = language.getTSInterfaceStr(words::kNameLimit) + u": " + Label3.text();
  const int parts = SMSPartCount(Label3.text() == kNarrowLimit ? kGsm7Bit : kUcs2, length);
  lblParts.text = parts < 2 ? Text() : language.Filled(words::kComposerParts, {ToText(parts)});
}

// Behind the selection, so that nothing that was written is lost.
void frmComposeSMS::Insert(TextView piece) {
  const bool isIn = RichTextBox1.Insert(piece);
  lblSending.text = isIn ? Text() : LeftOut(piece.size());
  if (isIn) Count();
}

Text frmComposeSMS::LeftOut(std::size_t characters) const {
  if (characters == 0) return {};
  return session_.language().Filled(words::kComposerLeftOut,
                                    {ToText(static_cast<long long>(characters))});
}

void frmComposeSMS::AskToSend() {
  if (session_.statusPhase != kPhonePresent) return session_.ShowError(text::error::kSendMessage);
  session_.commandState = job::kSendMessage;
}

void frmComposeSMS::StartSendingSMS() {
  if (!IsLoaded()) return;
  if (Text1.text->empty()) return session_.ShowError(text::error::kPhoneNumber);
  const auto entries = Split(TrimBlanks(Text1.text()), u";");
  const Text total = ToText(static_cast<long long>(entries.size()));
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const auto say = [this, &total, number = ToText(static_cast<long long>(i + 1))](int index) {
      lblSending.text = session_.language().Filled(index, {number, total});
    };
    say(words::kComposerSending);
    Refresh();
    if (const int fault = SendTo(RecipientNumber(entries[i])); fault != kSent) {
      say(words::kComposerStopped);
      return session_.ShowError(fault);
    }
  }
  lblSending.text = u"";
  session_.host().MessageBox(session_.language().getTSPromptStr(text::prompt::kMessageSent));
  Unload();
}

// A number that its field would cut short is another's.
int frmComposeSMS::SendTo(const Text& number) {
  SMSSendRecord send;
  const bool isNumber = !number.empty() && !HoldsForbidden(number, Dialling::kKeysAndPlus);
  if (!isNumber || number.size() > send.Number.size()) return text::error::kPhoneNumber;
  send.Number = number;
  send.NumberLength = static_cast<std::int32_t>(number.size());
  send.Text = RichTextBox1.text();
  send.TextLength = static_cast<std::int32_t>(RichTextBox1.text->size());
  send.Coding = Label3.text() == kNarrowLimit ? kGsm7Bit : kUcs2;
  return messages_.SendSMS(send) ? kSent : text::error::kSendMessage;
}

}  // namespace tessarin
