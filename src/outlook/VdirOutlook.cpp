#include "outlook/VdirOutlook.h"

#include <filesystem>
#include <set>
#include <vector>

#include "codecs/Faults.h"
#include "outlook/ContentLines.h"
#include "outlook/LineValue.h"
#include "outlook/VdirItems.h"

namespace tessarin::outlook {

namespace {

using Skipped = VdirOutlook::Skipped;

// What a default folder holds, and where.
struct FolderKind {
  std::filesystem::path path;
  const char* extension;
  std::shared_ptr<Item> (*make)(const VdirFile& file, std::string_view bytes, KnownNames& names);
};

class Items : public ItemCollection {
 public:
  Items(const FolderKind& kind, const Skipped& skipped) {
    KnownNames names(kind.path);
    for (const auto& path : VdirItems(kind.path, kind.extension)) Take(kind, VdirFile(path), names);
    names.Save();
    if (!skippedNames_.empty()) skipped(skippedNames_);
  }

  int Count() const override { return static_cast<int>(items_.size()); }
  std::shared_ptr<outlook::Item> Item(int position) const override {
    if (position < 1 || position > Count()) throw BoundsError();
    return items_[static_cast<std::size_t>(position - 1)];
  }
  bool IsSkipped(TextView entryId) const override {
    return skippedIds_.find(entryId) != skippedIds_.end();
  }

 private:
  void Take(const FolderKind& kind, VdirFile file, KnownNames& names) {
    const std::string bytes = file.ReadIfPossible();  // no bytes make no item
    if (file.IsGone()) return;  // other programs may take a file away while the folder is read
    if (auto item = kind.make(file, bytes, names)) {
      items_.push_back(std::move(item));
    } else {
      Skip(file, bytes);
      names.Meet(file.Stem(), true);
    }
  }

  // A file by its name and by what is left of its UIDs.
  void Skip(const VdirFile& file, std::string_view bytes) {
    skippedIds_.insert(file.Stem());
    for (const std::string& uid : ValuesIn(bytes, "UID")) {
      skippedIds_.insert(Text(TrimBlanks(UnescapeText(uid))));
    }
    if (!skippedNames_.empty()) skippedNames_ += u", ";
    skippedNames_ += FromUtf8(file.path().filename().string());
  }

  std::vector<std::shared_ptr<outlook::Item>> items_;
  std::set<Text, std::less<>> skippedIds_;
  Text skippedNames_;
};

class Folder : public MAPIFolder {
 public:
  Folder(FolderKind kind, Skipped skipped) : kind_(std::move(kind)), skipped_(std::move(skipped)) {}
  std::shared_ptr<ItemCollection> Items() override {
    return std::make_shared<outlook::Items>(kind_, skipped_);
  }

 private:
  FolderKind kind_;
  Skipped skipped_;
};

struct Folders {
  std::filesystem::path contacts, calendar;
  Skipped skipped;
};

class Names : public NameSpace {
 public:
  explicit Names(Folders folders) : folders_(std::move(folders)) {}
  std::shared_ptr<MAPIFolder> GetDefaultFolder(int folder) override {
    if (folder == kContactsFolder) {
      return std::make_shared<Folder>(FolderKind{folders_.contacts, ".vcf", MakeContact},
                                      folders_.skipped);
    }
    if (folder != kCalendarFolder) throw BoundsError();
    return std::make_shared<Folder>(FolderKind{folders_.calendar, ".ics", MakeAppointment},
                                    folders_.skipped);
  }

 private:
  Folders folders_;
};

class Store : public Application {
 public:
  Store(Folders folders, const Clock& clock) : folders_(std::move(folders)), clock_(clock) {}
  std::shared_ptr<Item> CreateItem(int type) override {
    if (type == kContactType) return std::make_shared<VdirContact>(folders_.contacts);
    if (type != kAppointmentType) throw BoundsError();
    return std::make_shared<VdirAppointment>(folders_.calendar, clock_.Now());
  }
  std::shared_ptr<NameSpace> GetNamespace(TextView name) override {
    if (name != u"MAPI") throw BoundsError();
    return std::make_shared<Names>(folders_);
  }

 private:
  Folders folders_;
  const Clock& clock_;
};

}  // namespace

VdirOutlook::VdirOutlook(const modFile& files, const Clock& clock, Skipped skipped)
    : files_(files), clock_(clock), skipped_(std::move(skipped)) {}

std::shared_ptr<Application> VdirOutlook::CreateObject(TextView className) {
  if (className != u"Outlook.Application") throw BoundsError();
  Folders folders{files_.Path(u"\\Outlook\\Contacts"), files_.Path(u"\\Outlook\\Calendar"),
                  skipped_};
  modFile::MakeFolder(folders.contacts);
  modFile::MakeFolder(folders.calendar);
  return std::make_shared<Store>(std::move(folders), clock_);
}

}  // namespace tessarin::outlook
