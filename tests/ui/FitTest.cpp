// No window cuts a text off, in any language, and none keeps a control from a screen reader: every
// word is measured on the real widgets, and every widget asked for its name.

#include <gtest/gtest.h>
#include <stdlib.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QStyleOptionComboBox>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>
#include <filesystem>

#include "Program.h"
#include "core/Asking.h"
#include "core/PageTable.h"
#include "core/TextIndex.h"
#include "core/bar.h"
#include "core/frmAbout.h"
#include "core/frmPhoneInfo.h"
#include "files/frmOverwrite.h"
#include "messages/frmAddTextTemplate.h"
#include "phonebook/frmAddGroup.h"
#include "ui/qt/Convert.h"
#include "ui/qt/QtWindowHost.h"
#include "ui/windows/Layouts.h"

namespace tessarin {
namespace {

class FitTest : public testing::TestWithParam<int> {
 protected:
  FitTest() {
    std::string pattern = std::filesystem::temp_directory_path() / "tessarin-ui-XXXXXX";
    folder_ = mkdtemp(pattern.data());
    program_ = std::make_unique<Program>(
        host_, ProgramFolders{folder_, TESSARIN_SHARE, folder_ / "registry.ini", folder_ / "dev"});
    program_->Start();
    session().Timer1.enabled = false;
    session().ChangeLanguage(GetParam());
  }
  ~FitTest() override {
    session().Unload();
    program_.reset();
    std::filesystem::remove_all(folder_);
  }

  TessarinMenu& session() { return program_->session(); }

  void ConnectPhone() {
    session().phoneModel = u"Z1010";
    session().connectedPort = 255;
    session().statusPhase = kPhonePresent;
    session().phoneWasSeen = true;
    session().storageNames = {u"Phone", u"Card"};
    session().RebuildToolbars();
    session().EnablePhoneControls(true);
    session().UpdateStatusTexts(kPhonePresent);
    session().StatusBar1.SetText(panel::kBattery, u"100%");
  }

  // Lays the window out at `size`, or as small as it goes, and measures every word in it.
  void ExpectWordsFit(const Window& window, QSize size = {0, 0}) {
    QWidget* top = host_.WidgetOf(window);
    ASSERT_NE(top, nullptr) << window.name();
    top->resize(size.isEmpty() ? top->minimumSizeHint() : size);
    QApplication::processEvents();
    ExpectWordsFit(*top);
    for (QWidget* widget : top->findChildren<QWidget*>()) ExpectNamed(*widget);
  }

  static void ExpectWordsFit(const QWidget& top) {
    for (QWidget* widget : top.findChildren<QWidget*>()) {
      if (!widget->isVisible()) continue;
      if (const auto* label = qobject_cast<QLabel*>(widget)) ExpectLabelFits(*label);
      if (const auto* button = qobject_cast<QAbstractButton*>(widget)) ExpectButtonFits(*button);
      if (const auto* header = qobject_cast<QHeaderView*>(widget)) ExpectHeadsFit(*header);
      if (const auto* combo = qobject_cast<QComboBox*>(widget)) ExpectChoicesFit(*combo);
    }
  }

  QtWindowHost host_{AllLayouts()};
  std::unique_ptr<Program> program_;

 private:
  static std::string Where(const QWidget& widget, const QString& words) {
    return widget.window()->objectName().toStdString() + "." + widget.objectName().toStdString() +
           ": " + words.toStdString();
  }

  // Qt's own parts of a widget, such as its scroll bars, have no name or one that begins with
  // "qt_".
  static void ExpectNamed(QWidget& widget) {
    const bool isControl =
        !widget.objectName().isEmpty() && !widget.objectName().startsWith(QStringLiteral("qt_"));
    if (!isControl && qobject_cast<QSplitter*>(&widget) == nullptr) return;
    auto* told = QAccessible::queryAccessibleInterface(&widget);
    ASSERT_NE(told, nullptr) << Where(widget, {});
    const auto kind =
        told->role() == QAccessible::ComboBox ? QAccessible::Description : QAccessible::Name;
    EXPECT_FALSE(told->text(kind).isEmpty()) << Where(widget, {});
  }

  static void ExpectLabelFits(const QLabel& label) {
    if (label.text().isEmpty()) return;
    const QRect room = label.contentsRect();
    const QRect needed = label.fontMetrics().boundingRect(
        QRect(0, 0, room.width(), 0), label.wordWrap() ? Qt::TextWordWrap : 0, label.text());
    EXPECT_LE(needed.width(), room.width()) << Where(label, label.text());
    EXPECT_LE(needed.height(), room.height() + 1) << Where(label, label.text());
  }

  static void ExpectButtonFits(const QAbstractButton& button) {
    if (button.text().isEmpty()) {
      EXPECT_FALSE(button.objectName().endsWith(QStringLiteral("_ext_button")))
          << button.objectName().toStdString() << ": the bar is too narrow for what it holds in "
          << button.window()->windowTitle().toStdString();
      return;
    }
    EXPECT_LE(button.sizeHint().width(), button.width()) << Where(button, button.text());
  }

