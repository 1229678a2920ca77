#include "ui/qt/Theme.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QPalette>

#include "ui/qt/CalmStyle.h"

namespace tessarin {

namespace {

constexpr char kService[] = "org.freedesktop.portal.Desktop";
constexpr char kPath[] = "/org/freedesktop/portal/desktop";
constexpr char kInterface[] = "org.freedesktop.portal.Settings";
constexpr char kGroup[] = "org.freedesktop.appearance";
constexpr char kKey[] = "color-scheme";  // 0 no preference, 1 dark, 2 light
constexpr int kPatience = 200;           // milliseconds for the portal's answer

struct Colours {
  QRgb window, base, alternate, text, faint, button, accent, selection, selected, line;
};
constexpr Colours kLight{0xfff4f6f9, 0xffffffff, 0xfff7f9fc, 0xff1f2937, 0xff6b7280,
                         0xffffffff, 0xff2f6fde, 0xffd3e2fb, 0xff1f2937, 0xffd5dae3};
constexpr Colours kDark{0xff22262e, 0xff1a1d23, 0xff20242b, 0xffe5e7eb, 0xff9aa3b2,
                        0xff2c313b, 0xff6ea1f5, 0xff2f4a75, 0xffffffff, 0xff3a414d};

QPalette MakePalette(const Colours& c) {
  QPalette palette;
  const auto set = [&](QPalette::ColorRole role, QRgb colour, QRgb disabled) {
    palette.setColor(role, QColor(colour));
    palette.setColor(QPalette::Disabled, role, QColor(disabled));
  };
  set(QPalette::Window, c.window, c.window);
  set(QPalette::WindowText, c.text, c.faint);
  set(QPalette::Base, c.base, c.window);
  set(QPalette::AlternateBase, c.alternate, c.window);
  set(QPalette::Text, c.text, c.faint);
  set(QPalette::PlaceholderText, c.faint, c.faint);
  set(QPalette::Button, c.button, c.window);
  set(QPalette::ButtonText, c.text, c.faint);
  set(QPalette::ToolTipBase, c.button, c.button);
  set(QPalette::ToolTipText, c.text, c.text);
  set(QPalette::Highlight, c.selection, c.line);
  set(QPalette::HighlightedText, c.selected, c.faint);
  set(QPalette::Link, c.accent, c.faint);
  set(QPalette::Mid, c.line, c.line);
  return palette;
}

QVariant Unwrap(QVariant value) {
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  return value;
}

}  // namespace

Theme::Theme(QObject* parent) : QObject(parent) {
  platformIsDark_ = QApplication::palette().color(QPalette::Window).lightness() < 128;
  // The application owns its style. NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
  QApplication::setStyle(new CalmStyle);
  auto bus = QDBusConnection::sessionBus();
  bool dark = platformIsDark_;
  if (bus.isConnected()) {
    bus.connect(kService, kPath, kInterface, QStringLiteral("SettingChanged"), this,
                SLOT(SettingChanged(QString, QString, QDBusVariant)));
    auto ask = QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Read"));
    ask.setArguments({QString(kGroup), QString(kKey)});
    const auto answer = bus.call(ask, QDBus::Block, kPatience);
    if (answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty()) {
      const uint scheme = Unwrap(answer.arguments().constFirst()).toUInt();
      if (scheme != 0) dark = scheme == 1;
    }
  }
  Apply(dark);
}

void Theme::SettingChanged(const QString& group, const QString& key, const QDBusVariant& value) {
  if (group != kGroup || key != kKey) return;
  const uint scheme = Unwrap(value.variant()).toUInt();
  Apply(scheme == 0 ? platformIsDark_ : scheme == 1);
}

void Theme::Apply(bool dark) { QApplication::setPalette(MakePalette(dark ? kDark : kLight)); }

}  // namespace tessarin
