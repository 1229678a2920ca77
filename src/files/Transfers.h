#pragma once

// Moving one file between a folder of the computer and a folder of the phone, inside the busy
// window, with a message at the end.

#include <filesystem>

#include "core/PhoneLink.h"
#include "files/ComputerPane.h"
#include "files/PhonePane.h"
#include "files/frmSplashTransmission.h"

namespace tessarin {

class Transfers {
 public:
  // Puts its two workers into the busy window's table. All must outlive this object.
  Transfers(TessarinMenu& session, const PhoneLink& link, frmSplashTransmission& busyWindow);

  // Fetches the file in the phone's selected row into the computer's selected folder, in place of
  // one of that name, and shows that folder anew: also when only a part of the file came.
  void Download(PhonePane& phone, ComputerPane& computer);
  // Sends a file into the phone's selected folder, in place of one of that name. The phone's list
  // shows it when it is read the next time.
  void Upload(PhonePane& phone, const std::filesystem::path& file);
  // Sends a file to the phone's multimedia message service, which has no folders.
  void UploadToMms(const std::filesystem::path& file);

 private:
  enum class Outcome {
    NotReached,  // the phone's folder or service could not be
    Failed,      // with the file itself
    Done
  };

  void downloading();
  void uploading();
  Outcome Put() const;
  static bool Note(Outcome& outcome, bool success);
  void Tell(Outcome outcome, int prompt, int error) const;

  TessarinMenu& session_;
  PhoneLink link_;
  frmSplashTransmission& busyWindow_;

  // What the next transfer works on.
  PhonePane* phone_ = nullptr;  // null for the multimedia message service
  ComputerPane* computer_ = nullptr;
  std::filesystem::path file_;
  bool reached_ = false;  // the phone's file, with whatever outcome
};

}  // namespace tessarin
