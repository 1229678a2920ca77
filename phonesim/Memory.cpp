#include "phonesim/Memory.h"

namespace phonesim {

Books::Books(const std::filesystem::path& folder)
    : contacts(folder / "contacts.txt", "0001"),
      events(folder / "calendar.txt", "0002"),
      sim(folder / "sim.txt"),
      messages(folder / "messages.txt") {}

void Books::Reread() {
  contacts.Reread();
  events.Reread();
  sim.Reread();
  messages.Reread();
}

}  // namespace phonesim
