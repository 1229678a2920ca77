#include "ui/qt/QtWindowHost.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QEventLoop>
#include <QFileDialog>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLibraryInfo>
#include <QLocale>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSplitter>

#include "ui/qt/Convert.h"
#include "ui/qt/EditActs.h"

namespace tessarin {

namespace {

// A window that is open already may be minimized, or lie behind another.
void BringToFront(QWidget& top) {
  top.setWindowState(top.windowState() & ~Qt::WindowMinimized);
  top.raise();
  top.activateWindow();
}

}  // namespace

QtWindowHost::QtWindowHost(std::vector<Layout> layouts) : layouts_(std::move(layouts)) {
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* now) { FocusMoved(now); });
}
QtWindowHost::~QtWindowHost() = default;

QtWindowHost::Shown* QtWindowHost::Find(const Window& window) const {
  for (const auto& shown : shown_) {
    if (shown->window == &window) return shown.get();
  }
  return nullptr;
}

QtWindowHost::Shown* QtWindowHost::FindTop(const QObject* top) const {
  for (const auto& shown : shown_) {
    if (shown->top.get() == top) return shown.get();
  }
  return nullptr;
}

QWidget* QtWindowHost::WidgetOf(const Window& window) const {
  const Shown* shown = Find(window);
  return shown == nullptr ? nullptr : shown->top.get();
}

// A modal window goes before the one in front. One that is not modal may outlive whatever is in
// front, so it belongs to the main window.
QWidget* QtWindowHost::Parent(Modality modality) const {
  QWidget* active = QApplication::activeModalWidget();
  if (modality == Modality::Modal && active != nullptr) return active;
  return shown_.empty() ? nullptr : shown_.front()->top.get();
}

QtWindowHost::Shown& QtWindowHost::Make(Window& window, Modality modality) {
  auto shown = std::make_unique<Shown>();
  for (const auto& layout : layouts_) {
    if (layout.window == window.name()) shown->layout = &layout;
  }
  if (shown->layout == nullptr) throw std::logic_error("no layout for " + window.name());
  shown->window = &window;
  if (shown->layout->kind == Layout::Kind::Main) {
    shown->top = std::make_unique<QMainWindow>();
  } else {
    shown->top = std::make_unique<QDialog>(Parent(modality));
  }
  QWidget& top = *shown->top;
  top.setObjectName(QString::fromStdString(window.name()));
  if (shown->layout->kind == Layout::Kind::Busy) {
    top.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    // The keys of the main window go on working while this one stands beside it.
    top.setAttribute(Qt::WA_ShowWithoutActivating, modality == Modality::Modeless);
  }
  shown->binder = std::make_unique<Binder>(*this, top);
  shown->layout->layOut(window, top, *shown->binder);
  for (Control* control : window.controls()) {
    if (auto* timer = dynamic_cast<Timer*>(control)) shown->binder->Bind(*timer);
  }
  const auto follow = [&window, &top] { top.setWindowTitle(ToQt(window.caption)); };
  follow();
  shown->caption = window.changed.Connect(follow);
  NameDividers(top);
  top.installEventFilter(this);
  shown_.push_back(std::move(shown));
  return *shown_.back();
}

void QtWindowHost::DoShow(Window& window, Modality modality) {
  Shown* known = Find(window);
  Shown& shown = known != nullptr ? *known : Make(window, modality);
  QWidget& top = *shown.top;
  if (modality == Modality::Modeless) {
    top.show();
    if (known != nullptr) BringToFront(top);
    return;
  }
  QEventLoop loop;
  shown.modalLoop = &loop;
  top.setWindowModality(Qt::ApplicationModal);
  top.show();
  loop.exec();
  // The window may be gone by now, and `shown` with it. When it is not, the program is ending.
  if (Shown* standing = Find(window)) standing->modalLoop = nullptr;
}

