#pragma once

// The window system of the program: Qt.

#include <QObject>
#include <QPointer>
#include <QTranslator>
#include <memory>
#include <vector>

#include "controls/WindowHost.h"
#include "ui/qt/Binder.h"

class QDialog;
class QEventLoop;
class QFileDialog;

namespace tessarin {

// One row of the table of layouts: how a window class looks.
struct Layout {
  enum class Kind { Main, Dialog, Busy };  // busy: no way to close it by hand
  std::string window;                      // the window's name
  Kind kind;
  // Makes the widgets of `window` inside `top`. Its timers are bound by the host.
  std::function<void(Window& window, QWidget& top, Binder& bind)> layOut;
};

class QtWindowHost : public QObject, public WindowHost {
 public:
  explicit QtWindowHost(std::vector<Layout> layouts);
  ~QtWindowHost() override;

  // For tests and the program's start: what is seen of a window, null when it is not shown.
  QWidget* WidgetOf(const Window& window) const;
  // True once the main window is gone, or never came.
  bool HasQuit() const { return hasQuit_; }

 protected:
  void DoShow(Window& window, Modality modality) override;
  void DoUnload(Window& window) override;
  void DoRepaint(Window& window) override;
  Answer DoMessageBox(const Text& text, MessageKind kind, MessageButtons buttons,
                      const Text& title) override;
  std::optional<std::filesystem::path> DoAskSaveFile(const FileQuestion& question) override;
  const Control* DoFocus() const override;
  void DoEditInFocus(EditAct act) override;
  bool DoCanEditInFocus(EditAct act) const override;
  void WordsChanged() override;
  void DoYield() override;
  void DoEndModals() override;
  void DoQuit() override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // What stands on the screen for a loaded window.
  struct Shown {
    Window* window = nullptr;
    const Layout* layout = nullptr;
    std::unique_ptr<QWidget> top;
    std::unique_ptr<Binder> binder;
    QEventLoop* modalLoop = nullptr;
    Connection caption;
  };

  Shown* Find(const Window& window) const;
  Shown* FindTop(const QObject* top) const;
  Shown& Make(Window& window, Modality modality);
  // The window that a new one stands before.
  QWidget* Parent(Modality modality) const;
  int Exec(QDialog& dialog);
  void Prepare(QFileDialog& dialog, const FileQuestion& question) const;
  void NameDividers(const QWidget& top) const;
  void FocusMoved(QWidget* now);
  QWidget* FocusWidget() const;

  std::vector<Layout> layouts_;
  std::vector<std::unique_ptr<Shown>> shown_;
  QTranslator dialogWords_;
  QPointer<QWidget> focus_;  // the last one that was no menu
  bool hasQuit_ = false;
  std::vector<QDialog*> boxes_;  // message boxes and file dialogs that stand open
};

}  // namespace tessarin
