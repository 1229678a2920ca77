#include "outlook/VdirItems.h"

namespace tessarin::outlook {

namespace {

constexpr char kCardExtension[] = ".vcf";
constexpr char kEventExtension[] = ".ics";

template <class Value>
std::optional<Value> IfOther(const Value& wanted, const Value& loaded) {
  return wanted == loaded ? std::nullopt : std::optional(wanted);
}

// An item, one of a class that is only told by its name, or null.
template <class Kind, class Document>
std::shared_ptr<Item> Make(const VdirFile& file, std::string_view bytes, KnownNames& names,
                           TextView otherType) {
  auto document = Document::Read(bytes);
  if (!document) return nullptr;
  if (!document->IsItem()) return std::make_shared<OtherItem>(otherType, file.Stem());
  const bool byName = names.Meet(file.Stem(), !document->uid().empty());
  return std::make_shared<Kind>(file, std::move(*document),
                                byName ? Kind::Known::ByName : Kind::Known::ByUid);
}

}  // namespace

VdirContact::VdirContact(VdirFile file, Card card, Known known)
    : VdirItem(std::move(file), std::move(card), known), texts_(document().texts()) {}

VdirContact::VdirContact(const std::filesystem::path& folder) : VdirContact(folder, NewUid()) {}

VdirContact::VdirContact(const std::filesystem::path& folder, const std::string& uid)
    : VdirItem(VdirFile(folder / (uid + kCardExtension)), Card::New(uid)) {}

const Text& VdirContact::Get(ContactProperty property) const {
  return texts_[static_cast<std::size_t>(property)];
}

void VdirContact::Set(ContactProperty property, const Text& value) {
  texts_[static_cast<std::size_t>(property)] = value;
}

void VdirContact::Change(Card& card) const {
  ContactChanges changes;
  for (std::size_t i = 0; i < kContactProperties; ++i) {
    if (texts_[i] != document().texts()[i]) {
      changes.emplace(static_cast<ContactProperty>(i), texts_[i]);
    }
  }
  card.Apply(changes);
}

void VdirContact::Loaded() { texts_ = document().texts(); }

VdirAppointment::VdirAppointment(VdirFile file, Event event, Known known)
    : VdirItem(std::move(file), std::move(event), known), fields_(document().fields()) {}

VdirAppointment::VdirAppointment(const std::filesystem::path& folder, const std::string& uid,
                                 DateValue now)
    : VdirItem(VdirFile(folder / (uid + kEventExtension)), Event::New(uid, now)),
      fields_(document().fields()) {}

VdirAppointment::VdirAppointment(const std::filesystem::path& folder, DateValue now)
    : VdirAppointment(folder, NewUid(), now) {}

void VdirAppointment::Change(Event& event) const {
  const AppointmentFields& loaded = document().fields();
  AppointmentChanges changes;
  changes.Categories = IfOther(fields_.Categories, loaded.Categories);
  changes.Subject = IfOther(fields_.Subject, loaded.Subject);
  changes.Location = IfOther(fields_.Location, loaded.Location);
  changes.Start = IfOther(fields_.Start, loaded.Start);
  changes.End = IfOther(fields_.End, loaded.End);
  changes.ReminderSet = IfOther(fields_.ReminderSet, loaded.ReminderSet);
  changes.ReminderMinutesBeforeStart =
      IfOther(fields_.ReminderMinutesBeforeStart, loaded.ReminderMinutesBeforeStart);
  changes.playSound = playSound_;
  changes.clearRecurrence = clearRecurrence_;
  event.Apply(changes);
}

void VdirAppointment::Loaded() {
  fields_ = document().fields();
  playSound_ = false;
  clearRecurrence_ = false;
}

std::shared_ptr<Item> MakeContact(const VdirFile& file, std::string_view bytes, KnownNames& names) {
  return Make<VdirContact, Card>(file, bytes, names, u"DistListItem");
}

std::shared_ptr<Item> MakeAppointment(const VdirFile& file, std::string_view bytes,
                                      KnownNames& names) {
  return Make<VdirAppointment, Event>(file, bytes, names, u"TaskItem");
}

}  // namespace tessarin::outlook
