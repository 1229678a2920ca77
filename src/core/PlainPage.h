#pragma once

// A page that shows its place and what it is for, and can do nothing yet.

#include "core/Page.h"
#include "core/TessarinMenu.h"

namespace tessarin {

class PlainPage : public Page {
 public:
  PlainPage(TessarinMenu& session, int panel) : panel_(panel) {
    session.ToolFrame[static_cast<std::size_t>(panel)]->enabled = false;
  }
  int panel() const override { return panel_; }

 private:
  int panel_;
};

}  // namespace tessarin
