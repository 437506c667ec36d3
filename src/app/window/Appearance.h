// Follows the desktop's preference for dark or light screens.
#pragma once

#include <QDBusVariant>
#include <QObject>

namespace wifi_profile::window {

// Follows the setting "color-scheme" of the desktop's portal (org.freedesktop.portal.Settings,
// namespace org.freedesktop.appearance: 0 no preference, 1 dark, 2 light) by its signal. Without a
// portal or a preference: light. Accepts only signals of the owner of the portal's name.
class Appearance final : public QObject {
  Q_OBJECT

 public:
  Appearance();

  bool isDark() const { return dark_; }

 Q_SIGNALS:
  void changed();

 private Q_SLOTS:
  void settingChanged(const QString& space, const QString& key, const QDBusVariant& value);

 private:  // NOLINT: not slots
  void take(const QVariant& value);
  bool dark_ = false;
};

}  // namespace wifi_profile::window
