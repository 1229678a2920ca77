// The desktop program.

#include <QApplication>
#include <QSessionManager>

#include "Program.h"
#include "ui/qt/EndSignals.h"
#include "ui/qt/Icons.h"
#include "ui/qt/QtWindowHost.h"
#include "ui/qt/Theme.h"
#include "ui/windows/Layouts.h"

namespace {

tessarin::ProgramFolders Folders() {
  const std::filesystem::path program = QApplication::applicationDirPath().toStdString();
  tessarin::ProgramFolders folders;
  folders.application = tessarin::DefaultApplicationFolder(program);
  folders.shipped = program.parent_path() / "share" / "tessarin";
  folders.program = program;
  folders.registryFile = tessarin::ConfigurationFolder() / "registry.ini";
  return folders;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication::setApplicationName(QStringLiteral("Tessarin"));
  QApplication::setDesktopFileName(QStringLiteral("tessarin"));
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const auto folders = Folders();
  tessarin::SetDrawingFolders(folders.application, folders.shipped);
  QApplication::setWindowIcon(tessarin::Icon("tessarin"));
  const tessarin::Theme theme;

  tessarin::QtWindowHost host(tessarin::AllLayouts());
  tessarin::Program program(host, folders);
  const tessarin::EndSignals signals([&host] { host.RequestEnd(); });
  QObject::connect(&application, &QGuiApplication::commitDataRequest, &host,
                   [&host] { host.RequestEnd(); });
  program.Start();
  if (!host.HasQuit()) QApplication::exec();
  return host.EndedByFault() ? 1 : 0;
}
