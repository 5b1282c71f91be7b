#include <host/hostenvironment.h>

#include "localencoding.h"
#include "messages.h"

#include <QLoggingCategory>
#include <QTest>

class TestHostEnvironment : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void localTextsAreUtf8();
    void debugMessagesOfTheLibraryAreOff();
};

void TestHostEnvironment::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestHostEnvironment::localTextsAreUtf8()
{
    if (!LocalEncoding::canBe("ISO-8859-1"))
        QSKIP("Local texts are UTF-8, whatever the host says");
    const LocalEncoding latin1("ISO-8859-1");
    QVERIFY(QString::fromLocal8Bit("пин") != QString("пин"));
    HostEnvironment::prepare();
    QCOMPARE(QString::fromLocal8Bit("пин"), QString("пин"));
}

void TestHostEnvironment::debugMessagesOfTheLibraryAreOff()
{
    const QLoggingCategory category("gui.lib.dbsettings");
    QLoggingCategory::setFilterRules("gui.lib.dbsettings.debug=true");
    QVERIFY(category.isDebugEnabled());
    HostEnvironment::prepare();
    QVERIFY(!category.isDebugEnabled());
    QVERIFY(category.isCriticalEnabled());
}

QTEST_MAIN(TestHostEnvironment)
#include "tst_hostenvironment.moc"
