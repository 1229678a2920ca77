#pragma once

// The event editor: adds an entry to the phone's calendar or rewrites one. The phone is written
// directly, over a session of its own; the list follows when the calendar is read again.

#include <array>

#include "codecs/vCalendar.h"
#include "controls/Basics.h"
#include "controls/ItemList.h"
#include "controls/Steppers.h"
#include "controls/TextEditor.h"
#include "controls/Window.h"
#include "core/PhoneLink.h"
#include "core/TessarinMenu.h"

namespace tessarin {

class frmAddEvent : public Window {
 public:
  // Puts the job that writes the entry into the table. All must outlive the window.
  frmAddEvent(TessarinMenu& session, const PhoneLink& link);

  Panel Frame1{*this, "Frame1"};
  Label Label1{*this, "Label1"};
  ComboBox Combo1{*this, "Combo1"};  // category
  Label Label2{*this, "Label2"};
  TextEditor Text1{*this, "Text1"};  // subject
  Label Label3{*this, "Label3"};
  TextBox Text2{*this, "Text2"};  // location
  Label Label5{*this, "Label5"};
  Label Label6{*this, "Label6"};
  Label Label4{*this, "Label4"};
  Label Label11{*this, "Label11"};
  Label Label7{*this, "Label7"};
  CheckBox Check1{*this, "Check1"};  // whether there is an alarm
  Panel Frame2{*this, "Frame2"};     // of the alarm's date and time
  Label Label8{*this, "Label8"};
  Label Label9{*this, "Label9"};
  Button Command1{*this, "Command1"};  // write it
  Button Command2{*this, "Command2"};  // give up

  // Of start, end and alarm.
  enum Moment { kStart, kEnd, kAlarm };
  DateTimePicker& DPicker(Moment moment) { return *dates_[moment]; }
  DateTimePicker& TPicker(Moment moment) { return *times_[moment]; }

  Text editLUID;              // of the entry that is rewritten; empty for a new one
  std::int32_t editFlag = 0;  // its spare number

  // Empties the form for a new entry.
  void initializeForm();
  // Fills the form with an entry to be rewritten. Throws ConversionError when a time does not read;
  // the form is then not to be shown.
  void Fill(const CalendarRecord& record);
  // A phone was found again while the form stands. The entry that it was filled with is known to
  // that one phone only: for another phone the form holds a new entry.
  void PhoneFound();
  // The job: checks the form, writes the entry to the phone, and on success asks for the calendar
  // to be read anew and closes the form. A message says what was wrong otherwise.
  void AddOrEditCalendar();

 protected:
  void FormLoad() override;
  void FormUnload() override;

 private:
  using Pickers = std::array<std::unique_ptr<DateTimePicker>, 3>;

  Pickers MakePickers(const std::string& name, DateTimePicker::Kind kind);
  void FillCategories();
  // Makes it the form of a new entry; what is written in it stays.
  void BecomeNew();
  void AskForWriting();
  void CutSubject();
  void SetMoment(Moment moment, const Text& dateText);
  Text MomentText(Moment moment) const;
  void EnableAlarm(bool enabled);
  // The error text of what forbids writing the form; -1 for nothing.
  int Objection() const;
  CalendarRecord Record() const;
  bool Write(CalendarRecord& record);

  TessarinMenu& session_;
  PhoneLink link_;
  Pickers dates_;
  Pickers times_;
  bool isEdit_ = false;
  Text phoneSerial_;  // of the phone that the form's entry is from
};

}  // namespace tessarin
