#pragma once

// What plays a tune.

#include <filesystem>

namespace tessarin {

enum class MediaError { None, NoAudioDevice, NoSoundFont, FileMissing, FileDamaged };

// One tune at a time, played beside the program: no call waits for its end.
class MidiPlayer {
 public:
  MidiPlayer() = default;
  virtual ~MidiPlayer() = default;
  MidiPlayer(const MidiPlayer&) = delete;
  MidiPlayer& operator=(const MidiPlayer&) = delete;

  // Takes a tune, in place of the one before.
  [[nodiscard]] virtual MediaError Open(const std::filesystem::path& file) = 0;
  // Goes on from where the tune stands.
  [[nodiscard]] virtual MediaError Play() = 0;
  // Each does nothing when no tune is open.
  virtual void Pause() = 0;
  virtual void Stop() = 0;
  virtual void SeekToStart() = 0;
  // Lets go of the tune and of the audio device.
  virtual void Close() = 0;
};

}  // namespace tessarin
