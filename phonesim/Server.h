#pragma once

#include <atomic>
#include <filesystem>
#include <memory>
#include <thread>

#include "phonesim/Behaviour.h"
#include "phonesim/Phone.h"
#include "phonesim/PhoneLine.h"
#include "phonesim/Reports.h"

namespace phonesim {

/// A phone with its line, served by a thread of its own: what a test plugs in. The port is there
/// when `Start` returns, and gone when `Stop` or `HangUp` returns.
class Server {
 public:
  /// `content` is the folder with the phone's files, `link` the path its port is linked at.
  Server(const std::filesystem::path& content, std::filesystem::path link,
         Behaviour behaviour = {});
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  /// Plugs the phone in, in AT mode unless it was told to keep its mode. Throws `std::system_error`
  /// when there is no port to be had. Does nothing while the line is up.
  void Start();

  /// Takes the phone away once the client has read what was sent to it, or half a second later.
  void Stop();

  /// Takes the phone away at once: what the client has not read is lost.
  void HangUp();

  void Restart();

  /// False also when the phone hung up by itself.
  bool LineUp() const { return lineUp_; }

  /// Set before `Start`.
  void SetListener(PhoneLine::Listener listener) { listener_ = std::move(listener); }

  Settings& GetSettings() { return settings_; }
  Reports& GetReports() { return reports_; }

  /// To look into the phone's books, or to change them as somebody with the phone in hand does.
  Memory& GetMemory() { return phone_.GetMemory(); }

 private:
  void End(bool patient);

  Settings settings_;
  Reports reports_;
  Phone phone_;
  std::filesystem::path link_;
  PhoneLine::Listener listener_;
  std::unique_ptr<PhoneLine> line_;
  std::thread thread_;
  std::atomic<bool> lineUp_ = false;
  int wake_ = -1;
};

}  // namespace phonesim
