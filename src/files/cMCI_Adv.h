#pragma once

// The media device "MEDIA": opens a tune, plays, pauses and stops it, and tells the user what goes
// wrong.

#include "controls/WindowHost.h"
#include "core/Language.h"
#include "files/MidiPlayer.h"

namespace tessarin {

class cMCI_Adv {
 public:
  // All must outlive the device.
  cMCI_Adv(MidiPlayer& player, WindowHost& host, const Language& language)
      : player_(player), host_(host), language_(language) {}

  // Each is false, after a message, when it fails.
  bool MCI_Open(const std::filesystem::path& file);
  bool MCI_PlayFromStart();
  bool MCI_Play();
  // Nothing to be told: on a device that is not open there is nothing to do.
  void MCI_Pause() { player_.Pause(); }
  void MCI_Stop() { player_.Stop(); }
  void MCI_Seek() { player_.SeekToStart(); }
  void MCI_CloseAll() { player_.Close(); }

 private:
  bool Told(const char16_t* command, MediaError result) const;

  MidiPlayer& player_;
  WindowHost& host_;
  const Language& language_;
};

}  // namespace tessarin
