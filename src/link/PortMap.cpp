#include "link/PortMap.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <utility>

namespace tessarin {

namespace fs = std::filesystem;

namespace {

struct PortRange {
  int first;
  int last;
  std::string_view device;
  int firstDevice;  // the number behind the device's name at `first`
  bool forPhones;
};

constexpr std::array kRanges = std::to_array<PortRange>({
    {1, 2, "ttyS", 0, false},
    {3, 34, "ttyACM", 0, true},
    {35, 66, "ttyUSB", 0, true},
    {67, 98, "rfcomm", 0, true},
    {99, 130, "ircomm", 0, true},
    {131, 160, "ttyS", 2, false},
});

const PortRange* FindRange(int port) {
  const auto range = std::find_if(kRanges.begin(), kRanges.end(), [port](const PortRange& r) {
    return port >= r.first && port <= r.last;
  });
  return range == kRanges.end() ? nullptr : &*range;
}

}  // namespace

PortMap::PortMap(fs::path linkFolder, fs::path deviceFolder)
    : linkFolder_(std::move(linkFolder)), deviceFolder_(std::move(deviceFolder)) {}

std::optional<fs::path> PortMap::Link(int port) const {
  fs::path link = linkFolder_ / ("COM" + std::to_string(port));
  std::error_code error;
  if (!fs::is_symlink(fs::symlink_status(link, error))) return std::nullopt;
  return link;
}

std::optional<fs::path> PortMap::Device(int port) const {
  if (auto link = Link(port)) return link;
  const PortRange* range = FindRange(port);
  if (range == nullptr) return std::nullopt;
  const int number = port - range->first + range->firstDevice;
  return deviceFolder_ / (std::string(range->device) + std::to_string(number));
}

bool PortMap::Exists(int port) const {
  const auto device = Device(port);
  std::error_code error;
  return device && fs::exists(*device, error);
}

bool PortMap::LooksLikePhone(int port) const {
  if (Link(port)) return true;
  const PortRange* range = FindRange(port);
  return range != nullptr && range->forPhones;
}

int PortNumber(std::string_view portName) {
  if (portName.starts_with("\\\\.\\")) portName.remove_prefix(4);
  if (!portName.starts_with("COM")) return 0;
  portName.remove_prefix(3);
  int number = 0;
  const char* const end = portName.data() + portName.size();
  const auto [stop, error] = std::from_chars(portName.data(), end, number);
  return error == std::errc() && stop == end && number > 0 ? number : 0;
}

}  // namespace tessarin
