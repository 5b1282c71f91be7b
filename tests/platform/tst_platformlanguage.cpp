#include "brackettranslator.h"
#include "messages.h"

#include <vxwidgets/passwordedit.h>
#include <vxwidgets/smartcardkeydialog.h>
#include <vxwidgets/vxsettingsgroupwidget.h>

#include <QAction>
#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include <algorithm>

/// Widgets that are on screen while another language is installed.
class TestPlatformLanguage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { failOnUnexpectedMessages(); }

    void keyDialog();
    void foldingButton();
    void eyeOfAPassword();

private:
    /// All texts of @p window that are shown, the window's title first.
    static QStringList texts(const QWidget &window);
    static bool allTranslated(const QStringList &texts);
};

QStringList TestPlatformLanguage::texts(const QWidget &window)
{
    QStringList texts{window.windowTitle()};
    for (const auto *label : window.findChildren<QLabel *>())
        texts << label->text();
    for (const auto *button : window.findChildren<QPushButton *>())
        texts << button->text();
    for (const auto *button : window.findChildren<QToolButton *>())
        texts << button->toolTip();
    for (const auto *action : window.findChildren<QAction *>())
        texts << action->text();
    texts.removeAll(QString());
    return texts;
}

bool TestPlatformLanguage::allTranslated(const QStringList &texts)
{
    return !texts.isEmpty() &&
           std::all_of(texts.begin(), texts.end(), [](const QString &text) { return text.startsWith('['); });
}

void TestPlatformLanguage::keyDialog()
{
    SmartCardKeyDialog dialog;
    dialog.setKey("A0B1C2D3E4F5");
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    const QStringList russian = texts(dialog);
    BracketTranslator brackets;
    QCoreApplication::installTranslator(&brackets);
    QTRY_VERIFY2(allTranslated(texts(dialog)), qPrintable(texts(dialog).join('|')));
    QCOMPARE(dialog.key(), QString("A0B1C2D3E4F5"));
    QCoreApplication::removeTranslator(&brackets);
    QTRY_COMPARE(texts(dialog), russian);
}

void TestPlatformLanguage::foldingButton()
{
    VXSettingsGroupWidget frame(nullptr);
    frame.setShowHideButton(true);
    frame.setTitle("Title");
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    BracketTranslator brackets;
    QCoreApplication::installTranslator(&brackets);
    auto *button = frame.findChild<QToolButton *>();
    QTRY_COMPARE(button->toolTip(), QString("[Свернуть]"));
    QCOMPARE(button->accessibleName(), QString("[Свернуть]"));
    QCOMPARE(button->accessibleDescription(), QString("Title"));
    QVERIFY(frame.isExpanded());
    QCoreApplication::removeTranslator(&brackets);
}

void TestPlatformLanguage::eyeOfAPassword()
{
    PasswordEdit edit;
    edit.setText("sesame");
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
    BracketTranslator brackets;
    QCoreApplication::installTranslator(&brackets);
    QTRY_VERIFY2(allTranslated(texts(edit)), qPrintable(texts(edit).join('|')));
    QCOMPARE(edit.text(), QString("sesame"));
    QCoreApplication::removeTranslator(&brackets);
}

QTEST_MAIN(TestPlatformLanguage)
#include "tst_platformlanguage.moc"
