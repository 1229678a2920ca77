#pragma once

#include <mutex>
#include <utility>

#include "phonesim/Book.h"
#include "phonesim/Messages.h"
#include "phonesim/SimBook.h"

namespace phonesim {

/// All that the phone remembers besides its files.
struct Books {
  explicit Books(const std::filesystem::path& folder);

  Book contacts;  ///< names of the fields: see Vcard.h
  Book events;    ///< names of the fields: see Vcalendar.h
  SimBook sim;
  MessageStores messages;
  SentMessages sent;  ///< in no file

  /// Takes over what was changed in the files by hand.
  void Reread();
};

/// The folder of a phone's content that holds its books. No file listing shows it.
inline constexpr const char* kBooksFolder = ".books";

/// The folder in there that holds the multimedia messages it was given.
inline constexpr const char* kMmsFolder = "mms";

/// The phone's books, for its own thread and for those who look into them or change them behind
/// the client's back. A change holds from the next request on.
class Memory {
 public:
  /// `content` is the folder of the phone's files; the books lie in its `kBooksFolder`.
  explicit Memory(const std::filesystem::path& content) : books_(content / kBooksFolder) {}

  /// Calls `use` with the books and hands on its result.
  template <typename Use>
  auto With(Use&& use) {
    const std::lock_guard lock(mutex_);
    return std::forward<Use>(use)(books_);
  }

 private:
  std::mutex mutex_;
  Books books_;
};

}  // namespace phonesim
