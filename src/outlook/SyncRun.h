#pragma once

// What both synchronisations share: the rows that take part, their count, and the way it is shown.

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "controls/Basics.h"
#include "controls/ListView.h"
#include "controls/WindowHost.h"
#include "core/Language.h"

namespace tessarin {

// A search that found nothing gives -1, which is 65535 in 16 bits; nothing above is a position.
inline bool IsPosition(int position) { return static_cast<unsigned>(position) < 65535U; }

// What became of the rows of a pass, counted on the side that they go to.
struct SyncCount {
  int added = 0;
  int updated = 0;
  int leftAlone = 0;
  int failed = 0;
};

// "Phone: 1 added, 2 updated, 3 left alone, 0 failed".
Text SummaryOf(const Language& language, const Text& side, const SyncCount& count);

// The keys of the rows that take part in a pass: all in a two-way run, else the selected ones. With
// none selected, an error says so.
std::vector<std::string> RowsToSync(const ListView& pane, bool twoWay, WindowHost& host,
                                    const Language& language);

// A bar and a line of text in the dialog that move from row to row.
class SyncProgress {
 public:
  // All must outlive this object.
  SyncProgress(Window& dialog, ProgressBar& bar, Label& label, const Language& language)
      : dialog_(dialog), bar_(bar), label_(label), language_(language) {}

  void Begin();
  // `row` counts from 1.
  void Row(int row, int rows);
  void End();

 private:
  Window& dialog_;
  ProgressBar& bar_;
  Label& label_;
  const Language& language_;
  std::chrono::steady_clock::time_point painted_;
};

// What both engines are.
class SyncEngine {
 public:
  // Whether all rows take part, and the later of two records wins; else the selected rows do, and
  // the user is asked.
  bool twoWay = false;

  // What became of the rows of the last pass, also of one that a fault ended.
  const SyncCount& count() const { return count_; }

 protected:
  SyncEngine(WindowHost& host, const Language& language, SyncProgress& progress)
      : host_(host), language_(language), progress_(progress) {}

  // Counts anew and calls `each` with the key of every row that takes part, while the progress
  // moves along. A row with a time that does not read counts as failed, and the others have their
  // turn; further faults rise.
  void Walk(const ListView& pane, const std::function<void(const std::string& key)>& each);

  WindowHost& host_;
  const Language& language_;
  SyncCount count_;

 private:
  SyncProgress& progress_;
};

}  // namespace tessarin
