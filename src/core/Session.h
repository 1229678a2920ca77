#pragma once

// The state that the whole program shares: what is known of the phone, and the next job.

#include <cstdint>
#include <filesystem>
#include <vector>

#include "codecs/Text.h"

namespace tessarin {

// The page in front, as the transfers compare it. Pages that move no files have no kind.
enum class MediaKind : std::int16_t {
  None = -1,
  File = 0,
  Logo = 1,
  Ringtone = 2,
  Photo = 3,
  Movie = 4,
  MMS = 8
};

enum StatusPhase : std::int16_t { kNoPhone = 1, kPhonePresent = 2 };

// Codes of `commandState`. A code without a job does nothing.
namespace job {
inline constexpr std::int32_t kStartScan = 0;
inline constexpr std::int32_t kIdlePoll = 1;
inline constexpr std::int32_t kPhoneInfo = 2;
inline constexpr std::int32_t kLoadPhonebook = 6;
inline constexpr std::int32_t kWriteContact = 7;
inline constexpr std::int32_t kDeleteContacts = 8;
inline constexpr std::int32_t kContactSync = 9;
inline constexpr std::int32_t kLoadCalendar = 10;
inline constexpr std::int32_t kWriteEvent = 11;
inline constexpr std::int32_t kDeleteEvents = 12;
inline constexpr std::int32_t kCalendarSync = 13;
inline constexpr std::int32_t kLoadFolder = 14;
inline constexpr std::int32_t kLoadSubfolder = 15;
inline constexpr std::int32_t kCopyToSim = 21;
inline constexpr std::int32_t kDownload = 16;
inline constexpr std::int32_t kUpload = 17;
inline constexpr std::int32_t kPicturePreview = 18;
inline constexpr std::int32_t kRingtonePreview = 19;
inline constexpr std::int32_t kPictureEdit = 20;
inline constexpr std::int32_t kSearching = 23;  // nothing runs, and the battery poll rests
}  // namespace job

struct Session {
  // 0, the port's own default, until the first phone was identified; 57600 from then on.
  std::int32_t baudRate = 0;
  // The job that the next tick runs. There is room for one request: a later one overwrites it.
  std::int32_t commandState = job::kStartScan;
  // Lowest and highest slot of the SIM's phonebook.
  std::int16_t simMinIndex = 0;
  std::int16_t simMaxIndex = 0;
  std::int32_t simRecordCount = 0;    // records read from the SIM
  std::int32_t phoneRecordCount = 0;  // records read from phone memory
  std::int16_t pbChangeCounter = 0;   // the phone's phonebook change counter, as last read
  std::int16_t connectedPort = 0;     // the COM port on which the phone was found
  Text phoneSerial;
  Text phoneModel;
  std::int16_t phonebookLoadChoice = 0;  // 1 load the phonebook now, 2 do not

  int languageIndex = 0;
  StatusPhase statusPhase = kNoPhone;
  std::int16_t scanPort = 3;      // the next COM port to test
  bool isClosing = false;         // from the first step of unload
  bool phoneWasSeen = false;      // in this run
  std::int16_t batteryFrame = 1;  // of the charging pictures, 1 to 5; 6 is the second of rest
  std::int16_t batteryState = 0;  // 0 at start, 1 below 100 %, 2 at 100 %
  MediaKind currentPage = MediaKind::File;

  std::vector<Text> storageNames;  // the phone's top-level folders, in listing order
  // The root folder that a page shows: pictures, ringtones, movies. That of the themes stays empty,
  // and so stands for the phone's own root, until its box is used.
  Text storageRoot;
  Text storageRoot2;
  Text storageRoot3;
  Text themeStorageRoot;

  std::filesystem::path javaFolder, smsFolder, ringtoneFolder, pictureFolder, themeFolder,
      movieFolder, calendarFolder, phonebookFolder, mmsFolder;
};

}  // namespace tessarin
