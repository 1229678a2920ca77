#include "outlook/VdirItems.h"

namespace tessarin::outlook {

namespace {

constexpr char kCardExtension[] = ".vcf";
constexpr char kEventExtension[] = ".ics";

template <class Value>
std::optional<Value> IfOther(const Value& wanted, const Value& loaded) {
  return wanted == loaded ? std::nullopt : std::optional(wanted);
}

}  // namespace

VdirContact::VdirContact(VdirFile file, Card card)
    : VdirItem(std::move(file), std::move(card)), texts_(document().texts()) {}

VdirContact::VdirContact(const std::filesystem::path& folder) : VdirContact(folder, NewUid()) {}

VdirContact::VdirContact(const std::filesystem::path& folder, const std::string& uid)
    : VdirItem(VdirFile(folder / (uid + kCardExtension)), Card::New(uid), true) {}

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

VdirAppointment::VdirAppointment(VdirFile file, Event event)
    : VdirItem(std::move(file), std::move(event)), fields_(document().fields()) {}

VdirAppointment::VdirAppointment(const std::filesystem::path& folder, const std::string& uid,
                                 DateValue now)
    : VdirItem(VdirFile(folder / (uid + kEventExtension)), Event::New(uid, now), true),
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

std::shared_ptr<Item> MakeContact(VdirFile file, std::string_view bytes) {
  auto card = Card::Read(bytes);
  if (!card) return nullptr;
  if (!card->IsItem()) return std::make_shared<OtherItem>(u"DistListItem", file.Stem());
  return std::make_shared<VdirContact>(std::move(file), std::move(*card));
}

std::shared_ptr<Item> MakeAppointment(VdirFile file, std::string_view bytes) {
  auto event = Event::Read(bytes);
  if (!event) return nullptr;
  if (!event->IsItem()) return std::make_shared<OtherItem>(u"TaskItem", file.Stem());
  return std::make_shared<VdirAppointment>(std::move(file), std::move(*event));
}

}  // namespace tessarin::outlook
