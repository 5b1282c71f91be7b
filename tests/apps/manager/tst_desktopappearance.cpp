#include "desktopappearance.h"

#include "messages.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");

/// What desktops run for the programs on them, on a connection of its own to the bus.
class Portal : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    explicit Portal(uint scheme)
        : m_scheme(scheme)
    {
        m_bus.registerObject(path, this, QDBusConnection::ExportAllSlots);
        m_bus.registerService(service);
    }
    ~Portal() override { QDBusConnection::disconnectFromBus(m_name); }

    void change(const QString &space, const QString &key, uint value) const
    {
        QDBusMessage signal = QDBusMessage::createSignal(path, "org.freedesktop.portal.Settings", "SettingChanged");
        signal << space << key << QVariant::fromValue(QDBusVariant(value));
        m_bus.send(signal);
    }

public Q_SLOTS:
    QDBusVariant Read(const QString &space, const QString &key) const // as it is called on the bus
    {
        const bool isKnown = space == "org.freedesktop.appearance" && key == "color-scheme";
        return QDBusVariant(QVariant::fromValue(QDBusVariant(isKnown ? m_scheme : 99U)));
    }

private:
    const uint m_scheme;
    const QString m_name = QStringLiteral("portal");
    QDBusConnection m_bus =
        QDBusConnection::connectToBus(QString::fromLocal8Bit(qgetenv("DBUS_SESSION_BUS_ADDRESS")), m_name);
};
} // namespace

class TestDesktopAppearance : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void thePortalIsAsked_data();
    void thePortalIsAsked();
    void changesAreFollowed();
    void withoutAPortalNothingIsTold();

private:
    QProcess m_bus;
};

void TestDesktopAppearance::initTestCase()
{
    failOnUnexpectedMessages();
    m_bus.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
    QVERIFY(m_bus.waitForStarted());
    QTRY_VERIFY(m_bus.canReadLine());
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.readLine().trimmed());
    QVERIFY(QDBusConnection::sessionBus().isConnected());
}

void TestDesktopAppearance::cleanupTestCase()
{
    QDBusConnection::disconnectFromBus(QDBusConnection::sessionBus().name());
    m_bus.terminate();
    QVERIFY(m_bus.waitForFinished());
}

void TestDesktopAppearance::thePortalIsAsked_data()
{
    QTest::addColumn<uint>("scheme");
    QTest::addColumn<bool>("dark");
    QTest::addRow("no wish") << 0U << false;
    QTest::addRow("dark") << 1U << true;
    QTest::addRow("light") << 2U << false;
}

void TestDesktopAppearance::thePortalIsAsked()
{
    QFETCH(uint, scheme);
    QFETCH(bool, dark);
    const Portal portal(scheme);
    const DesktopAppearance appearance;
    QSignalSpy told(&appearance, &DesktopAppearance::told);
    QTRY_COMPARE(told.count(), 1);
    QCOMPARE(told.first().first().toBool(), dark);
}

void TestDesktopAppearance::changesAreFollowed()
{
    const Portal portal(0);
    const DesktopAppearance appearance;
    QSignalSpy told(&appearance, &DesktopAppearance::told);
    QTRY_COMPARE(told.count(), 1);
    portal.change("org.freedesktop.appearance", "accent-color", 1);
    portal.change("org.gnome.desktop.interface", "color-scheme", 1);
    portal.change("org.freedesktop.appearance", "color-scheme", 1);
    portal.change("org.freedesktop.appearance", "color-scheme", 0);
    QTRY_COMPARE(told.count(), 3);
    QCOMPARE(told.at(1).first().toBool(), true);
    QCOMPARE(told.at(2).first().toBool(), false);
}

void TestDesktopAppearance::withoutAPortalNothingIsTold()
{
    const DesktopAppearance appearance;
    QSignalSpy told(&appearance, &DesktopAppearance::told);
    // What is asked first is answered first.
    const QDBusMessage unknown = QDBusMessage::createMethodCall(service, path, QString(), "Read");
    const QDBusMessage answer = QDBusConnection::sessionBus().call(unknown, QDBus::BlockWithGui);
    QCOMPARE(answer.errorName(), QString("org.freedesktop.DBus.Error.ServiceUnknown"));
    QCoreApplication::processEvents();
    QCOMPARE(told.count(), 0);
}

QTEST_GUILESS_MAIN(TestDesktopAppearance)
#include "tst_desktopappearance.moc"
