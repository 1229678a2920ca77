#pragma once

// Outlook's object model, as far as it is used: the names and numbers are its own. What stands
// behind it is chosen where the program is made.
//
// Every operation may raise a fault (Fault) when the thing behind it cannot be reached.

#include <array>
#include <cstddef>
#include <memory>

#include "codecs/Text.h"
#include "codecs/modDate.h"

namespace tessarin::outlook {

// Types of CreateItem.
inline constexpr int kAppointmentType = 1;
inline constexpr int kContactType = 2;
// Folders of GetDefaultFolder.
inline constexpr int kCalendarFolder = 9;
inline constexpr int kContactsFolder = 10;

// Texts of a contact that are read and written.
enum class ContactProperty {
  FullName,
  HomeTelephoneNumber,
  BusinessTelephoneNumber,
  MobileTelephoneNumber,
  BusinessFaxNumber,
  OtherTelephoneNumber,
  Email1Address,
  Email2Address,
  Email3Address,
  CompanyName,
  WebPage,
  HomeAddressStreet,
  HomeAddressCity,
  HomeAddressState,
  HomeAddressPostalCode,
  HomeAddressCountry,
  BusinessAddressStreet,
  BusinessAddressCity,
  BusinessAddressState,
  BusinessAddressPostalCode,
  BusinessAddressCountry,
};
inline constexpr std::size_t kContactProperties = 21;
using ContactTexts = std::array<Text, kContactProperties>;

class Item {
 public:
  Item() = default;
  virtual ~Item() = default;
  Item(const Item&) = delete;
  Item& operator=(const Item&) = delete;

  // "ContactItem", "AppointmentItem", or the name of another class that a folder can hold.
  virtual TextView TypeName() const = 0;
  // Opaque, stable across runs; empty for an item that was never saved.
  virtual const Text& EntryID() const = 0;
  // Local time, whole seconds.
  virtual DateValue LastModificationTime() = 0;
  // Commits what was set; gives a new item its EntryID. An item in which nothing was changed keeps
  // its LastModificationTime.
  virtual void Save() = 0;
};

class ContactItem : public Item {
 public:
  TextView TypeName() const override { return u"ContactItem"; }
  virtual const Text& Get(ContactProperty property) const = 0;
  virtual void Set(ContactProperty property, const Text& value) = 0;
  virtual Text FirstName() const = 0;
  virtual Text LastName() const = 0;
};

struct AppointmentFields {
  Text Categories;  // names, joined by ", "
  Text Subject;
  Text Location;
  DateValue Start = 0;  // local time
  DateValue End = 0;
  bool ReminderSet = false;
  long long ReminderMinutesBeforeStart = 0;  // below zero for a reminder after the start
};

class AppointmentItem : public Item {
 public:
  TextView TypeName() const override { return u"AppointmentItem"; }
  virtual const AppointmentFields& Get() const = 0;
  virtual void SetCategories(const Text& categories) = 0;
  virtual void SetSubject(const Text& subject) = 0;
  virtual void SetLocation(const Text& location) = 0;
  virtual void SetStart(DateValue start) = 0;
  virtual void SetEnd(DateValue end) = 0;
  virtual void SetReminderSet(bool set) = 0;
  virtual void SetReminderPlaySound(bool play) = 0;
  virtual void SetReminderMinutesBeforeStart(long long minutes) = 0;
  // Makes an item that recurs a single one.
  virtual void ClearRecurrencePattern() = 0;
};

class ItemCollection {
 public:
  virtual ~ItemCollection() = default;
  virtual int Count() const = 0;
  // By position from 1; BoundsError for one that is not there.
  virtual std::shared_ptr<outlook::Item> Item(int position) const = 0;
  // Whether the folder holds an item of that identity that is left out because it cannot be read.
  virtual bool IsSkipped(TextView entryId) const = 0;
};

class MAPIFolder {
 public:
  virtual ~MAPIFolder() = default;
  virtual std::shared_ptr<ItemCollection> Items() = 0;
};

class NameSpace {
 public:
  virtual ~NameSpace() = default;
  virtual std::shared_ptr<MAPIFolder> GetDefaultFolder(int folder) = 0;
};

class Application {
 public:
  virtual ~Application() = default;
  // A new item, not yet saved.
  virtual std::shared_ptr<Item> CreateItem(int type) = 0;
  // The name is "MAPI".
  virtual std::shared_ptr<NameSpace> GetNamespace(TextView name) = 0;
};

// How an application object is had.
class Automation {
 public:
  Automation() = default;
  virtual ~Automation() = default;
  Automation(const Automation&) = delete;
  Automation& operator=(const Automation&) = delete;

  // A new application object of that class, "Outlook.Application".
  virtual std::shared_ptr<Application> CreateObject(TextView className) = 0;
  // The one that all wrappers of items share, made on first use.
  Application& Shared();

 private:
  std::shared_ptr<Application> shared_;
};

}  // namespace tessarin::outlook
