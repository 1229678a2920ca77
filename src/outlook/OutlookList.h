#pragma once

// What both lists of Outlook's items are: the wrappers of a default folder, in order.

#include <memory>
#include <vector>

#include "codecs/Faults.h"
#include "controls/WindowHost.h"
#include "core/Language.h"
#include "outlook/Outlook.h"

namespace tessarin {

// All must outlive the lists.
struct OutlookNeeds {
  outlook::Automation& automation;
  WindowHost& host;
  const Language& language;
};

// The way to a default folder. Outlook that cannot be had costs a message, and the folder is then
// null.
class OutlookFolder {
 public:
  OutlookFolder(const OutlookNeeds& needs, int folder);

  // Calls `each` with the folder's items in order. Any failure, a folder that is not there too,
  // ends it with a message; what was done so far stays.
  template <class Each>
  void Load(const Each& each) {
    try {
      if (folder_ == nullptr) throw BoundsError();
      items_ = folder_->Items();
      const int count = items_->Count();
      for (int position = 1; position <= count; ++position) each(items_->Item(position));
    } catch (const Fault&) {
      loadFailed_ = true;
      ReportLoad();
    }
  }

  // Whether Load ended early, so that items are missing which Outlook has.
  bool LoadFailed() const { return loadFailed_; }
  // Whether the folder that was loaded holds an item of that identity which cannot be read. It is
  // in no list, but not gone either.
  bool IsSkipped(TextView guid) const { return items_ != nullptr && items_->IsSkipped(guid); }

 protected:
  outlook::Automation& automation() const { return needs_.automation; }

 private:
  void ReportLoad();

  OutlookNeeds needs_;
  std::shared_ptr<outlook::Application> application_;
  std::shared_ptr<outlook::NameSpace> nameSpace_;
  std::shared_ptr<outlook::MAPIFolder> folder_;
  std::shared_ptr<outlook::ItemCollection> items_;
  bool loadFailed_ = false;
};

// `Wrapper` gives its item's identity as EntryIdOf(wrapper).
template <class Wrapper>
class OutlookList : public OutlookFolder {
 public:
  using OutlookFolder::OutlookFolder;

  void Add(std::shared_ptr<Wrapper> wrapper) { wrappers_.push_back(std::move(wrapper)); }
  // By position from 1. Both raise BoundsError for one that is not there.
  Wrapper& item(int index) const { return *wrappers_[PlaceOf(index)]; }
  // Outlook's item stays.
  void Remove(int index) {
    wrappers_.erase(wrappers_.begin() + static_cast<std::ptrdiff_t>(PlaceOf(index)));
  }
  int Count() const { return static_cast<int>(wrappers_.size()); }
  const std::vector<std::shared_ptr<Wrapper>>& NewEnum() const { return wrappers_; }

  // The position of the first item with exactly that EntryID, -1 for none.
  int FindExistingGUID(TextView guid) const {
    for (std::size_t i = 0; i < wrappers_.size(); ++i) {
      if (EntryIdOf(*wrappers_[i]) == guid) return static_cast<int>(i) + 1;
    }
    return -1;
  }

 private:
  std::size_t PlaceOf(int index) const {
    if (index < 1 || index > Count()) throw BoundsError();
    return static_cast<std::size_t>(index - 1);
  }

  std::vector<std::shared_ptr<Wrapper>> wrappers_;
};

}  // namespace tessarin
