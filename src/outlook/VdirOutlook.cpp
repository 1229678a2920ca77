#include "outlook/VdirOutlook.h"

#include <filesystem>
#include <vector>

#include "codecs/Faults.h"
#include "outlook/VdirItems.h"

namespace tessarin::outlook {

namespace {

using Damaged = VdirOutlook::Damaged;

// What a default folder holds, and where.
struct FolderKind {
  std::filesystem::path path;
  const char* extension;
  std::shared_ptr<Item> (*read)(const std::filesystem::path& path);
};

class Items : public ItemCollection {
 public:
  Items(const FolderKind& kind, const Damaged& damaged) {
    Text skipped;
    for (const auto& path : VdirItems(kind.path, kind.extension)) {
      if (auto item = ReadUnlessGone(kind, path)) {
        items_.push_back(std::move(item));
      } else if (modFile::FileExists(path)) {
        if (!skipped.empty()) skipped += u", ";
        skipped += FromUtf8(path.filename().string());
      }
    }
    if (!skipped.empty()) damaged(skipped);
  }

  int Count() const override { return static_cast<int>(items_.size()); }
  std::shared_ptr<outlook::Item> Item(int position) const override {
    if (position < 1 || position > Count()) throw BoundsError();
    return items_[static_cast<std::size_t>(position - 1)];
  }

 private:
  // Other programs may take a file away, or replace it, while the folder is read.
  static std::shared_ptr<outlook::Item> ReadUnlessGone(const FolderKind& kind,
                                                       const std::filesystem::path& path) {
    try {
      return kind.read(path);
    } catch (const FileError&) {
      if (modFile::FileExists(path)) throw;
      return nullptr;
    }
  }

  std::vector<std::shared_ptr<outlook::Item>> items_;
};

class Folder : public MAPIFolder {
 public:
  Folder(FolderKind kind, Damaged damaged) : kind_(std::move(kind)), damaged_(std::move(damaged)) {}
  std::shared_ptr<ItemCollection> Items() override {
    return std::make_shared<outlook::Items>(kind_, damaged_);
  }

 private:
  FolderKind kind_;
  Damaged damaged_;
};

struct Folders {
  std::filesystem::path contacts, calendar;
  Damaged damaged;
};

class Names : public NameSpace {
 public:
  explicit Names(Folders folders) : folders_(std::move(folders)) {}
  std::shared_ptr<MAPIFolder> GetDefaultFolder(int folder) override {
    if (folder == kContactsFolder) {
      return std::make_shared<Folder>(FolderKind{folders_.contacts, ".vcf", ReadContact},
                                      folders_.damaged);
    }
    if (folder != kCalendarFolder) throw BoundsError();
    return std::make_shared<Folder>(FolderKind{folders_.calendar, ".ics", ReadAppointment},
                                    folders_.damaged);
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

VdirOutlook::VdirOutlook(const modFile& files, const Clock& clock, Damaged damaged)
    : files_(files), clock_(clock), damaged_(std::move(damaged)) {}

std::shared_ptr<Application> VdirOutlook::CreateObject(TextView className) {
  if (className != u"Outlook.Application") throw BoundsError();
  Folders folders{files_.Path(u"\\Outlook\\Contacts"), files_.Path(u"\\Outlook\\Calendar"),
                  damaged_};
  modFile::MakeFolder(folders.contacts);
  modFile::MakeFolder(folders.calendar);
  return std::make_shared<Store>(std::move(folders), clock_);
}

}  // namespace tessarin::outlook
