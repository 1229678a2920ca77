#pragma once

// A contact and an appointment that lie in files of a vdir folder.

#include <memory>
#include <string>

#include "outlook/Card.h"
#include "outlook/Event.h"
#include "outlook/KnownNames.h"
#include "outlook/VdirItem.h"

namespace tessarin::outlook {

class VdirContact : public VdirItem<ContactItem, Card> {
 public:
  VdirContact(VdirFile file, Card card, Known known);
  // A new contact with a UID of its own, to lie in that folder.
  explicit VdirContact(const std::filesystem::path& folder);

  const Text& Get(ContactProperty property) const override;
  void Set(ContactProperty property, const Text& value) override;
  Text FirstName() const override { return document().firstName(); }
  Text LastName() const override { return document().lastName(); }

 protected:
  void Change(Card& card) const override;
  void Loaded() override;

 private:
  VdirContact(const std::filesystem::path& folder, const std::string& uid);

  ContactTexts texts_;
};

class VdirAppointment : public VdirItem<AppointmentItem, Event> {
 public:
  VdirAppointment(VdirFile file, Event event, Known known);
  VdirAppointment(const std::filesystem::path& folder, DateValue now);

  const AppointmentFields& Get() const override { return fields_; }
  void SetCategories(const Text& categories) override { fields_.Categories = categories; }
  void SetSubject(const Text& subject) override { fields_.Subject = subject; }
  void SetLocation(const Text& location) override { fields_.Location = location; }
  // The event moves, and stays as long as it is.
  void SetStart(DateValue start) override {
    fields_.End += start - fields_.Start;
    fields_.Start = start;
  }
  void SetEnd(DateValue end) override { fields_.End = end; }
  void SetReminderSet(bool set) override { fields_.ReminderSet = set; }
  void SetReminderPlaySound(bool play) override { playSound_ = play; }
  void SetReminderMinutesBeforeStart(long long minutes) override {
    fields_.ReminderMinutesBeforeStart = minutes;
  }
  void ClearRecurrencePattern() override { clearRecurrence_ = true; }

 protected:
  void Change(Event& event) const override;
  void Loaded() override;

 private:
  VdirAppointment(const std::filesystem::path& folder, const std::string& uid, DateValue now);

  AppointmentFields fields_;
  bool playSound_ = false;
  bool clearRecurrence_ = false;
};

// An item of a class that is only told by its name: a group, a to-do.
class OtherItem : public Item {
 public:
  OtherItem(TextView typeName, Text entryId) : typeName_(typeName), entryId_(std::move(entryId)) {}
  TextView TypeName() const override { return typeName_; }
  const Text& EntryID() const override { return entryId_; }
  DateValue LastModificationTime() override { return 0; }
  void Save() override {}

 private:
  Text typeName_, entryId_;
};

// The item in a file that was just read; null when these bytes are none. `names` tells how it is
// known.
std::shared_ptr<Item> MakeContact(const VdirFile& file, std::string_view bytes, KnownNames& names);
std::shared_ptr<Item> MakeAppointment(const VdirFile& file, std::string_view bytes,
                                      KnownNames& names);

}  // namespace tessarin::outlook
