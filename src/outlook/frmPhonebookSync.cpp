#include "outlook/frmPhonebookSync.h"

#include "core/TextIndex.h"
#include "outlook/ContactRows.h"

namespace tessarin {

namespace {

namespace words = text::interface_;

constexpr char16_t kTessarinName[] = u"Tessarin";

// The columns, counted from 0, whose heads sort by date. E-mail addresses stand there, which are
// none, so a click on these heads keeps the order of the rows; users of this window know it so.
constexpr int kDateColumnOfLists = 9;
constexpr int kDateColumnOfOutlook = 8;

}  // namespace

frmPhonebookSync::frmPhonebookSync(Needs needs)
    : SyncDialog(
          needs.session, needs.busyWindow, "frmPhonebookSync",
          {job::kContactSync, worker::kContactSync, words::kWorkContactSync,
           words::kPhonebookSyncSelectAll, words::kPhonebookSyncRun, words::kPhonebookSyncCancel}),
      needs_(std::move(needs)),
      engine_({session_.host(), session_.language(), progress_, needs_.writeToPhone,
               [this](const Text& replaced, const Text& replacing) {
                 AskOverwrite(replaced, replacing);
               }}),
      overwrite_(session_.host(), session_.language(), engine_.overwriteDecision) {
  MenuEntry bookMenu, edit, remove;
  bookMenu.key = "mnuRClickTSC";
  bookMenu.visible = false;
  edit.key = "mnuEditRecord";
  edit.image = "edit";
  remove.key = "mnuDeleteRecord";
  remove.image = "delete";
  bookMenu.entries = {edit, remove};
  mnuRClick.Define({bookMenu});
  ConnectControls();
}

void frmPhonebookSync::ConnectControls() {
  for (int pane = 0; pane < 2; ++pane) {
    const auto at = static_cast<std::size_t>(pane);
    cboLocation[at].clicked.Always([this, pane] { PlaceChosen(pane); });
    lvwLocation[at].selectionChanged.Always([this, pane] { EnableBookActions(pane); });
    lvwLocation[at].contextMenuRequested.Always([this, pane] {
      EnableBookActions(pane);
      if (PlaceOf(pane) == kTessarin) mnuRClick.PopUp("mnuRClickTSC");
    });
  }
  Toolbar1.clicked.Always([this](const std::string& key) { ToolbarClicked(key); });
  mnuRClick.clicked.Always([this](const std::string& key) { ToolbarClicked(key); });
}

void frmPhonebookSync::FormLoad() {
  syncDialogOpen_ = true;
  ApplyWords();
  cboLocation[0].Clear();
  for (const Text& name : locationNames_) cboLocation[0].Add(name);
  cboLocation[1].Clear();
  cboLocation[1].enabled = false;
  for (ListView& pane : lvwLocation) {
    pane.Clear();
    pane.columns = std::vector<ListColumn>();
  }
  EnablePlaces(false);
  cmdCancel.enabled = true;
  progress_.End();
  ClearResults();
  engine_.overwriteDecision = overwrite::kNo;
  outlookContacts_ = std::make_unique<clsOutContactList>(
      OutlookNeeds{needs_.automation, session_.host(), session_.language()});
  outlookContacts_->LoadOutlookContact();
}

void frmPhonebookSync::FormUnload() {
  syncDialogOpen_ = false;
  ForgetRun();
  needs_.lists.SavePhoneContacts();
  outlookContacts_.reset();
  session_.Refresh();
  needs_.closed();
}

void frmPhonebookSync::ApplyWords() {
  caption = Word(words::kPhonebookSyncTitle);
  locationNames_ = {Word(words::kPlacePhone), kTessarinName, Word(words::kPlaceOutlook)};
  ApplySyncWords();
  const struct {
    const char *key, *image;
    int words;
  } buttons[] = {{"sync", "sync", words::kPhonebookSyncRun},
                 {"edit", "edit", words::kSyncEditTip},
                 {"delete", "delete", words::kSyncDeleteTip}};
  Toolbar1.Clear();
  for (const auto& button : buttons) {
    ToolbarButton made;
    made.key = button.key;
    made.image = button.image;
    made.caption = made.toolTip = Word(button.words);
    Toolbar1.Add(std::move(made));
  }
  mnuRClick.SetCaption("mnuEditRecord", Word(words::kMenuEdit));
  mnuRClick.SetCaption("mnuDeleteRecord", Word(words::kMenuDelete));
  Toolbar1.accessibleName = Word(words::kNameSyncActions);
  mnuRClick.accessibleName = Word(words::kNameSyncActions);
  cboLocation[0].accessibleName = Word(words::kNameLeftPlace);
  cboLocation[1].accessibleName = Word(words::kNameRightPlace);
}

frmPhonebookSync::Place frmPhonebookSync::PlaceOf(int pane) const {
  const Text name = cboLocation[static_cast<std::size_t>(pane)].SelectedText();
  for (const Place place : {kPhone, kTessarin, kOutlook}) {
    if (name == locationNames_[place]) return place;
  }
  return kNoPlace;
}

clsT610ContactList& frmPhonebookSync::ListAt(Place place) const {
  return place == kPhone ? *needs_.lists.phoneContacts : *needs_.lists.tscContacts;
}

// A place that is not read, or not whole, seems to lack what it has, and all of that would be
// added.
bool frmPhonebookSync::MayRun() const {
  return syncDialogOpen_ && PlaceOf(0) != kNoPlace && PlaceOf(1) != kNoPlace && !LacksPhone() &&
         !LacksOutlook();
}

void frmPhonebookSync::EnablePlaces(bool enabled) {
  lblChoose.text = LacksPhone()     ? Word(words::kSyncReadPhone)
                   : LacksOutlook() ? session_.language().getTSErrStr(text::error::kLoadOutlook)
                                    : Word(words::kSyncChoose);
  EnableCommands(enabled && MayRun());
  EnableTickBoxes(enabled);
  Toolbar1.enabled = enabled;
  Toolbar1.Enable("sync", enabled && MayRun());
  for (const char* key : {"edit", "delete"}) Toolbar1.Enable(key, false);
}

void frmPhonebookSync::FillRightPlaces() {
  cboLocation[1].Clear();
  for (const Text& name : locationNames_) {
    if (name != cboLocation[0].SelectedText()) cboLocation[1].Add(name);
  }
  cboLocation[1].enabled = true;
  lvwLocation[1].Clear();
}

void frmPhonebookSync::PlaceChosen(int pane) {
  if (pane == 0) FillRightPlaces();
  EnablePlaces(pane == 1);
  ClearResults();
  Fill(pane);
}

void frmPhonebookSync::Fill(int pane) {
  const Place place = PlaceOf(pane);
  if (place == kNoPlace || needs_.lists.phoneContacts == nullptr) {
    FillPane(pane, {});
    return;
  }
  Pane(pane).columns = ContactColumns(session_.language(), place == kPhone, place == kOutlook);
  FillPane(pane, place == kOutlook ? OutlookRows(*outlookContacts_)
                                   : ContactRows(ListAt(place), session_.language()));
}

void frmPhonebookSync::PhoneLost() {
  if (syncDialogOpen_) EnablePlaces(false);
}

bool frmPhonebookSync::LoadWhileConnecting(bar&) {
  ShowPlacesAgain();
  return true;
}

void frmPhonebookSync::ShowPlacesAgain() {
  if (!syncDialogOpen_) return;
  for (int pane = 0; pane < 2; ++pane) Fill(pane);
  EnablePlaces(PlaceOf(1) != kNoPlace);
}

void frmPhonebookSync::EnableBookActions(int pane) {
  activePane_ = pane;
  for (const char* key : {"edit", "delete"}) Toolbar1.Enable(key, PlaceOf(pane) == kTessarin);
}

void frmPhonebookSync::ColumnClicked(int pane, int column) {
  const int dates = PlaceOf(pane) == kOutlook ? kDateColumnOfOutlook : kDateColumnOfLists;
  SortPane(pane, column, column == dates);
}

bool frmPhonebookSync::AskTwoWay() {
  const int prompt =
      TakesPart(kOutlook) ? text::prompt::kSyncWithOutlook : text::prompt::kSyncWithLocalBook;
  return session_.host().MessageBox(session_.language().getTSPromptStr(prompt),
                                    MessageKind::Question, MessageButtons::OkCancel) == Answer::Ok;
}

void frmPhonebookSync::PhonebookSync() {
  cmdCancel.enabled = false;
  EnablePlaces(false);
  ClearResults();
  progress_.Begin();
  if (engine_.twoWay) {
    if (SyncOneWay(0, 1)) SyncOneWay(1, 0);
  } else if (toLeft()) {
    SyncOneWay(1, 0);
  } else {
    SyncOneWay(0, 1);
  }
  progress_.End();
  SaveLists();
  EnablePlaces(true);
  EnableBookActions(activePane_);
  cmdCancel.enabled = true;
  cmdCancel.caption = Word(words::kBack);
  engine_.overwriteDecision = overwrite::kNo;
}

// The links that a run made are nowhere else: lost, all that it added would be added once more.
void frmPhonebookSync::SaveLists() {
  needs_.lists.SavePhoneContacts();
  needs_.lists.SaveBook();
}

// Both panes are filled anew, so that the next pass sees what this one added.
bool frmPhonebookSync::SyncOneWay(int sourcePane, int destinationPane) {
  const Text side = cboLocation[static_cast<std::size_t>(destinationPane)].SelectedText();
  const bool finished = RunPass(
      destinationPane, side,
      [&] { RunEngine(PlaceOf(sourcePane), PlaceOf(destinationPane), Pane(sourcePane)); },
      engine_.count());
  for (int pane = 0; pane < 2; ++pane) Fill(pane);
  return finished;
}

void frmPhonebookSync::RunEngine(Place source, Place destination, const ListView& pane) {
  if (destination == kOutlook) {
    engine_.SyncListToOutlook(ListAt(source), *outlookContacts_, pane);
  } else if (source == kOutlook) {
    engine_.SyncOutlookToList(*outlookContacts_, ListAt(destination), pane);
  } else {
    engine_.SyncListToList(ListAt(source), ListAt(destination), pane);
  }
}

void frmPhonebookSync::AskOverwrite(const Text& replaced, const Text& replacing) {
  overwrite_.lblOverwrite[1].text = replaced;
  overwrite_.lblOverwrite[0].text = replacing;
  overwrite_.Show(Modality::Modal);
  engine_.addAsNew = overwrite_.addAsNew();
}

void frmPhonebookSync::ToolbarClicked(const std::string& key) {
  if (key == "sync") AskAndSync();
  if (key == "edit" || key == "mnuEditRecord") mnuEditRecord();
  if (key == "delete" || key == "mnuDeleteRecord") mnuDeleteRecord();
}

void frmPhonebookSync::mnuEditRecord() {
  if (PlaceOf(activePane_) != kTessarin) return;
  for (const ListRow& row : Pane(activePane_).rows()) {
    if (!row.selected) continue;
    const int position = PositionInKey(row.key);
    if (!IsPosition(position)) return;
    needs_.editRecord(position);
    Fill(activePane_);
    return;
  }
}

// From the last row to the first, so that a removal moves no row that is still to come.
void frmPhonebookSync::mnuDeleteRecord() {
  if (PlaceOf(activePane_) != kTessarin) return;
  const ListView& pane = Pane(activePane_);
  for (int row = pane.Count() - 1; row >= 0; --row) {
    if (pane.Row(row).selected) DeleteRow(pane.Row(row));
  }
  Fill(activePane_);
}

// A contact without an identity of the phone's is not found by it, and stays.
void frmPhonebookSync::DeleteRow(const ListRow& row) {
  const Text mobileId = MobileIdInKey(row.key);
  if (mobileId.empty()) return;
  const int position = ListAt(kTessarin).FindExistingMobileID(mobileId);
  if (!IsPosition(position)) return;
  const Text question = Replace(
      session_.language().getTSPromptStr(text::prompt::kDeleteLocalContact), u"###", row.cells[1]);
  const auto answer =
      session_.host().MessageBox(question, MessageKind::Question, MessageButtons::OkCancel);
  if (answer == Answer::Ok) ListAt(kTessarin).Remove(position);
}

}  // namespace tessarin
