#include "files/FluidPlayer.h"

#include <fluidsynth.h>

#include <algorithm>
#include <fstream>
#include <iterator>

namespace tessarin {

namespace fs = std::filesystem;

namespace {

// Loud enough for a phone's few voices, and far from clipping with many.
constexpr double kGain = 0.5;
constexpr int kAllChannels = -1;
constexpr char kMidiHead[] = "MThd";

template <class T, void (*Delete)(T*)>
struct Deleter {
  void operator()(T* object) const { Delete(object); }
};
template <class T, void (*Delete)(T*)>
using Owned = std::unique_ptr<T, Deleter<T, Delete>>;

bool IsSoundFont(const fs::path& file) {
  const auto extension = file.extension();
  return extension == ".sf2" || extension == ".sf3";
}

// The file itself, or the first SoundFont of a folder; empty for none.
fs::path SoundFontAt(const fs::path& place) {
  std::error_code error;
  if (fs::is_regular_file(place, error)) return place;
  std::vector<fs::path> found;
  for (fs::directory_iterator entry(place, error), end; !error && entry != end;
       entry.increment(error)) {
    if (IsSoundFont(entry->path())) found.push_back(entry->path());
  }
  return found.empty() ? fs::path() : *std::min_element(found.begin(), found.end());
}

}  // namespace

// Members go in reverse order: the driver first, the settings last.
struct FluidPlayer::Synthesizer {
  Owned<fluid_settings_t, delete_fluid_settings> settings{new_fluid_settings()};
  Owned<fluid_synth_t, delete_fluid_synth> synth;
  Owned<fluid_player_t, delete_fluid_player> player;
  Owned<fluid_audio_driver_t, delete_fluid_audio_driver> driver;
};

// The two that Debian's alternatives point to the user's choice come first.
std::vector<fs::path> FluidPlayer::InstalledSoundFonts() {
  return {"/usr/share/sounds/sf3/default-GM.sf3", "/usr/share/sounds/sf2/default-GM.sf2",
          "/usr/share/sounds/sf2", "/usr/share/sounds/sf3", "/usr/share/soundfonts"};
}

FluidPlayer::FluidPlayer(Options options) : options_(std::move(options)) {
  // What goes wrong is told in a box; nobody reads it on the standard error.
  for (const int level : {FLUID_PANIC, FLUID_ERR, FLUID_WARN, FLUID_INFO}) {
    fluid_set_log_function(level, nullptr, nullptr);
  }
}

FluidPlayer::~FluidPlayer() { Close(); }

MediaError FluidPlayer::LoadSynthesizer() {
  if (synthesizer_ != nullptr) return MediaError::None;
  auto made = std::make_unique<Synthesizer>();
  fluid_settings_setnum(made->settings.get(), "synth.gain", kGain);
  fluid_settings_setnum(made->settings.get(), "synth.sample-rate", kSampleRate);
  made->synth.reset(new_fluid_synth(made->settings.get()));
  for (const fs::path& place : options_.soundFonts) {
    const fs::path font = SoundFontAt(place);
    if (font.empty()) continue;
    if (fluid_synth_sfload(made->synth.get(), font.c_str(), 1) == FLUID_FAILED) continue;
    synthesizer_ = std::move(made);
    return MediaError::None;
  }
  return MediaError::NoSoundFont;
}

MediaError FluidPlayer::Open(const fs::path& file) {
  Close();
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return MediaError::FileMissing;
  tune_.assign(std::istreambuf_iterator<char>(stream), {});
  if (!tune_.starts_with(kMidiHead)) {
    tune_.clear();
    return MediaError::FileDamaged;
  }
  const MediaError result = LoadSynthesizer();
  if (result == MediaError::None) {
    StartTune();
  } else {
    tune_.clear();
  }
  return result;
}

// A player of its own for each beginning: one that came to its end does not begin again.
void FluidPlayer::StartTune() {
  synthesizer_->player.reset();
  fluid_synth_system_reset(synthesizer_->synth.get());
  synthesizer_->player.reset(new_fluid_player(synthesizer_->synth.get()));
  fluid_player_add_mem(synthesizer_->player.get(), tune_.data(), tune_.size());
}

bool FluidPlayer::OpenAudio() {
  if (options_.drivers.empty() || synthesizer_->driver != nullptr) return true;
  for (const std::string& kind : options_.drivers) {
    fluid_settings_setstr(synthesizer_->settings.get(), "audio.driver", kind.c_str());
    synthesizer_->driver.reset(
        new_fluid_audio_driver(synthesizer_->settings.get(), synthesizer_->synth.get()));
    if (synthesizer_->driver != nullptr) return true;
  }
  return false;
}

MediaError FluidPlayer::Play() {
  if (tune_.empty()) return MediaError::FileMissing;
  if (!OpenAudio()) return MediaError::NoAudioDevice;
  fluid_player_play(synthesizer_->player.get());
  return MediaError::None;
}

void FluidPlayer::Pause() {
  if (tune_.empty()) return;
  fluid_player_stop(synthesizer_->player.get());
  fluid_synth_all_sounds_off(synthesizer_->synth.get(), kAllChannels);
}

void FluidPlayer::Stop() { Pause(); }

void FluidPlayer::SeekToStart() {
  if (!tune_.empty()) StartTune();
}

void FluidPlayer::Close() {
  tune_.clear();
  if (synthesizer_ == nullptr) return;
  synthesizer_->driver.reset();
  synthesizer_->player.reset();
}

std::vector<float> FluidPlayer::Render(int frames) {
  std::vector<float> samples(static_cast<std::size_t>(frames) * 2);
  if (synthesizer_ == nullptr) return samples;
  fluid_synth_write_float(synthesizer_->synth.get(), frames, samples.data(), 0, 2, samples.data(),
                          1, 2);
  return samples;
}

}  // namespace tessarin
