#pragma once

// FluidSynth as the player: a synthesizer with an installed SoundFont.

#include <memory>
#include <string>
#include <vector>

#include "files/MidiPlayer.h"

namespace tessarin {

class FluidPlayer : public MidiPlayer {
 public:
  struct Options {
    // Kinds of audio output to try, in this order. With none the sound is fetched with Render.
    std::vector<std::string> drivers = {"pulseaudio", "alsa"};
    // SoundFont files, or folders of them; the first one that is there is used.
    std::vector<std::filesystem::path> soundFonts = InstalledSoundFonts();
  };

  FluidPlayer() : FluidPlayer(Options{}) {}
  explicit FluidPlayer(Options options);
  ~FluidPlayer() override;

  // Loads the SoundFont with the first tune. A file that is no Standard MIDI File is damaged.
  MediaError Open(const std::filesystem::path& file) override;
  MediaError Play() override;
  void Pause() override;
  void Stop() override;
  void SeekToStart() override;
  void Close() override;

  // The next `frames` of the tune as pairs of samples, left and right, -1 to 1: what would be
  // heard.
  std::vector<float> Render(int frames);
  static constexpr int kSampleRate = 44100;

  static std::vector<std::filesystem::path> InstalledSoundFonts();

 private:
  struct Synthesizer;

  MediaError LoadSynthesizer();
  bool OpenAudio();
  void StartTune();

  Options options_;
  std::unique_ptr<Synthesizer> synthesizer_;
  std::string tune_;  // the bytes of the open file, empty for none
};

}  // namespace tessarin
