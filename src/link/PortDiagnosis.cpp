#include "link/PortDiagnosis.h"

#include <grp.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>

namespace tessarin {

namespace {

// The name of the group that owns the file, or its number when it has no name; empty when there is
// no such file.
std::string OwningGroup(const std::string& path) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) return {};
  group entry{};
  group* found = nullptr;
  std::array<char, 16384> names{};
  getgrgid_r(status.st_gid, &entry, names.data(), names.size(), &found);
  return found != nullptr ? found->gr_name : std::to_string(status.st_gid);
}

}  // namespace

PortTrouble DiagnoseOpening(int error, const std::string& device) {
  switch (error) {
    case ENOENT:  // unplugged meanwhile
      return {};
    case EACCES:
    case EPERM:
      return {PortTrouble::Kind::NoPermission, device, OwningGroup(device)};
    case EBUSY:
    case EWOULDBLOCK:
      return {PortTrouble::Kind::Busy, device, {}};
    case EIO:
      return {PortTrouble::Kind::InputOutput, device, {}};
    case EHOSTDOWN:  // a Bluetooth phone that is switched off or far away
    case EHOSTUNREACH:
    case ETIMEDOUT:
    case ECONNREFUSED:
      return {PortTrouble::Kind::Silent, device, {}};
    default:
      return {PortTrouble::Kind::NoTerminal, device, {}};
  }
}

}  // namespace tessarin
