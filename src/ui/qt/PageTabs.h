#pragma once

namespace tessarin {

// From here on a screen reader meets every tool button that stays pressed as a tab that is chosen.
// By itself Qt calls it a check box and only moves its tick, so the click would never come.
void TellOfPageTabs();

}  // namespace tessarin
