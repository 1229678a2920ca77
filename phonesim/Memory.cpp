#include "phonesim/Memory.h"

namespace phonesim {

Books::Books(const std::filesystem::path& folder)
    : contacts(folder / "contacts.txt", "0001"), events(folder / "calendar.txt", "0002") {}

void Books::Reread() {
  contacts.Reread();
  events.Reread();
}

}  // namespace phonesim
