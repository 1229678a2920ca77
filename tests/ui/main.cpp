// The windows' tests run without a display; what they draw is real all the same.

#include <gtest/gtest.h>

#include <QApplication>

#include "ui/qt/Icons.h"
#include "ui/qt/Theme.h"

// Font configuration is kept by its library for the whole life of a process.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig\n"; }

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  tessarin::SetDrawingFolders({}, TESSARIN_SHARE);
  const tessarin::Theme theme;
  return RUN_ALL_TESTS();
}
