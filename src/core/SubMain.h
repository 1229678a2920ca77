#pragma once

// The program's entry, once everything is made.

#include "core/TessarinMenu.h"

namespace tessarin {

// Reads the language choice, loads that language's texts, and shows the main window. Throws what a
// missing or short language file raises.
void SubMain(TessarinMenu& session, const regAPI& registry);

}  // namespace tessarin
