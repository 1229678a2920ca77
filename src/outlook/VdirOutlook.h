#pragma once

// Outlook's object model over two vdir folders of one item a file: "\Outlook\Contacts" with vCards,
// "\Outlook\Calendar" with iCalendar objects. Programs such as khard, khal and vdirsyncer work on
// the same folders.

#include <functional>

#include "codecs/modFile.h"
#include "outlook/Outlook.h"

namespace tessarin::outlook {

class VdirOutlook : public Automation {
 public:
  // Told once a reading of a folder, with the names of the files that were skipped because they
  // cannot be read, joined by ", ".
  using Skipped = std::function<void(const Text& names)>;

  // All must outlive the store.
  VdirOutlook(const modFile& files, const Clock& clock, Skipped skipped);

  // Makes the two folders when they are missing. Throws FileError.
  std::shared_ptr<Application> CreateObject(TextView className) override;

 private:
  const modFile& files_;
  const Clock& clock_;
  Skipped skipped_;
};

}  // namespace tessarin::outlook
