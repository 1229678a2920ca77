#pragma once

// Light or dark, as the desktop says. The desktop's choice comes over the session bus (the settings
// interface of the desktop portal) and is followed while the program runs; without a portal the
// palette that the platform gave decides.

#include <QObject>

class QDBusVariant;

namespace tessarin {

class Theme : public QObject {
  Q_OBJECT

 public:
  // Styles the whole application now and whenever the desktop changes its mind.
  explicit Theme(QObject* parent = nullptr);

 private:
  Q_SLOT void SettingChanged(const QString& group, const QString& key, const QDBusVariant& value);
  void Apply(bool dark);

  bool platformIsDark_;
};

}  // namespace tessarin
