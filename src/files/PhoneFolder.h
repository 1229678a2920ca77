#pragma once

// A folder of the phone's, and the rows that its files are.

#include <functional>
#include <string>

#include "controls/ListView.h"
#include "core/PhoneLink.h"

namespace tessarin {

// Runs `work` over a folder-browsing session of its own that stands in the folder with that key (a
// path from the phone's root; empty for the root itself). An earlier session is ended first, this
// one in any case. False when a step fails or `work` does.
bool InPhoneFolder(const PhoneLink& link, TextView key,
                   const std::function<bool(const std::string& connectionId)>& work);

// A file's name as a row of a phone list: cell 0 the name without its last extension, cell 1 the
// size in bytes, cell 2 the extension without its point.
ListRow PhoneFileRow(const Text& name, const Text& size);

// The whole name of such a row. A name that ends in a point loses it.
Text WholeName(const ListRow& row);

}  // namespace tessarin
