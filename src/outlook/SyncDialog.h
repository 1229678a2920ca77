#pragma once

// What both synchronisation windows have: two panes with their tick boxes, the commands between
// them, and what is told of a run.

#include <array>
#include <functional>

#include "controls/Basics.h"
#include "controls/ListView.h"
#include "controls/Window.h"
#include "core/TessarinMenu.h"
#include "files/frmSplashTransmission.h"
#include "outlook/SyncRun.h"

namespace tessarin {

namespace worker {
inline constexpr std::int16_t kContactSync = 8;
inline constexpr std::int16_t kCalendarSync = 9;
}  // namespace worker

class SyncDialog : public Window {
 public:
  std::array<ListView, 2> lvwLocation{{{*this, "lvwLocation(0)"}, {*this, "lvwLocation(1)"}}};
  std::array<CheckBox, 2> chkLocation{{{*this, "chkLocation(0)"}, {*this, "chkLocation(1)"}}};
  Button cmdToLeft{*this, "cmdToLeft"};
  Button cmdToRight{*this, "cmdToRight"};
  Button cmdSync{*this, "cmdSync"};
  Button cmdCancel{*this, "cmdCancel"};
  // During a run the row that it is at, after it what became of the rows on each side.
  ProgressBar prgRows{*this, "prgRows"};
  Label lblRow{*this, "lblRow"};
  std::array<Label, 2> lblResult{{{*this, "lblResult(0)"}, {*this, "lblResult(1)"}}};

  // Shows the window modally.
  void Open() { Show(Modality::Modal); }

 protected:
  // What sets one synchronisation apart from the other.
  struct Kind {
    std::int32_t job;            // the run's code of `commandState`
    std::int16_t worker;         // and of the busy window
    int busyText;                // what that says, an interface text
    int selectAll, run, cancel;  // captions
  };
  SyncDialog(TessarinMenu& session, frmSplashTransmission& busyWindow, std::string name,
             const Kind& kind);

  // Whether a run makes sense now: the window is open, and what its panes show is whole.
  virtual bool MayRun() const = 0;
  // The run, inside the busy window.
  virtual void Run() = 0;
  // Whether the user wants the two-way run.
  virtual bool AskTwoWay() = 0;
  virtual void SetTwoWay(bool twoWay) = 0;
  virtual void ColumnClicked(int pane, int column) = 0;

  void ApplySyncWords();
  void EnableCommands(bool enabled);
  void EnableTickBoxes(bool enabled);
  void ClearResults();
  // Runs a pass to the side of that pane and shows what became of the rows, which `count` tells
  // then. A fault ends the pass and is told; false: the run ends with it. What was done stays.
  bool RunPass(int pane, const Text& side, const std::function<void()>& pass,
               const SyncCount& count);
  // Puts other rows into a pane; none is selected then.
  void FillPane(int pane, std::vector<ListRow> rows);
  // A click on a column's head sorts by it, a second one the other way round.
  void SortPane(int pane, int column, bool byDate);
  void AskAndSync();
  // A run that was asked for and has not begun is none any more.
  void ForgetRun();
  bool toLeft() const { return toLeft_; }
  ListView& Pane(int pane) { return lvwLocation[static_cast<std::size_t>(pane)]; }
  Text Word(int index) const { return session_.language().getTSInterfaceStr(index); }

  TessarinMenu& session_;
  SyncProgress progress_{*this, prgRows, lblRow, session_.language()};

 private:
  void ShowResult(int pane, const Text& side, const SyncCount& count);
  void StartOneWay(bool toLeft);

  Kind kind_;
  bool toLeft_ = false;
};

}  // namespace tessarin
