// The Edit menu and its keys on the real main window: what has the focus decides.

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTest>
#include <QTreeView>

#include "Program.h"
#include "core/PageTable.h"
#include "tests/support/TempFolder.h"
#include "ui/qt/QtWindowHost.h"
#include "ui/windows/Layouts.h"

namespace tessarin {
namespace {

class EditMenuTest : public testing::Test {
 protected:
  EditMenuTest() {
    program_.Start();
    session().Timer1.enabled = false;
    session().EnablePhoneControls(true);
    session().statusPhase = kPhonePresent;
    QApplication::clipboard()->clear();
  }
  ~EditMenuTest() override { session().Unload(); }

  TessarinMenu& session() { return program_.session(); }
  QWidget& Top() { return *host_.WidgetOf(session()); }
  template <class Widget>
  Widget& Get(const std::string& name) {
    return *Top().findChild<Widget*>(QString::fromStdString(name));
  }

  void Focus(const std::string& name) {
    QApplication::setActiveWindow(&Top());
    Get<QWidget>(name).setFocus();
    ASSERT_EQ(QApplication::focusWidget(), &Get<QWidget>(name)) << name;
  }

  // Two contacts in the phone's memory, both selected.
  void ShowContacts() {
    program_.phonebookLists().phoneContacts = std::make_unique<clsT610ContactList>();
    for (const char16_t* name : {u"Anna", u"Bert"}) {
      auto contact = std::make_shared<clsT610Contact>();
      contact->LetData(u"M000000000000", clsT610Contact::kMobileId);
      contact->LetData(name, clsT610Contact::kName);
      program_.phonebookLists().phoneContacts->Add(contact);
    }
    session().ShowPage(kPhonebookPanel);
    std::vector<ListRow> rows(2);
    rows[0].cells = {u"Anna", u"1"};
    rows[0].key = "1";
    rows[1].cells = {u"Bert", u"2"};
    rows[1].key = "2";
    session().lvwPhonePhonebook.Fill(rows);
    session().tvwPhonePhonebook.Add(u"", u"ME", u"Phone", "", "");
    Get<QTreeView>("lvwPhonePhonebook").selectAll();
    session().UpdateActions();
    session().commandState = job::kIdlePoll;
  }

  std::string EnabledEntries() {
    std::string enabled;
    for (const char* key : {"Cut", "Copy", "Paste", "Delete", "SelectAll"}) {
      if (Get<QAction>(key).isEnabled()) enabled += (enabled.empty() ? "" : " ") + std::string(key);
    }
    return enabled;
  }

  // Opened by the keyboard, which gives the menu bar the focus.
  void OpenByKeyboard() {
    auto& bar = *Top().findChild<QMenuBar*>();
    bar.setFocus(Qt::MenuBarFocusReason);
    bar.setActiveAction(&Get<QAction>("Edit"));
  }

  // Closing comes first, as with a click.
  void Choose(const char* key) {
    Get<QAction>("Edit").menu()->close();
    Get<QAction>(key).trigger();
  }

  TempFolder folder_;
  QtWindowHost host_{AllLayouts()};
  Program program_{
      host_,
      {folder_.Path(), TESSARIN_SHARE, folder_.Path() / "registry.ini", folder_.Path() / "dev"}};
};

TEST_F(EditMenuTest, TheDeleteKeyReachesContactsOnlyInTheirList) {
  ShowContacts();
  for (const char* elsewhere : {"tvwPhonePhonebook", "rtbPhonebook"}) {
    Focus(elsewhere);
    QTest::keyClick(&Get<QWidget>(elsewhere), Qt::Key_Delete);
    EXPECT_EQ(session().commandState, job::kIdlePoll) << elsewhere;
  }
  Focus("lvwPhonePhonebook");
  QTest::keyClick(&Get<QWidget>("lvwPhonePhonebook"), Qt::Key_Delete);
  EXPECT_EQ(session().commandState, job::kDeleteContacts);
}

TEST_F(EditMenuTest, ActsOnWhatHadTheFocusBeforeTheMenu) {
  ShowContacts();
  session().rtbPhonebook.text = u"Anna's details";
  const struct {
    const char* focus;
    const char* enabled;
    const char* key;
    const char* clipboard;
    std::int32_t job;
  } steps[] = {
      {"lvwPhonePhonebook", "Copy Delete SelectAll", "Copy", "Anna\t1\nBert\t2", job::kIdlePoll},
      {"rtbPhonebook", "SelectAll", "SelectAll", "Anna\t1\nBert\t2", job::kIdlePoll},
      {"rtbPhonebook", "Copy SelectAll", "Copy", "Anna's details", job::kIdlePoll},
      {"tvwPhonePhonebook", "", "Delete", "Anna's details", job::kIdlePoll},
      {"lvwPhonePhonebook", "Copy Delete SelectAll", "Delete", "Anna's details",
       job::kDeleteContacts},
  };
  for (const auto& step : steps) {
    SCOPED_TRACE(std::string(step.focus) + " " + step.key);
    Focus(step.focus);
    OpenByKeyboard();
    EXPECT_EQ(EnabledEntries(), step.enabled);
    Choose(step.key);
    EXPECT_EQ(EnabledEntries(), "Cut Copy Paste Delete SelectAll") << "for their keys";
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), step.clipboard);
    EXPECT_EQ(session().commandState, step.job);
  }
}

TEST_F(EditMenuTest, TextFieldsKnowEveryAct) {
  session().ShowPage(kCalendarPanel);
  session().Text1.enabled = true;
  session().Text1.text = u"2004";
  const struct {
    const char* enabled;
    const char* key;
    const char16_t* text;
  } steps[] = {{"SelectAll", "SelectAll", u"2004"},
               {"Cut Copy Delete SelectAll", "Cut", u""},
               {"Paste", "Paste", u"2004"},
               {"Paste SelectAll", "SelectAll", u"2004"},
               {"Cut Copy Paste Delete SelectAll", "Delete", u""}};
  Focus("Text1");
  for (const auto& step : steps) {
    OpenByKeyboard();
    EXPECT_EQ(EnabledEntries(), step.enabled) << step.key;
    Choose(step.key);
    Get<QWidget>("Text1").setFocus(Qt::MenuBarFocusReason);
    EXPECT_EQ(session().Text1.text(), step.text) << step.key;
  }
}

// In the order of the panels: every control in which Delete reaches the page.
TEST_F(EditMenuTest, WhereEachPageDeletes) {
  const std::string expected[] = {
      "lvwPhoneFile=Delete lvwPCFile=DeleteOnComputer",
      "lvwPhoneSMS=Delete",
      "lvwPCMMS=DeleteOnComputer",
      "lvwPhoneRingtone=Delete lvwPCRingtone=DeleteOnComputer",
      "lvwPhoneLogo=Delete lvwPCLogo=DeleteOnComputer",
      "lvwPhonePhoto=Delete lvwPCPhoto=DeleteOnComputer",
      "lvwPCMovie=DeleteOnComputer",
      "MSHFlexGrid1=Delete",
      "lvwPhonePhonebook=Delete",
  };
  session().frmAllEvent.visible = true;
  for (const SessionPart* part : session().parts()) {
    const auto* page = dynamic_cast<const Page*>(part);
    if (page == nullptr) continue;
    std::string found;
    for (const Control* control : session().controls()) {
      const auto deletion = page->DeletionIn(*control);
      if (deletion.empty()) continue;
      found += (found.empty() ? "" : " ") + control->name() + "=" + std::string(deletion);
    }
    EXPECT_EQ(found, expected[page->panel()]);
  }
}

}  // namespace
}  // namespace tessarin