  static void ExpectChoicesFit(const QComboBox& combo) {
    QStyleOptionComboBox option;
    option.initFrom(&combo);
    const int room =
        combo.style()
            ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &combo)
            .width();
    for (int index = 0; index < combo.count(); ++index) {
      const QString words = combo.itemText(index);
      EXPECT_LE(combo.fontMetrics().horizontalAdvance(words), room) << Where(combo, words);
    }
  }

  static void ExpectHeadsFit(const QHeaderView& header) {
    for (int section = 0; section < header.count() && header.isVisible(); ++section) {
      if (header.isSectionHidden(section)) continue;
      const QString words =
          header.model()->headerData(section, header.orientation(), Qt::DisplayRole).toString();
      EXPECT_LE(header.sectionSizeHint(section), header.sectionSize(section))
          << Where(header, words);
    }
  }

  std::filesystem::path folder_;
};

TEST_P(FitTest, MainWindowWithAndWithoutAPhone) {
  for (const QSize size : {QSize(800, 560), QSize(1000, 680)}) {
    session().ShowStartPanel();
    ExpectWordsFit(session(), size);
  }
  ConnectPhone();
  for (int panel = 0; panel <= kStartPanel; ++panel) {
    if (panel == kStartPanel) {
      session().ShowStartPanel();
    } else {
      session().ShowPage(panel);
    }
    for (const QSize size : {QSize(800, 560), QSize(1000, 680)}) ExpectWordsFit(session(), size);
  }
}

TEST_P(FitTest, CalendarViews) {
  CalendarRecord record;
  record.StartTime = u"31/12/2004 10:00:00";
  record.Summary = u"Meeting";
  record.EntryType = u"EVENT";
  const std::vector<CalendarRecord> records = {record};
  CalendarNavigator navigator(session(), [] {});
  CalendarViews views(session(), navigator);
  views.Take(records);
  navigator.Choose(modDate::PackDate(2004, 12, 31));
  ConnectPhone();
  session().ShowPage(kCalendarPanel);
  for (const int view : {0, 1, 2}) {
    session().ViewMode.Select(view);
    views.ShowView();
    for (const QSize size : {QSize(800, 560), QSize(1000, 680)}) ExpectWordsFit(session(), size);
  }
}

TEST_P(FitTest, SearchWindowWithEverySentence) {
  auto& splash = program_->supervisor().splash();
  splash.Show(Modality::Modeless);
  splash.Trying(160, "/dev/ttyACM31");
  using Kind = PortTrouble::Kind;
  const PortTrouble troubles[] = {{Kind::NoPermission, "/dev/ttyACM0", "dialout"},
                                  {Kind::NoPermission, "/dev/ttyACM1", ""},
                                  {Kind::Busy, "/dev/ttyUSB0", ""},
                                  {Kind::InputOutput, "/dev/ttyUSB1", ""},
                                  {Kind::Silent, "/dev/rfcomm0", ""}};
  for (int port = 3; const PortTrouble& trouble : troubles) splash.PassedOver(port++, trouble);
  ExpectWordsFit(splash);
}

// Every prompt and every error in a box with the buttons that it may have, its values filled in.
TEST_P(FitTest, MessageBoxes) {
  const Text name = u"The long way home from the summer house, second part.mid";
  QTimer measuring;
  const auto measure = [] {
    auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    ExpectWordsFit(*box);
    EXPECT_LE(box->width(), box->screen()->availableGeometry().width());
    box->reject();
  };
  QObject::connect(&measuring, &QTimer::timeout, measure);
  measuring.start(0);
  const Language& language = session().language();
  const auto show = [&](const Text& text, MessageKind kind, MessageButtons buttons) {
    if (text.empty()) return;
    host_.MessageBox(FillPlaceholders(text, {name, name, name, name}), kind, buttons);
  };
  for (const int index : {text::prompt::kDeleteFile, text::prompt::kDeleteMessages,
                          text::prompt::kSyncWithOutlook, text::prompt::kReplaceEvent,
                          text::prompt::kReplaceFile, text::prompt::kDeleteComputerFiles}) {
    for (const auto buttons : {MessageButtons::OkCancel, MessageButtons::YesNo}) {
      show(language.getTSPromptStr(index), MessageKind::Question, buttons);
    }
  }
  for (int index = 0; index <= text::error::kListingDamaged; ++index) {
    show(language.getTSErrStr(index), MessageKind::Error, MessageButtons::Ok);
  }
}

// Qt speaks only some of the languages.
TEST_P(FitTest, TheFileDialogSpeaksTheLanguage) {
  const Language& language = session().language();
  QApplication::processEvents();  // Qt tells its own parts of the new language later
  QTimer::singleShot(0, &host_, [&language] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    QApplication::processEvents();
    ExpectWordsFit(*dialog);
    namespace words = text::interface_;
    QStringList expected, seen;
    for (const int index : {words::kDialogFolder, words::kDialogFileName, words::kDialogFileType,
                            words::kDialogSave, words::kButtonCancel}) {
      expected << ToQt(language.getTSInterfaceStr(index));
    }
    for (const char* name : {"lookInLabel", "fileNameLabel", "fileTypeLabel"}) {
      seen << dialog->findChild<QLabel*>(QLatin1String(name))->text();
    }
    auto* buttons = dialog->findChild<QDialogButtonBox*>();
    for (const auto button : {QDialogButtonBox::Save, QDialogButtonBox::Cancel}) {
      seen << buttons->button(button)->text();
    }
    EXPECT_EQ(seen, expected);
    dialog->reject();
  });
  host_.AskSaveFile({u"Title", u"Rich Text", "rtf", std::filesystem::temp_directory_path(), u""});
}

