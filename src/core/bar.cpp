#include "core/bar.h"

#include "core/TextIndex.h"

namespace tessarin {

namespace words = text::interface_;

bar::bar(WindowHost& host, const Language& language) : Window(host, "bar"), language_(language) {
  simBar.maximum = kSimLength;
  phoneBar.maximum = kPhoneLength;
}

void bar::FormLoad() {
  Label1.text = language_.getTSInterfaceStr(words::kSim);
  Label2.text = language_.getTSInterfaceStr(words::kPhoneMemory);
  Label3.text = language_.getTSInterfaceStr(words::kReadingPhonebook);
  caption = Label3.text();
  simBar.accessibleName = Label1.text();
  phoneBar.accessibleName = Label2.text();
  simBar.value = 0;
  phoneBar.value = 0;
}

}  // namespace tessarin
