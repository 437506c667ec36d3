#include "app/window/Appearance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace wifi_profile::window {
namespace {

const auto kPortal = QStringLiteral("org.freedesktop.portal.Desktop");
const auto kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const auto kSettings = QStringLiteral("org.freedesktop.portal.Settings");
const auto kSpace = QStringLiteral("org.freedesktop.appearance");
const auto kKey = QStringLiteral("color-scheme");
constexpr unsigned kDark = 1;

// The portal's older call, `Read`, returns a variant within a variant.
QVariant unwrapped(QVariant value) {
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  return value;
}

}  // namespace

Appearance::Appearance() {
  auto bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  bus.connect(kPortal, kPath, kSettings, QStringLiteral("SettingChanged"), this,
              SLOT(settingChanged(QString, QString, QDBusVariant)));
  auto call = QDBusMessage::createMethodCall(kPortal, kPath, kSettings, QStringLiteral("Read"));
  call << kSpace << kKey;
  auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
  connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
    const QDBusPendingReply<QDBusVariant> reply = *watcher;
    if (reply.isValid()) take(reply.value().variant());
    watcher->deleteLater();
  });
}

void Appearance::settingChanged(const QString& space, const QString& key,
                                const QDBusVariant& value) {
  if (space == kSpace && key == kKey) take(value.variant());
}

void Appearance::take(const QVariant& value) {
  const bool dark = unwrapped(value).toUInt() == kDark;
  if (dark == dark_) return;
  dark_ = dark;
  Q_EMIT changed();
}

}  // namespace wifi_profile::window
