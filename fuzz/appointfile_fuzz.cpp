// Any bytes as the file of the calendar's list. Whatever it holds, the list that is joined with it
// keeps its entries, and a list that was written is what the next reading joins with: a second
// round changes nothing.
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "calendar/clsT610AppointList.h"
#include "codecs/Faults.h"
#include "codecs/ListFile.h"
#include "codecs/modFile.h"
#include "fuzz/Pieces.h"

namespace {

using namespace tessarin;

namespace fs = std::filesystem;

class File {
 public:
  // In memory, where flushing costs nothing.
  File() {
    const fs::path memory = "/dev/shm";
    const fs::path folder = fs::is_directory(memory) ? memory : fs::temp_directory_path();
    path_ = folder / ("appoint-fuzz-" + std::to_string(::getpid()));
  }
  ~File() { fs::remove(path_); }
  const fs::path& Path() const { return path_; }
  void Write(std::string_view content) const {
    std::ofstream(path_, std::ios::binary | std::ios::trunc) << content;
  }
  std::string Read() const {
    std::ifstream file(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

 private:
  fs::path path_;
};

// The entries of the file's own whole lines, as if the phone held them.
void FillFrom(const fs::path& file, clsT610AppointList& list) {
  for (const auto& line : ListFile::ReadLines(file)) {
    try {
      list.AssignContact(clsT610AppointList::DecodeContactStr(line));
    } catch (const BoundsError&) {
      continue;
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const File file;
  static const modFile noFiles("/nowhere", "/nowhere");
  static const Language language(noFiles);
  file.Write({reinterpret_cast<const char*>(data), size});
  clsT610AppointList list(language);
  FillFrom(file.Path(), list);
  const int count = list.Count();
  const auto unread = list.LoadT610AppointList(file.Path());
  Require(unread.empty() ||
          clsT610AppointList::DecodeContactStr(unread.front()).size() < clsT610Appoint::kFields);
  Require(list.Count() == count);
  for (int round = 0; round < 2; ++round) {
    list.WriteContactToFile(file.Path());
    const std::string written = file.Read();
    Require(ListFile::ReadLines(file.Path()).size() == static_cast<std::size_t>(count));
    clsT610AppointList again(language);
    FillFrom(file.Path(), again);
    again.WriteContactToFile(file.Path());
    Require(file.Read() == written);
  }
  return 0;
}
