#include "calendar/frmAddEvent.h"

#include <algorithm>
#include <cmath>

#include "calendar/clsT610Appoint.h"
#include "codecs/Faults.h"
#include "controls/WindowHost.h"
#include "core/TextIndex.h"

namespace tessarin {

namespace {

namespace words = text::interface_;

constexpr int kNoObjection = -1;
constexpr std::size_t kSubjectWidth = decltype(CalendarRecord::Summary)::size();
constexpr std::size_t kLocationWidth = decltype(CalendarRecord::Location)::size();
constexpr std::size_t kLuidLength = decltype(CalendarRecord::Luid)::size();

// Whole minutes from one date text to another.
long long MinutesBetween(const Text& from, const Text& to) {
  return modDate::DaysToMinutes(modDate::ReadSystemDate(to) - modDate::ReadSystemDate(from));
}

// Whether a text goes into a field of the phone's entry whole. In a text of units up to U+00FF a
// line break takes three units, "=0A".
bool Fits(TextView text, std::size_t width) {
  const bool isEscaped =
      std::all_of(text.begin(), text.end(), [](char16_t u) { return u <= 0xFF; });
  const auto breaks = static_cast<std::size_t>(std::count(text.begin(), text.end(), u'\n'));
  return text.size() + (isEscaped ? 2 * breaks : 0) <= width;
}

// Takes out just in front of `caret`, and moves the caret there, what does not fit; from the end
// when there is nothing more in front.
Text Fitted(Text text, int& caret, std::size_t width) {
  while (!Fits(text, width)) {
    const bool isInFront = caret > 0;
    const auto last =
        isInFront ? std::min(static_cast<std::size_t>(caret), text.size()) : text.size();
    text.erase(last - 1, 1);
    if (isInFront) caret = static_cast<int>(last) - 1;
  }
  return text;
}

bool HoldsEqualsSign(const Text& text) { return text.find(u'=') != Text::npos; }

}  // namespace

frmAddEvent::frmAddEvent(TessarinMenu& session, const PhoneLink& link)
    : Window(session.host(), "frmAddEvent"),
      session_(session),
      link_(link),
      dates_(MakePickers("DPicker", DateTimePicker::Kind::Date)),
      times_(MakePickers("TPicker", DateTimePicker::Kind::Time)) {
  Text1.maximumLength = static_cast<int>(kSubjectWidth);
  Text2.maximumLength = static_cast<int>(kLocationWidth);
  session_.jobs().Set(job::kWriteEvent, [this] {
    session_.SetCommandIdle();
    AddOrEditCalendar();
  });
  Check1.clicked.Always([this] { EnableAlarm(Check1.checked); });
  Text1.edited.Always([this] { CutSubject(); });
  Command1.clicked.Always([this] { AskForWriting(); });
  Command2.clicked.Always([this] { Unload(); });
}

frmAddEvent::Pickers frmAddEvent::MakePickers(const std::string& name, DateTimePicker::Kind kind) {
  Pickers pickers;
  for (std::size_t i = 0; i < pickers.size(); ++i) {
    pickers[i] = std::make_unique<DateTimePicker>(*this, name + std::to_string(i), kind);
  }
  return pickers;
}

void frmAddEvent::FormLoad() {
  const auto word = [this](int index) { return session_.language().getTSInterfaceStr(index); };
  const std::pair<Property<Text>*, int> captions[] = {
      {&Frame1.caption, words::kEventDetails},  {&Label1.text, words::kType},
      {&Label2.text, words::kEventSubject},     {&Label3.text, words::kEventLocation},
      {&Label5.text, words::kEventStartDate},   {&Label6.text, words::kEventStartTime},
      {&Label4.text, words::kEventEndDate},     {&Label11.text, words::kEventEndTime},
      {&Label7.text, words::kEventAlarm},       {&Label8.text, words::kEventAlarmDate},
      {&Label9.text, words::kEventAlarmTime},   {&Command1.caption, words::kEventOk},
      {&Command2.caption, words::kEventCancel},
  };
  for (const auto& [shown, index] : captions) *shown = word(index);
  const std::pair<Control*, const Label*> names[] = {
      {&Combo1, &Label1},          {&Text1, &Label2},           {&Text2, &Label3},
      {&DPicker(kStart), &Label5}, {&TPicker(kStart), &Label6}, {&DPicker(kEnd), &Label4},
      {&TPicker(kEnd), &Label11},  {&Check1, &Label7},          {&DPicker(kAlarm), &Label8},
      {&TPicker(kAlarm), &Label9}};
  for (const auto& [control, label] : names) control->accessibleName = label->text();
}

// The tick that was asked for must not write what the user has given up.
void frmAddEvent::FormUnload() {
  if (session_.commandState == job::kWriteEvent) session_.SetCommandIdle();
}

void frmAddEvent::BecomeNew() {
  caption = session_.language().getTSInterfaceStr(words::kEventNewTitle);
  editLUID.clear();
  editFlag = 0;
  isEdit_ = false;
}

// A phone that does not tell its number may be any.
void frmAddEvent::PhoneFound() {
  const bool isSame = !phoneSerial_.empty() && phoneSerial_ == session_.phoneSerial;
  if (isEdit_ && !isSame) BecomeNew();
}

void frmAddEvent::initializeForm() {
  BecomeNew();
  FillCategories();
  Text1.text = u"";
  Text2.text = u"";
  // A time's picker takes the date as well, so its time is midnight.
  const DateValue today = std::floor(session_.clock().Now());
  for (const Pickers* pickers : {&dates_, &times_}) {
    for (const auto& picker : *pickers) picker->value = today;
  }
  Check1.checked = false;
  EnableAlarm(false);
}

void frmAddEvent::FillCategories() {
  Combo1.Clear();
  for (const Text& word : CategoryWords(session_.language())) Combo1.Add(word);
  Combo1.Select(0);
}

void frmAddEvent::Fill(const CalendarRecord& record) {
  caption = session_.language().getTSInterfaceStr(words::kEventEditTitle);
  editLUID = record.Luid.Trimmed();
  editFlag = record.Spare;
  isEdit_ = true;
  phoneSerial_ = session_.phoneSerial;
  Combo1.Select(clsT610Appoint::TypeOfPhoneCategory(record.Category.Trimmed()) - 1);
  const auto shown = [](const Text& text, std::size_t width) {
    int caret = static_cast<int>(text.size());
    return Fitted(Replace(text, u"\r\n", u"\n"), caret, width);
  };
  Text1.text = shown(record.Summary.Trimmed(), kSubjectWidth);
  Text1.caret = 0;
  Text2.text = shown(record.Location.Trimmed(), kLocationWidth);
  SetMoment(kStart, record.StartTime.Trimmed());
  // An entry without an end ends when it starts.
  const Text end = record.EndTime.Trimmed();
  SetMoment(kEnd, end.empty() ? record.StartTime.Trimmed() : end);
  const Text alarm = record.AlarmTime.Trimmed();
  if (!alarm.empty()) SetMoment(kAlarm, alarm);
  Check1.checked = !alarm.empty();
  EnableAlarm(Check1.checked);
}

void frmAddEvent::AskForWriting() {
  if (session_.statusPhase != kPhonePresent) return session_.ShowError(text::error::kWriteEvent);
  session_.commandState = job::kWriteEvent;
}

// What would be cut off on the way to the phone is not taken in the first place.
void frmAddEvent::CutSubject() {
  int caret = Text1.caret;
  const Text fitted = Fitted(Text1.text, caret, kSubjectWidth);
  if (fitted == Text1.text()) return;
  Text1.text = fitted;
  Text1.caret = caret;
}

void frmAddEvent::SetMoment(Moment moment, const Text& dateText) {
  const DateValue value = modDate::ReadSystemDate(dateText);
  DPicker(moment).value = value;
  TPicker(moment).value = value;
}

Text frmAddEvent::MomentText(Moment moment) const {
  return TrimBlanks(dates_[moment]->text()) + u" " + times_[moment]->text();
}

void frmAddEvent::EnableAlarm(bool enabled) {
  for (Control* control : std::initializer_list<Control*>{&Frame2, &Label8, &Label9,
                                                          &DPicker(kAlarm), &TPicker(kAlarm)}) {
    control->enabled = enabled;
  }
}

int frmAddEvent::Objection() const {
  const Text start = MomentText(kStart);
  if (MinutesBetween(start, MomentText(kEnd)) < 0) return text::error::kEndBeforeStart;
  // The phone would take what stands behind an "=" for an escape.
  if (HoldsEqualsSign(Text1.text) || HoldsEqualsSign(Text2.text)) return text::error::kEqualsSign;
  if (Check1.checked && MinutesBetween(MomentText(kAlarm), start) < 0) {
    return text::error::kAlarmAfterStart;
  }
  return kNoObjection;
}

CalendarRecord frmAddEvent::Record() const {
  CalendarRecord record;
  record.Category = kPhoneCategories[static_cast<std::size_t>(std::max(Combo1.Selected(), 0))];
  record.Summary = TrimBlanks(Text1.text());
  record.Location = TrimBlanks(Text2.text());
  record.Luid = editLUID;
  record.Spare = editFlag;
  record.StartTime = MomentText(kStart);
  record.EndTime = MomentText(kEnd);
  if (Check1.checked) record.AlarmTime = MomentText(kAlarm);
  return record;
}

void frmAddEvent::AddOrEditCalendar() {
  if (!IsLoaded()) return;
  const int objection = Objection();
  if (objection != kNoObjection) return session_.ShowError(objection);
  CalendarRecord record = Record();
  if (!Write(record)) return session_.ShowError(text::error::kWriteEvent);
  host().MessageBox(session_.language().getTSPromptStr(
      editLUID.empty() ? text::prompt::kEventAdded : text::prompt::kEventChanged));
  session_.commandState = job::kLoadCalendar;
  Unload();
}

// An entry that the phone gave no name cannot be replaced, and would be added once more.
bool frmAddEvent::Write(CalendarRecord& record) {
  if (isEdit_ && editLUID.size() != kLuidLength) return false;
  std::string hex;
  try {
    hex = vcard::EncodeVCalendar(record, session_.clock());
  } catch (const ConversionError&) {
    return false;  // a time that lies outside the calendar in UTC
  }
  std::string connectionId;
  Text luid;
  link_.port.serial_flush();
  link_.obex.EndOBEXSession();
  const bool written = link_.obex.ConnectIrmcSync(connectionId) &&
                       (editLUID.empty() ? link_.irmc.AddCalendarEntry(hex, luid)
                                         : link_.irmc.ReplaceCalendarEntry(editLUID, hex));
  link_.obex.EndOBEXSession();
  link_.port.serial_flush();
  return written;
}

}  // namespace tessarin
