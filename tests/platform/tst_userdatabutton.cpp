#include <vxwidgets/userdatabutton.h>

#include "messages.h"

#include <QMetaProperty>
#include <QSignalSpy>
#include <QTest>

class TestUserDataButton : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }
    void newButtonHasATextAndNoData();
    void keepsAnyValue_data();
    void keepsAnyValue();
    void propertyIsDeclared();
    void clickLeavesTheDataAlone();
};

void TestUserDataButton::newButtonHasATextAndNoData()
{
    QWidget parent;
    const auto *button = new UserDataButton(QStringLiteral("Изменить"), &parent);
    QCOMPARE(button->text(), QStringLiteral("Изменить"));
    QCOMPARE(button->parentWidget(), &parent);
    QVERIFY(!button->userData().isValid());
}

void TestUserDataButton::keepsAnyValue_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("text") << QVariant("00112233445566778899AABBCCDDEEFF");
    QTest::newRow("empty text") << QVariant("");
    QTest::newRow("number") << QVariant(42u);
    QTest::newRow("list") << QVariant(QStringList{"a", "b"});
    QTest::newRow("nothing again") << QVariant();
}

void TestUserDataButton::keepsAnyValue()
{
    QFETCH(QVariant, value);
    UserDataButton button({}, nullptr);
    button.setUserData("something else");

    QVERIFY(button.setProperty("userData", value));
    QCOMPARE(button.userData(), value);
    QCOMPARE(button.userData().userType(), value.userType());
    QCOMPARE(button.property("userData"), value);
}

void TestUserDataButton::propertyIsDeclared()
{
    UserDataButton button({}, nullptr);
    const QMetaObject *meta = button.metaObject();
    const int index = meta->indexOfProperty("userData");
    QVERIFY(index >= 0);
    QCOMPARE(meta->property(index).userType(), int(QMetaType::QVariant));
    QVERIFY(button.dynamicPropertyNames().isEmpty());
}

void TestUserDataButton::clickLeavesTheDataAlone()
{
    UserDataButton button(QStringLiteral("Изменить"), nullptr);
    button.setUserData(7);
    button.show();
    QVERIFY(QTest::qWaitForWindowExposed(&button));
    QSignalSpy clicked(&button, &QPushButton::clicked);

    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(button.userData(), QVariant(7));
}

QTEST_MAIN(TestUserDataButton)
#include "tst_userdatabutton.moc"
