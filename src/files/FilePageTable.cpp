#include "files/FilePageTable.h"

namespace tessarin {

const std::array<FilePageRow, 6> kFilePages = {{
    {MediaKind::File, nullptr, nullptr, false, u"", nullptr, false, false, true, true, ""},
    {MediaKind::MMS, &Session::mmsFolder, nullptr, false, u"", nullptr, true, false, false, false,
     "SlideComposer.exe"},
    {MediaKind::Ringtone, &Session::ringtoneFolder, &Session::storageRoot2, true, u"ringtones",
     &TessarinMenu::timerRingtone, true, true, true, true, "ScoreWriter.exe"},
    {MediaKind::Logo, &Session::pictureFolder, &Session::storageRoot, false, u"camera_semc|image",
     &TessarinMenu::TimerPicture, true, true, true, true, nullptr},
    {MediaKind::Photo, &Session::themeFolder, &Session::themeStorageRoot, false, u"", nullptr, true,
     true, true, true, nullptr},
    {MediaKind::Movie, &Session::movieFolder, &Session::storageRoot3, false, u"camera",
     &TessarinMenu::TimerMovie, true, true, true, false, "ClipCutter.exe"},
}};

}  // namespace tessarin
