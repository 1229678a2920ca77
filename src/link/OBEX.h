#pragma once

// The OBEX session: in and out of OBEX mode on the AT line, connecting to one of the phone's three
// services, and walking its folders. A session begins with EndOBEXSession as a precaution,
// connects, works, and ends with EndOBEXSession; it never lasts beyond one job.

#include <cstdint>
#include <string>

#include "link/modComLib.h"

namespace tessarin {

class OBEX {
 public:
  // `com` must outlive this object.
  explicit OBEX(modComLib& com) : com_(com) {}

  // AT*EOBEX; true when the phone answered CONNECT.
  [[nodiscard]] bool EnterOBEXMode();
  // Disconnect; true when the phone confirmed it. Safe in AT mode too, where the phone just echoes
  // the packet. Waits without limit on a silent phone.
  bool LeaveOBEXMode();
  // LeaveOBEXMode with its result as all ones or 0.
  int EndOBEXSession();

  // Each enters OBEX mode and connects. `connectionId` gets the 8 hexadecimal digits by which the
  // phone names the session; IrMC operations do not use them.
  [[nodiscard]] bool ConnectFolderBrowsing(std::string& connectionId);
  [[nodiscard]] bool ConnectIrmcSync(std::string& connectionId);
  [[nodiscard]] bool ConnectMmsTarget();

  // False also for a name too long for one packet, which is not sent.
  [[nodiscard]] bool SetPathRoot(const std::string& connectionId);
  [[nodiscard]] bool SetPathDown(const std::string& connectionId, TextView folderName);

  struct Service;

 private:
  // Sends one packet and reads its reply, the whole of which goes to `reply`. True for a final
  // success.
  bool Exchange(const std::string& packet, std::string& reply);
  bool Connect(const Service& service, std::string& connectionId);
  bool SetPath(const std::string& connectionId, const std::string& nameHeader);

  modComLib& com_;
};

}  // namespace tessarin
