#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <utility>

/// What kind of phone this is and what is wrong with it. Everything here may be changed while the
/// phone runs and holds from the next byte on.
namespace phonesim {

struct Identity {
  std::string manufacturer = "Ericsson";
  std::string modelCode = "1021011-BVT610";
  std::string modelName = "T610";
  std::string serial = "001017006100427";
  std::string firmware = "R6C005 CXC125582";
};

struct Battery {
  enum class Trend { Fixed, Charging, Draining };

  int level = 85;              ///< percent, 0 to 100
  Trend trend = Trend::Fixed;  ///< a moving level goes one percent each time it is asked for
};

enum class Silence {
  None,
  Obex,        ///< dead to every byte while in OBEX mode
  Everything,  ///< dead to every byte
};

enum class ObexOperation { Connect, SetPath, Listing, Get, Put, Delete };

struct ObexRefusal {
  std::uint8_t code = 0xC3;  ///< the response code, "forbidden" unless told otherwise
  std::size_t packet = 1;    ///< which packet of one operation meets it, counted from 1
  std::string object{};      ///< how the name begins of the objects it is for; empty: all
  std::size_t skip = 0;      ///< how many such operations pass before
};

/// The phone's contacts and calendar, as synchronisation shows them.
struct Irmc {
  std::size_t contactMaximum = 510;  ///< a full book refuses new entries (E0)
  std::size_t eventMaximum = 300;
  std::size_t entryLimit = 456;  ///< bytes; a longer entry is refused (CD)

  bool lengthBeforeLogs = false;     ///< a Length header before the Body of a log
  bool lengthBeforeObjects = false;  ///< and before that of entries and whole books
  bool logsInTwoPackets = false;  ///< all of an information log in Body, then an empty End of Body

  bool plainPlus = false;  ///< "+" as it is, so that the objects are no UTF-7
  bool quoteAllInContacts = false;
  bool quoteAllInEvents = true;  ///< where a value is quoted, all of it is
};

/// The SIM's phonebook.
struct Sim {
  int first = 1;
  int last = 250;
  std::size_t nameLength = 30;    ///< characters; longer names are refused
  std::size_t numberLength = 40;  ///< digits and signs
};

/// How a location without a message is read.
enum class EmptyLocation { Ok, CmsError, Error };

struct Messages {
  int simTotal = 30;
  int phoneTotal = 100;
  EmptyLocation emptyLocation = EmptyLocation::Ok;
  bool readingMarks = true;  ///< a received message that was read is no longer unread
  /// UCS2 user data that end before their own length are sent as they are. A phone goes by the
  /// length behind AT+CMGS, which must hold all the same.
  bool takesShortUcs2 = true;
};

/// How an AT command fails, or with the name "PDU" the body of a message.
struct CommandFailure {
  int cmsCode = 0;            ///< of +CMS ERROR; 0: a plain ERROR
  std::size_t skip = 0;       ///< how often the command works before
  std::size_t times = 10000;  ///< how often it fails then
};

struct Behaviour {
  Identity identity;
  Battery battery;
  Irmc irmc;
  Sim sim;
  Messages messages;

  bool echo = false;                ///< the AT echo; ATE0 and ATE1 change it
  bool echoRequestHeaders = false;  ///< the first reply to the Get of a file repeats its Name

  std::size_t splitBytes = 0;  ///< send answers in pieces of this many bytes; 0: whole
  std::chrono::milliseconds splitGap{0};
  std::chrono::milliseconds answerDelay{0};

  std::optional<std::size_t> dropAfterBytes;     ///< hang up once this many more bytes were sent
  std::optional<std::size_t> dropAfterRequests;  ///< answer so many more, hang up at the next

  Silence silence = Silence::None;
  std::optional<std::size_t> silentAfterObexPackets;  ///< answer this many more, then all is silent
  bool keepObexOnClose = false;  ///< stay in OBEX mode when the client closes the port

  std::set<std::string> refusedCommands;                  ///< such as "AT+CSCS": answered ERROR
  std::map<std::string, std::size_t> unansweredCommands;  ///< how often more each is passed over
  std::map<std::string, CommandFailure> failingCommands;
  std::map<std::string, std::chrono::milliseconds> slowCommands;  ///< more time to think
  std::map<ObexOperation, ObexRefusal> refusedOperations;
};

/// One `Behaviour` for the phone's thread and for those who change it.
class Settings {
 public:
  explicit Settings(Behaviour behaviour = {}) : behaviour_(std::move(behaviour)) {}

  /// Calls `use` with the behaviour, to read or to change it, and hands on its result.
  template <typename Use>
  auto With(Use&& use) {
    const std::lock_guard lock(mutex_);
    return std::forward<Use>(use)(behaviour_);
  }

 private:
  std::mutex mutex_;
  Behaviour behaviour_;
};

}  // namespace phonesim
