#include "parametermarks.h"

#include "doublingtranslator.h"
#include "messages.h"
#include "openpages.h"

#include <vxsettings/dbkeys.h>

#include <QCheckBox>
#include <QTest>

using namespace db::database;
using Mark = DBParamWidget::Mark;

class TestParameterMarks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void whatIsStoredAndFineHasNoMark();
    void aChangeTellsWhatIsStored_data();
    void aChangeTellsWhatIsStored();
    void anEditPutBackIsNoChange();
    void aSavedChangeIsNone();
    void aConflictTellsWhatTheyHaveStored();
    void whatIsStoredWrongIsToldAsStored_data();
    void whatIsStoredWrongIsToldAsStored();
    void aWrongSecretIsNotTold();
    void anUnreadableObjectIsToldAtItsMembers();
    void aBrokenRuleStandsBesideBothWhileTyping();
    void aPageThatIsOpenedLaterIsMarked();
    void theWordsFollowTheLanguage();
};

namespace {

/// What stands beside an editor.
QString words(const DBParamWidget *editor)
{
    const auto *mark = editor->findChild<QWidget *>("mark");
    return mark && mark->isVisible() ? mark->accessibleName() : QString();
}
} // namespace

void TestParameterMarks::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestParameterMarks::whatIsStoredAndFineHasNoMark()
{
    OpenPages pages;
    const ParameterMarks marks(pages.session, &pages.window);
    pages.open(DBGroups::Users);
    for (const SettingAddress &address : SettingAddress::all()) {
        if (pages.editor(address)) {
            QCOMPARE(pages.editor(address)->mark(), Mark::None);
            QCOMPARE(pages.editor(address)->problem(), QString());
        }
    }
}

void TestParameterMarks::aChangeTellsWhatIsStored_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("words");
    QTest::newRow("line") << int(DBGroups::Connection) << MOBILE_HOST
                          << "Изменено. Сохранено: «mobile.installation.example».";
    QTest::newRow("number") << int(DBGroups::Connection) << MOBILE_PORT << "Изменено. Сохранено: 8443.";
    QTest::newRow("choice") << int(DBGroups::FaceScanning) << ENABLE_FACE_SCANNING << "Изменено. Сохранено: Нет.";
    QTest::newRow("secret") << int(DBGroups::Connection) << LOCKER_ACCESS_TOKEN << "Изменено. Сохранено: скрыто.";
}

void TestParameterMarks::aChangeTellsWhatIsStored()
{
    QFETCH(int, group);
    QFETCH(QString, key);
    OpenPages pages({{LOCKER_ACCESS_TOKEN, "canary"}});
    const ParameterMarks marks(pages.session, &pages.window);
    pages.open(DBGroups(group));
    auto *input = pages.input<QWidget>({key});
    if (auto *box = qobject_cast<QComboBox *>(input))
        editors::chooseNext(box);
    else
        editors::retype(input, "90");
    QCOMPARE(pages.editor({key})->mark(), Mark::Changed);
    QTEST(words(pages.editor({key})), "words");
    QVERIFY(input->accessibleDescription().contains(words(pages.editor({key}))));
}

void TestParameterMarks::anEditPutBackIsNoChange()
{
    OpenPages pages;
    const ParameterMarks marks(pages.session, &pages.window);
    pages.open(DBGroups::Connection);
    const SettingAddress host{MOBILE_HOST};
    QTest::keyClicks(pages.input<QLineEdit>(host), "x");
    QCOMPARE(pages.editor(host)->mark(), Mark::Changed);
    QTest::keyClick(pages.input<QLineEdit>(host), Qt::Key_Backspace);
    QCOMPARE(pages.editor(host)->mark(), Mark::None);
}

void TestParameterMarks::aSavedChangeIsNone()
{
    OpenPages pages;
    const ParameterMarks marks(pages.session, &pages.window);
    pages.open(DBGroups::Connection);
    const SettingAddress host{MOBILE_HOST};
    QTest::keyClicks(pages.input<QLineEdit>(host), "x");
    QVERIFY(SessionWait::save(pages.session).isDone());
    QCOMPARE(pages.editor(host)->mark(), Mark::None);
}

void TestParameterMarks::aConflictTellsWhatTheyHaveStored()
{
    OpenPages pages;
    const ParameterMarks marks(pages.session, &pages.window);
    pages.open(DBGroups::Connection);
    pages.database.watch();
    const SettingAddress host{MOBILE_HOST};
    editors::retype(pages.input<QLineEdit>(host), "mine");
    pages.file.store(MOBILE_HOST, "theirs");
    QTRY_COMPARE(pages.editor(host)->mark(), Mark::Conflict);
    QVERIFY2(words(pages.editor(host)).contains("Там сохранено: «theirs»"), qPrintable(words(pages.editor(host))));
    pages.session.revert(host);
    QCOMPARE(pages.editor(host)->mark(), Mark::None);
}

