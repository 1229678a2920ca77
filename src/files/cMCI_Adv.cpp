#include "files/cMCI_Adv.h"

#include "core/TextIndex.h"

namespace tessarin {

namespace {

constexpr char16_t kSoundFontPackage[] = u"timgm6mb-soundfont";

int ErrorIndex(MediaError error) {
  switch (error) {
    case MediaError::NoAudioDevice:
      return text::error::kNoAudioDevice;
    case MediaError::NoSoundFont:
      return text::error::kNoSoundFont;
    case MediaError::FileMissing:
      return text::error::kMediaFileMissing;
    case MediaError::FileDamaged:
    case MediaError::None:
      break;
  }
  return text::error::kMediaFileDamaged;
}

}  // namespace

bool cMCI_Adv::Told(const char16_t* command, MediaError result) const {
  if (result == MediaError::None) return true;
  const int index = ErrorIndex(result);
  const Text description = Replace(language_.getTSErrStr(index), u"###1", kSoundFontPackage);
  host_.MessageBox(command + Text(u"\n\nError Number = ") + ToText(index) +
                       u"\nError Description = " + description,
                   MessageKind::Error, MessageButtons::Ok,
                   language_.getTSInterfaceStr(text::interface_::kMediaErrorTitle));
  return false;
}

bool cMCI_Adv::MCI_Open(const std::filesystem::path& file) {
  return Told(u"MCI_Open", player_.Open(file));
}

bool cMCI_Adv::MCI_PlayFromStart() {
  player_.SeekToStart();
  return MCI_Play();
}

bool cMCI_Adv::MCI_Play() { return Told(u"MCI_Play", player_.Play()); }

}  // namespace tessarin
