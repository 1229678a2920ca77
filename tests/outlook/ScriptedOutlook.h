#pragma once

// Outlook in memory, with a clock that can be set and faults on demand.

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "codecs/Faults.h"
#include "outlook/Outlook.h"

namespace tessarin {

class ScriptedOutlook : public outlook::Automation {
 public:
  DateValue now = modDate::PackDate(2004, 6, 15);
  bool isMissing = false;  // no application can be made
  bool folderIsMissing = false;
  std::set<Text, std::less<>> skipped;  // identities of items that cannot be read
  int savesUntilFault = -1;             // below zero for none
  std::vector<std::string> calls;       // the writing ones, in order

  struct Stored {
    Text id;
    DateValue modified = 0;
  };

  class Contact : public outlook::ContactItem {
   public:
    explicit Contact(ScriptedOutlook& store) : store_(store) {}
    const Text& EntryID() const override { return stored_.id; }
    DateValue LastModificationTime() override { return stored_.modified; }
    const Text& Get(outlook::ContactProperty property) const override {
      return texts[static_cast<std::size_t>(property)];
    }
    void Set(outlook::ContactProperty property, const Text& value) override {
      store_.calls.push_back("Set " + std::to_string(static_cast<int>(property)));
      texts[static_cast<std::size_t>(property)] = value;
    }
    Text FirstName() const override { return first; }
    Text LastName() const override { return last; }
    void Save() override { store_.Save(stored_, "C"); }

    outlook::ContactTexts texts;
    Text first, last;

   private:
    friend class ScriptedOutlook;
    ScriptedOutlook& store_;
    Stored stored_;
  };

  class Appointment : public outlook::AppointmentItem {
   public:
    explicit Appointment(ScriptedOutlook& store) : store_(store) {}
    const Text& EntryID() const override { return stored_.id; }
    DateValue LastModificationTime() override { return stored_.modified; }
    const outlook::AppointmentFields& Get() const override { return fields; }
    void SetCategories(const Text& value) override {
      Note("Categories"), fields.Categories = value;
    }
    void SetSubject(const Text& value) override { Note("Subject"), fields.Subject = value; }
    void SetLocation(const Text& value) override { Note("Location"), fields.Location = value; }
    void SetStart(DateValue value) override { Note("Start"), fields.Start = value; }
    void SetEnd(DateValue value) override { Note("End"), fields.End = value; }
    void SetReminderSet(bool value) override {
      Note(value ? "ReminderSet" : "ReminderSet off");
      fields.ReminderSet = value;
    }
    void SetReminderPlaySound(bool value) override { Note(value ? "Sound" : "Sound off"); }
    void SetReminderMinutesBeforeStart(long long value) override {
      Note("Minutes");
      fields.ReminderMinutesBeforeStart = value;
    }
    void ClearRecurrencePattern() override { Note("ClearRecurrencePattern"); }
    void Save() override { store_.Save(stored_, "A"); }

    outlook::AppointmentFields fields;

   private:
    friend class ScriptedOutlook;
    void Note(const char* call) { store_.calls.emplace_back(call); }
    ScriptedOutlook& store_;
    Stored stored_;
  };

  class Other : public outlook::Item {
   public:
    TextView TypeName() const override { return u"DistListItem"; }
    const Text& EntryID() const override { return id_; }
    DateValue LastModificationTime() override { return 0; }
    void Save() override {}

   private:
    Text id_ = u"other";
  };

  // What the folders hold, in order; items that were saved come at the end.
  std::vector<std::shared_ptr<outlook::Item>> contacts, appointments;

  std::shared_ptr<Contact> AddContact(const Text& name, DateValue modified) {
    auto contact = std::make_shared<Contact>(*this);
    contact->texts[0] = name;
    contact->stored_ = {u"C" + ToText(++identities_), modified};
    contacts.push_back(contact);
    return contact;
  }
  std::shared_ptr<Appointment> AddAppointment(const Text& subject, DateValue modified) {
    auto appointment = std::make_shared<Appointment>(*this);
    appointment->fields.Subject = subject;
    appointment->stored_ = {u"A" + ToText(++identities_), modified};
    appointments.push_back(appointment);
    return appointment;
  }
  static void Touch(Contact& contact, DateValue modified) { contact.stored_.modified = modified; }
  static void Touch(Appointment& item, DateValue modified) { item.stored_.modified = modified; }

  std::shared_ptr<outlook::Application> CreateObject(TextView) override {
    if (isMissing) throw FileError(ENOENT, "Outlook");
    return std::make_shared<App>(*this);
  }

 private:
  class Items : public outlook::ItemCollection {
   public:
    Items(std::vector<std::shared_ptr<outlook::Item>> items, std::set<Text, std::less<>> skipped)
        : items_(std::move(items)), skipped_(std::move(skipped)) {}
    int Count() const override { return static_cast<int>(items_.size()); }
    std::shared_ptr<outlook::Item> Item(int position) const override {
      return items_.at(static_cast<std::size_t>(position - 1));
    }
    bool IsSkipped(TextView entryId) const override { return skipped_.count(entryId) != 0; }

   private:
    std::vector<std::shared_ptr<outlook::Item>> items_;
    std::set<Text, std::less<>> skipped_;
  };
  class Folder : public outlook::MAPIFolder {
   public:
    Folder(const std::vector<std::shared_ptr<outlook::Item>>& items,
           const std::set<Text, std::less<>>& skipped)
        : items_(items), skipped_(skipped) {}
    std::shared_ptr<outlook::ItemCollection> Items() override {
      return std::make_shared<ScriptedOutlook::Items>(items_, skipped_);
    }

   private:
    const std::vector<std::shared_ptr<outlook::Item>>& items_;
    const std::set<Text, std::less<>>& skipped_;
  };
  class Names : public outlook::NameSpace {
   public:
    explicit Names(ScriptedOutlook& store) : store_(store) {}
    std::shared_ptr<outlook::MAPIFolder> GetDefaultFolder(int folder) override {
      if (store_.folderIsMissing) throw FileError(ENOENT, "folder");
      return std::make_shared<Folder>(folder == 10 ? store_.contacts : store_.appointments,
                                      store_.skipped);
    }

   private:
    ScriptedOutlook& store_;
  };
  class App : public outlook::Application {
   public:
    explicit App(ScriptedOutlook& store) : store_(store) {}
    std::shared_ptr<outlook::Item> CreateItem(int type) override {
      std::shared_ptr<outlook::Item> made;
      if (type == 2) made = store_.unsaved_ = std::make_shared<Contact>(store_);
      if (type == 1) made = store_.unsaved_ = std::make_shared<Appointment>(store_);
      return made;
    }
    std::shared_ptr<outlook::NameSpace> GetNamespace(TextView) override {
      return std::make_shared<Names>(store_);
    }

   private:
    ScriptedOutlook& store_;
  };

  void Save(Stored& stored, const char* prefix) {
    if (savesUntilFault == 0) throw FileError(EIO, "item");
    --savesUntilFault;
    calls.emplace_back("Save");
    stored.modified = now;
    if (!stored.id.empty()) return;
    stored.id = FromUtf8(prefix) + ToText(++identities_);
    (*prefix == 'C' ? contacts : appointments).push_back(unsaved_);
  }

  std::shared_ptr<outlook::Item> unsaved_;  // the item made last
  int identities_ = 0;
};

}  // namespace tessarin
