#pragma once

// What the engines' tests stand on: a scripted Outlook, a host, the words, and a pane.

#include <gtest/gtest.h>

#include "codecs/modFile.h"
#include "core/Language.h"
#include "outlook/SyncRun.h"
#include "tests/outlook/ScriptedOutlook.h"
#include "tests/support/ScriptedHost.h"
#include "tests/support/TempFolder.h"

namespace tessarin {

// Added, updated, left alone, failed.
inline std::string Told(const SyncCount& count) {
  return std::to_string(count.added) + " " + std::to_string(count.updated) + " " +
         std::to_string(count.leftAlone) + " " + std::to_string(count.failed);
}

class SyncBench : public testing::Test {
 protected:
  SyncBench() { language.readLangFile(0); }

  // The pane's rows, of which those in `selected` are selected.
  void Show(std::vector<ListRow> rows) {
    pane.Fill(std::move(rows));
    for (const int row : selected) pane.SetSelected(row, true);
  }

  TempFolder folder;
  ScriptedHost host;
  modFile files{folder.Path() / "app", TESSARIN_SHARE};
  Language language{files};
  ScriptedOutlook outlook;
  Window window{host, "window"};
  ProgressBar bar{window, "bar"};
  Label label{window, "label"};
  ListView pane{window, "pane"};
  SyncProgress progress{window, bar, label, language};
  std::vector<int> selected;
};

}  // namespace tessarin
