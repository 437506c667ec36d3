// The settings of a desktop's portal, as a fake.
#pragma once

#include <QDBusVariant>
#include <QObject>

namespace wifi_profile::testing {

class FakeSettings final : public QObject {
  Q_OBJECT
  Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

 public:
  unsigned scheme = 0;  // 0: no preference, 1: dark, 2: light
  int asked = 0;

 public Q_SLOTS:
  QDBusVariant Read(const QString& /*space*/, const QString& /*key*/) {  // NOLINT: D-Bus' name
    ++asked;
    return QDBusVariant(QVariant::fromValue(QDBusVariant(scheme)));
  }
};

}  // namespace wifi_profile::testing