void TestParameterMarks::whatIsStoredWrongIsToldAsStored_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("words");
    QTest::newRow("out of range")
        << int(DBGroups::Connection) << MOBILE_PORT << "123456"
        << "Число вне допустимых границ. Допустимы целые числа от 0 до 65535. Сохранено: «123456», показано: 65535.";
    QTest::newRow("no number")
        << int(DBGroups::Connection) << MOBILE_PORT << "web"
        << "Это не целое число. Допустимы целые числа от 0 до 65535. Сохранено: «web», показано: 0.";
    QTest::newRow("no choice")
        << int(DBGroups::FaceScanning) << ENABLE_FACE_SCANNING << "7"
        << "Такого варианта нет. Допустимые значения: 0 (Нет), 1 (Да). Сохранено: «7», показано: Нет.";
}

void TestParameterMarks::whatIsStoredWrongIsToldAsStored()
{
    QFETCH(int, group);
    QFETCH(QString, key);
    QFETCH(QString, stored);
    OpenPages pages({{key, stored}});
    const ParameterMarks marks(pages.session, &pages.window);
    pages.open(DBGroups(group));
    QCOMPARE(pages.editor({key})->mark(), Mark::Problem);
    QTEST(words(pages.editor({key})), "words");

    // The repair tells it as well.
    QVERIFY(pages.session.replaceStored({key}, pages.session.shownText({key})));
    QCOMPARE(words(pages.editor({key})), QString("Изменено. Сохранено: «%1».").arg(stored));
}

void TestParameterMarks::aWrongSecretIsNotTold()
{
    OpenPages pages({{LOCKER_ACCESS_TOKEN, "canary\ncanary"}});
    const ParameterMarks marks(pages.session, &pages.window);
    pages.open(DBGroups::Connection);
    const DBParamWidget *editor = pages.editor({LOCKER_ACCESS_TOKEN});
    QCOMPARE(editor->mark(), Mark::Problem);
    QVERIFY(!words(editor).isEmpty());
    QVERIFY2(!words(editor).contains("canary"), qPrintable(words(editor)));
}

void TestParameterMarks::anUnreadableObjectIsToldAtItsMembers()
{
    OpenPages pages({{PIN_STRENGTH, "not JSON"}});
    const ParameterMarks marks(pages.session, &pages.window);
    pages.open(DBGroups::Employees);
    for (const QString &member : {json::MIN_LEN, json::DENY_EQUAL})
        QCOMPARE(pages.editor({PIN_STRENGTH, member})->mark(), Mark::Problem);
}

void TestParameterMarks::aBrokenRuleStandsBesideBothWhileTyping()
{
    OpenPages pages({{PASSWORD_NOTIFY, "14"}, {PASSWORD_EXPIRED, "30"}});
    const ParameterMarks marks(pages.session, &pages.window);
    pages.open(DBGroups::Users);
    const SettingAddress notify{PASSWORD_NOTIFY};
    const SettingAddress expired{PASSWORD_EXPIRED};
    editors::retype(pages.input<QSpinBox>(expired), "5");
    QVERIFY(pages.editor(expired)->problem().contains("(14) больше, чем"));
    QCOMPARE(pages.editor(notify)->problem(), pages.editor(expired)->problem());
    QTest::keyClicks(pages.input<QSpinBox>(expired), "0");
    QCOMPARE(pages.editor(expired)->problem(), QString());
    QCOMPARE(pages.editor(notify)->problem(), QString());
}

void TestParameterMarks::aPageThatIsOpenedLaterIsMarked()
{
    OpenPages pages({{ENABLE_FACE_SCANNING, "7"}});
    const ParameterMarks marks(pages.session, &pages.window);
    pages.open(DBGroups::Connection);
    const SettingAddress host{MOBILE_HOST};
    QTest::keyClicks(pages.input<QLineEdit>(host), "x");
    pages.open(DBGroups::FaceScanning);
    QCOMPARE(pages.editor({ENABLE_FACE_SCANNING})->mark(), Mark::Problem);
    QCOMPARE(pages.editor(host)->mark(), Mark::Changed);
    pages.session.revert();
    QCOMPARE(pages.editor(host)->mark(), Mark::None);
    QCOMPARE(pages.editor({ENABLE_FACE_SCANNING})->mark(), Mark::Problem);
}

void TestParameterMarks::theWordsFollowTheLanguage()
{
    OpenPages pages({{MOBILE_PORT, "123456"}});
    const ParameterMarks marks(pages.session, &pages.window);
    pages.open(DBGroups::Connection);
    const DBParamWidget *port = pages.editor({MOBILE_PORT});
    const QString before = words(port);
    const DoublingTranslator translator;
    QTRY_VERIFY2(words(port).size() > before.size() && words(port).count("Число вне допустимых границ.") > 1,
                 qPrintable(words(port)));
}

QTEST_MAIN(TestParameterMarks)
#include "tst_parametermarks.moc"
