#include "desktopappearance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");
constexpr uint preferDark = 1; // 0 is no wish, 2 prefers light

/// Portals answer a question with a variant in a variant, and tell of a change with a plain one.
bool prefersDark(QVariant value)
{
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value.toUInt() == preferDark;
}
} // namespace

DesktopAppearance::DesktopAppearance(QObject *parent)
    : QObject(parent)
{
    // Found without looking for blanks first.
    // clang-format off
    const char *slot = SLOT(takeChange(QString,QString,QDBusVariant));
    // clang-format on
    QDBusConnection::sessionBus().connect(service, path, interface, QStringLiteral("SettingChanged"), this, slot);
    ask();
}

void DesktopAppearance::ask()
{
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
    question << appearance << colorScheme;
    auto *answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (reply.isValid())
            Q_EMIT told(prefersDark(reply.value().variant()));
    });
}

void DesktopAppearance::takeChange(const QString &space, const QString &name, const QDBusVariant &value)
{
    if (space == appearance && name == colorScheme)
        Q_EMIT told(prefersDark(value.variant()));
}
