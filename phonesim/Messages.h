#pragma once

#include <functional>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "phonesim/Deck.h"
#include "phonesim/SmsPdu.h"

namespace phonesim {

/// A message in a store. Status: 0 received unread, 1 received read, 2 stored unsent, 3 stored
/// sent.
struct StoredMessage {
  int status = 0;
  std::string pdu;  ///< digits, service centre first
};

/// The two message stores, "SM" on the SIM and "ME" in the phone, with numbered locations. Kept in
/// a file.
class MessageStores {
 public:
  using Store = std::map<int, StoredMessage>;

  explicit MessageStores(const std::filesystem::path& file) : file_(file) { Load(); }

  const Store& Of(const std::string& name) const;
  void Set(const std::string& name, int location, StoredMessage message);

  /// Puts it into the first free location, which is the result.
  int Add(const std::string& name, StoredMessage message);

  /// False when there is none.
  bool Remove(const std::string& name, int location);
  void Fill(std::map<std::string, Store> stores);

  /// Takes over what was changed in the file by hand.
  void Reread();

 private:
  void Load();
  void Save();

  DeckFile file_;
  std::map<std::string, Store> stores_;
};

/// A message that has gone out whole.
struct SentMessage {
  std::string recipient;
  std::string text;  ///< UTF-8, as the recipient reads it
  SmsCoding coding = SmsCoding::Gsm;
  std::size_t parts = 1;
};

/// What the client has sent, its parts joined as the recipient's phone does.
class SentMessages {
 public:
  void Take(const Submitted& part);

  const std::vector<SentMessage>& All() const { return whole_; }

  /// How many parts wait for others of their message.
  std::size_t Waiting() const;

  void Clear();

  /// Called with every whole message, on the phone's thread.
  void SetListener(std::function<void(const SentMessage&)> listener) {
    listener_ = std::move(listener);
  }

 private:
  using Key = std::tuple<std::string, int, int>;  ///< recipient, reference, number of parts
  void Finish(SentMessage message);

  std::vector<SentMessage> whole_;
  std::map<Key, std::map<int, Submitted>> waiting_;
  std::function<void(const SentMessage&)> listener_;
};

}  // namespace phonesim
