#pragma once

// What the six pages of files have in common is one class; what differs between them is here.

#include <array>

#include "core/TessarinMenu.h"

namespace tessarin {

struct FilePageRow {
  MediaKind kind;
  // The folder of the computer that the page opens on; null for the root of the file system.
  std::filesystem::path Session::*computerFolder;
  // Where the choice in the page's storage box goes; null where the phone is shown from its root.
  Text Session::*storageRoot;
  bool opensOnFirstStorage;  // whatever was chosen before
  // The folder that the page starts in: a word of its key, in lower case, or one for each storage,
  // divided by "|". Empty for none.
  const char16_t* startFolder;
  Timer TessarinMenu::*searchTimer;
  bool defers;    // a transfer waits for the next tick
  bool asks;      // before a file takes the place of another
  bool receives;  // from the phone; all pages send
  bool deletes;
  const char* tool;  // what New starts; null for the picture editor, empty for nothing
};

// In the order of TessarinMenu::filePanes().
extern const std::array<FilePageRow, 6> kFilePages;

}  // namespace tessarin
