#include "outlook/SyncDialog.h"

#include "codecs/Faults.h"
#include "controls/WindowHost.h"
#include "core/TextIndex.h"
#include "files/ListSort.h"

namespace tessarin {

namespace words = text::interface_;

SyncDialog::SyncDialog(TessarinMenu& session, frmSplashTransmission& busyWindow, std::string name,
                       const Kind& kind)
    : Window(session.host(), std::move(name)), session_(session), kind_(kind) {
  session_.jobs().Set(kind_.job, [this, &busyWindow] {
    if (MayRun()) {
      busyWindow.PhoneToPc(kind_.worker, Word(kind_.busyText));
      busyWindow.Work();
    }
    session_.SetCommandIdle();
  });
  busyWindow.workers().Set(kind_.worker, [this] { Run(); });
  for (int pane = 0; pane < 2; ++pane) {
    const auto at = static_cast<std::size_t>(pane);
    lvwLocation[at].multipleSelection = true;
    lvwLocation[at].columnClicked.Always([this, pane](int column) { ColumnClicked(pane, column); });
    chkLocation[at].clicked.Always([this, at] {
      for (int row = 0; row < lvwLocation[at].Count(); ++row) {
        lvwLocation[at].SetSelected(row, chkLocation[at].checked);
      }
      lvwLocation[at].SetFocus();
    });
  }
  cmdToLeft.clicked.Always([this] { StartOneWay(true); });
  cmdToRight.clicked.Always([this] { StartOneWay(false); });
  cmdSync.clicked.Always([this] { AskAndSync(); });
  cmdCancel.clicked.Always([this] {
    cmdCancel.enabled = false;
    Unload();
  });
}

void SyncDialog::ApplySyncWords() {
  for (CheckBox& box : chkLocation) box.caption = Word(kind_.selectAll);
  cmdSync.caption = Word(kind_.run);
  cmdSync.image = "sync";
  cmdCancel.caption = Word(kind_.cancel);
  const struct {
    Button& button;
    const char* image;
    int words;
  } arrows[] = {{cmdToLeft, "back", words::kSyncToLeft}, {cmdToRight, "next", words::kSyncToRight}};
  for (const auto& arrow : arrows) {
    arrow.button.image = arrow.image;
    arrow.button.toolTip = Word(arrow.words);
    arrow.button.accessibleName = Word(arrow.words);
  }
  prgRows.accessibleName = Word(words::kNameProgress);
  lblRow.accessibleName = Word(words::kNameProgress);
  lvwLocation[0].accessibleName = Word(words::kNameLeftRows);
  lvwLocation[1].accessibleName = Word(words::kNameRightRows);
}

void SyncDialog::EnableCommands(bool enabled) {
  for (Button* button : {&cmdToLeft, &cmdToRight, &cmdSync}) button->enabled = enabled;
}

void SyncDialog::EnableTickBoxes(bool enabled) {
  for (CheckBox& box : chkLocation) box.enabled = enabled;
}

void SyncDialog::ClearResults() {
  for (Label& result : lblResult) {
    result.text = u"";
    result.accessibleName = Word(words::kNameSyncResult);
  }
}

bool SyncDialog::RunPass(int pane, const Text& side, const std::function<void()>& pass,
                         const SyncCount& count) {
  try {
    pass();
  } catch (const Fault& fault) {
    SyncCount told = count;
    ++told.failed;  // the row that it was at
    ShowResult(pane, side, told);
    const Text& message = session_.language().getTSErrStr(text::error::kSyncStopped);
    host().MessageBox(FillPlaceholders(message, {fault.Message()}), MessageKind::Error);
    return false;
  }
  ShowResult(pane, side, count);
  return true;
}

void SyncDialog::ShowResult(int pane, const Text& side, const SyncCount& count) {
  Label& result = lblResult[static_cast<std::size_t>(pane)];
  result.text = SummaryOf(session_.language(), side, count);
  result.accessibleName = result.text();
}

void SyncDialog::FillPane(int pane, std::vector<ListRow> rows) {
  chkLocation[static_cast<std::size_t>(pane)].checked = false;
  Pane(pane).sortColumn = -1;
  Pane(pane).Fill(std::move(rows));
}

void SyncDialog::SortPane(int pane, int column, bool byDate) {
  ListView& list = Pane(pane);
  if (byDate) {
    sortListByDate(list, column);
    return;
  }
  list.sortAscending = list.sortColumn != column || !list.sortAscending;
  list.sortColumn = column;
  SortListByText(list);
}

void SyncDialog::ForgetRun() {
  if (session_.commandState == kind_.job) session_.SetCommandIdle();
}

// What the buttons ask for is done by the next tick.
void SyncDialog::AskAndSync() {
  if (!AskTwoWay()) return;
  SetTwoWay(true);
  session_.commandState = kind_.job;
}

void SyncDialog::StartOneWay(bool toLeft) {
  toLeft_ = toLeft;
  SetTwoWay(false);
  session_.commandState = kind_.job;
}

}  // namespace tessarin