void QtWindowHost::DoUnload(Window& window) {
  for (auto place = shown_.begin(); place != shown_.end(); ++place) {
    if ((*place)->window != &window) continue;
    const auto shown = std::move(*place);
    shown_.erase(place);
    if (shown->modalLoop != nullptr) shown->modalLoop->quit();
    shown->top->hide();
    shown->binder->Release();
    // The call may come from a widget of this very window, which must outlive its own signal.
    // A menu that stands open tells the binder that it closes even then, so the binder goes last.
    shown->top.release()->deleteLater();
    shown->binder.release()->deleteLater();
    return;
  }
}

void QtWindowHost::DoRepaint(Window& window) {
  if (QWidget* top = WidgetOf(window)) top->repaint();
}

void QtWindowHost::DoYield() {
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void QtWindowHost::DoEndModals() {
  for (QDialog* box : boxes_) box->reject();
  for (const auto& shown : shown_) {
    if (shown->modalLoop != nullptr) shown->modalLoop->quit();
  }
}

void QtWindowHost::DoQuit() {
  hasQuit_ = true;
  QCoreApplication::quit();
}

// The user closes a window, or presses Escape in it: both unload it, as an event of the program.
bool QtWindowHost::eventFilter(QObject* watched, QEvent* event) {
  Shown* shown = FindTop(watched);
  if (shown == nullptr) return false;
  const bool busy = shown->layout->kind == Layout::Kind::Busy;
  if (event->type() == QEvent::Close) {
    event->ignore();
    if (shown->layout->kind == Layout::Kind::Main) {
      RequestEnd();  // also when something waits just now
    } else if (!busy) {
      RunEvent([window = shown->window] { window->Unload(); });
    }
    return true;
  }
  if (event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape &&
      shown->layout->kind != Layout::Kind::Main) {
    if (!busy && shown->window->escapeCloses) {
      RunEvent([window = shown->window] { window->Unload(); });
    }
    return true;
  }
  return false;
}

int QtWindowHost::Exec(QDialog& dialog) {
  boxes_.push_back(&dialog);
  const int result = dialog.exec();
  boxes_.pop_back();
  return result;
}

namespace {

QMessageBox::Icon IconOf(MessageKind kind) {
  switch (kind) {
    case MessageKind::Error:
      return QMessageBox::Critical;
    case MessageKind::Question:
      return QMessageBox::Question;
    case MessageKind::Information:
      break;
  }
  return QMessageBox::Information;
}

struct BoxButton {
  QMessageBox::StandardButton button;
  Answer answer;
  Text HostWords::*word;
};
constexpr BoxButton kBoxButtons[] = {{QMessageBox::Ok, Answer::Ok, &HostWords::ok},
                                     {QMessageBox::Cancel, Answer::Cancel, &HostWords::cancel},
                                     {QMessageBox::Yes, Answer::Yes, &HostWords::yes},
                                     {QMessageBox::No, Answer::No, &HostWords::no}};

QMessageBox::StandardButtons ButtonsOf(MessageButtons buttons) {
  switch (buttons) {
    case MessageButtons::OkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case MessageButtons::YesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case MessageButtons::Ok:
      break;
  }
  return QMessageBox::Ok;
}

}  // namespace

// A box that is closed without an answer is an answer to cancel, or no.
Answer QtWindowHost::DoMessageBox(const Text& text, MessageKind kind, MessageButtons buttons,
                                  const Text& title) {
  QMessageBox box(Parent(Modality::Modal));
  box.setObjectName(QStringLiteral("MessageBox"));
  box.setWindowTitle(title.empty() ? QCoreApplication::applicationName() : ToQt(title));
  box.setTextFormat(Qt::PlainText);
  box.setText(ToQt(text));
  box.setIcon(IconOf(kind));
  box.setStandardButtons(ButtonsOf(buttons));
  for (const BoxButton& row : kBoxButtons) {
    const Text& word = words().*row.word;
    if (auto* button = box.button(row.button); button != nullptr && !word.empty()) {
      button->setText(ToQt(word));
    }
  }
  const int result = Exec(box);
  for (const BoxButton& row : kBoxButtons) {
    if (result == row.button) return row.answer;
  }
  return buttons == MessageButtons::YesNo ? Answer::No : Answer::Cancel;
}

void QtWindowHost::WordsChanged() {
  const QString language = QString::fromStdString(words().isoCode);
  QLocale::setDefault(QLocale(language));  // the names of months and days in Qt's own parts
  QCoreApplication::removeTranslator(&dialogWords_);
  const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  if (dialogWords_.load(QStringLiteral("qtbase_") + language, folder)) {
    QCoreApplication::installTranslator(&dialogWords_);
  }
  for (const auto& shown : shown_) NameDividers(*shown->top);
}

// No control stands behind a divider.
void QtWindowHost::NameDividers(const QWidget& top) const {
  for (auto* divided : top.findChildren<QSplitter*>()) {
    divided->setAccessibleName(ToQt(words().divider));
    for (int part = 1; part < divided->count(); ++part) {
      divided->handle(part)->setAccessibleName(ToQt(words().divider));
    }
  }
}

// A menu that is opened by the keyboard takes the focus; what it acts on is what had it before.
void QtWindowHost::FocusMoved(QWidget* now) {
  const bool isMenu =
      qobject_cast<QMenuBar*>(now) != nullptr || qobject_cast<QMenu*>(now) != nullptr;
  if (now != nullptr && !isMenu) focus_ = now;
}

QWidget* QtWindowHost::FocusWidget() const {
  const bool isThere = focus_ != nullptr && focus_->isVisible() && focus_->isEnabled() &&
                       focus_->window() == QApplication::activeWindow();
  return isThere ? focus_.data() : nullptr;
}

// A control may be made of several widgets, of which the outermost has its name.
const Control* QtWindowHost::DoFocus() const {
  const QWidget* widget = FocusWidget();
  const Shown* shown = widget == nullptr ? nullptr : FindTop(widget->window());
  for (; shown != nullptr && widget != shown->top.get(); widget = widget->parentWidget()) {
    const Control* control = shown->window->Find(widget->objectName().toStdString());
    if (control != nullptr) return control;
  }
  return nullptr;
}

bool QtWindowHost::DoCanEditInFocus(EditAct act) const {
  const QWidget* widget = FocusWidget();
  return widget != nullptr && CanEdit(*widget, act);
}

void QtWindowHost::DoEditInFocus(EditAct act) {
  if (QWidget* widget = FocusWidget()) Edit(*widget, act);
}

// Qt has no words of its own for some of the languages.
void QtWindowHost::Prepare(QFileDialog& dialog, const FileQuestion& question) const {
  dialog.setObjectName(QStringLiteral("FileDialog"));
  dialog.setWindowTitle(ToQt(question.caption));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDirectory(QString::fromStdString(question.folder.string()));
  const std::pair<QFileDialog::DialogLabel, const Text&> labels[] = {
      {QFileDialog::LookIn, words().folder},
      {QFileDialog::FileName, words().fileName},
      {QFileDialog::FileType, words().fileType},
      {QFileDialog::Accept, words().save},
      {QFileDialog::Reject, words().cancel}};
  for (const auto& [label, word] : labels) dialog.setLabelText(label, ToQt(word));
  if (!question.suffix.empty()) {
    const auto suffix = QString::fromStdString(question.suffix);
    dialog.setDefaultSuffix(suffix);
    dialog.setNameFilter(QStringLiteral("%1 (*.%2)").arg(ToQt(question.filter), suffix));
  }
  dialog.selectFile(ToQt(question.suggestedName));
  for (auto* head : dialog.findChildren<QHeaderView*>()) {
    for (int column = 0; column < head->count(); ++column) {
      head->resizeSection(column,
                          std::max(head->sectionSize(column), head->sectionSizeHint(column)));
    }
  }
}

std::optional<std::filesystem::path> QtWindowHost::DoAskSaveFile(const FileQuestion& question) {
  QFileDialog dialog(Parent(Modality::Modal));
  Prepare(dialog, question);
  if (Exec(dialog) != QDialog::Accepted) return std::nullopt;
  const auto files = dialog.selectedFiles();
  if (files.isEmpty() || files.constFirst().isEmpty()) return std::nullopt;
  return std::filesystem::path(files.constFirst().toStdString());
}

}  // namespace tessarin