TEST_P(FitTest, Help) {
  program_->help().Open(kStartPanel);
  ExpectWordsFit(program_->help());
  program_->help().txtSearch.text = u"Tessarin";
  program_->help().cmdSearch.clicked();
  ExpectWordsFit(program_->help(), {900, 600});
}

TEST_P(FitTest, Dialogs) {
  Asking asking(host_, session().language(), session());
  bar progress(host_, session().language());
  frmAbout about(host_, session().language());
  frmPhoneInfo info(session());
  info.LabManu.text = u"Ericsson Mobile Communications";
  frmAddEvent& event = program_->calendarPage().editor();
  event.initializeForm();
  info.LabIMEI.text = u"123456789012345";
  frmAddContact& contact = program_->phonebookPage().editor();
  PhoneMemories& memories = program_->phonebookPage().memories();
  frmCopyToSIM copy(session(), program_->phonebookLists(), memories);
  copy.SetContact(u"Maximiliane Mustermann",
                  {{u"Fax", u"0123456789012345678901234567890123456789"}});
  for (Window* window :
       std::initializer_list<Window*>{&asking, &progress, &about, &info, &contact, &copy, &event}) {
    window->Show(Modality::Modeless);
    ExpectWordsFit(*window);
    window->Unload();
  }
}

TEST_P(FitTest, SynchronisationsAndWhatTheyTell) {
  ConnectPhone();
  SyncDialog* dialogs[] = {&program_->phonebookSync(), &program_->calendarSync()};
  for (SyncDialog* dialog : dialogs) {
    dialog->Show(Modality::Modeless);
    for (Label& result : dialog->lblResult) {
      result.text = SummaryOf(session().language(), u"Tessarin", {1000, 1000, 1000, 1000});
    }
    ExpectWordsFit(*dialog, {720, 440});
    for (Label& result : dialog->lblResult) result.text = u"";
    SyncProgress progress(*dialog, dialog->prgRows, dialog->lblRow, session().language());
    progress.Begin();
    progress.Row(1000, 2000);
    ExpectWordsFit(*dialog, {720, 440});
    dialog->Unload();
  }
}

TEST_P(FitTest, TheQuestionBeforeAContactIsReplaced) {
  std::int16_t mode = overwrite::kYes;
  frmOverwrite replace(host_, session().language(), mode);
  for (Label& record : replace.lblOverwrite) {
    record.text = u"Ericsson Mobile Communications\r\nHome: +44 1234 567890\r\n15/06/2004 12:00:00";
  }
  replace.Show(Modality::Modeless);
  ExpectWordsFit(replace);
  replace.Unload();
}

TEST_P(FitTest, MessageWindows) {
  auto& composer = program_->composer();
  composer.SetVariable(u"+491234567", Text(400, u'x'));
  composer.Show(Modality::Modeless);
  composer.lblSending.text =
      session().language().Filled(text::interface_::kComposerSending, {Text(u"10"), Text(u"12")});
  ExpectWordsFit(composer);
  for (Button* side : {&composer.Command2, &composer.Label5, &composer.Label6}) {
    side->clicked();
    ExpectWordsFit(composer);
  }
  composer.Unload();
  Text result;
  frmAddTextTemplate editor(host_, session().language(), result);
  editor.initializeForm(u"");
  const clsT610ContactList none;
  frmAddGroup group(host_, session().language(), none, composer.Text1);
  for (Window* window : std::initializer_list<Window*>{&editor, &group}) {
    window->Show(Modality::Modeless);
    ExpectWordsFit(*window);
    window->Unload();
  }
}

INSTANTIATE_TEST_SUITE_P(EveryLanguage, FitTest, testing::Range(0, 9), [](const auto& language) {
  return std::string(kLanguages[static_cast<std::size_t>(language.param)].menuKey);
});

}  // namespace
}  // namespace tessarin
