#include "edithistory.h"

#include "doublingtranslator.h"
#include "messages.h"
#include "openpages.h"

#include <vxsettings/dbkeys.h>

#include <QAction>
#include <QCheckBox>
#include <QTest>
#include <QWindow>

using namespace db::database;

namespace {

const SettingAddress host{MOBILE_HOST};
const SettingAddress port{MOBILE_PORT};
const QString storedHost = QStringLiteral("mobile.installation.example");

/// The page of the connection in a window that has the actions.
class UndoPages : public OpenPages
{
public:
    explicit UndoPages(const QHash<QString, QString> &stored = {})
        : OpenPages(stored)
        , history(session, &window)
    {
        window.addAction(history.undoAction());
        window.addAction(history.redoAction());
        open(DBGroups::Connection);
    }

    void type(const SettingAddress &address, const QString &text) const
    {
        input<QWidget>(address)->setFocus();
        editors::retype(input<QWidget>(address), text);
    }
    /// As a person does: to whatever has the focus.
    void press(int key, Qt::KeyboardModifiers modifiers)
    {
        QTest::keyClick(window.windowHandle(), Qt::Key(key), modifiers);
    }
    void undo() { press(Qt::Key_Z, Qt::ControlModifier); }
    void redo() { press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
    QString shown(const SettingAddress &address) const { return session.shownText(address); }

    EditHistory history;
};
} // namespace

class TestEditHistory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void atFirstThereIsNothingToUndo();
    void whatIsTypedIsOneStep();
    void stepsGoAcrossParametersAndPages();
    void theEditorsOwnUndoStaysOut();
    void theFocusEndsAStep();
    void anEditPutBackIsNoStep();
    void aNewEditEndsTheRedo();
    void aRevertCanBeUndone();
    void anUndoAfterASaveIsAnEdit();
    void whatOthersHaveStoredIsNotUndone();
    void undoneInAConflictTheirsIsShown();
    void theActionsFollowTheLanguage();
    void aRepairCanBeUndone();
    void aRepairOfAWholeTextIsOneStep();
    void anUndoneRepairLeavesAConflictToBeDecided();
};

void TestEditHistory::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestEditHistory::atFirstThereIsNothingToUndo()
{
    UndoPages pages;
    QVector<SettingAddress> steps;
    connect(&pages.history, &EditHistory::stepped, &pages.history, [&steps](const auto &address) { steps << address; });
    QVERIFY(!pages.history.undoAction()->isEnabled());
    QVERIFY(!pages.history.redoAction()->isEnabled());
    pages.history.undo();
    pages.history.redo();
    QVERIFY(steps.isEmpty());
}

void TestEditHistory::whatIsTypedIsOneStep()
{
    UndoPages pages;
    pages.type(host, "one");
    QVERIFY(pages.history.undoAction()->isEnabled());
    pages.undo();
    QCOMPARE(pages.shown(host), storedHost);
    QVERIFY(!pages.session.hasChanges());
    QVERIFY(!pages.history.undoAction()->isEnabled());
    pages.redo();
    QCOMPARE(pages.shown(host), QString("one"));
    QVERIFY(!pages.history.redoAction()->isEnabled());
}

void TestEditHistory::stepsGoAcrossParametersAndPages()
{
    UndoPages pages;
    QVector<SettingAddress> steps;
    connect(&pages.history, &EditHistory::stepped, &pages.history, [&steps](const auto &address) { steps << address; });
    pages.type(host, "one");
    pages.type(port, "90");
    pages.open(DBGroups::Employees);
    const SettingAddress flag{PIN_STRENGTH, json::DENY_EQUAL};
    const QString before = pages.shown(flag);
    editors::click(pages.input<QCheckBox>(flag));
    QVERIFY(pages.shown(flag) != before);

    pages.undo();
    QCOMPARE(pages.shown(flag), before);
    pages.undo();
    QCOMPARE(pages.shown(port), QString("8443"));
    QCOMPARE(pages.shown(host), QString("one"));
    pages.undo();
    QVERIFY(!pages.session.hasChanges());
    QCOMPARE(steps, QVector<SettingAddress>({flag, port, host}));
    for (int i = 0; i < 3; ++i)
        pages.redo();
    QCOMPARE(pages.session.changedAddresses().count(), 3);
}

void TestEditHistory::theEditorsOwnUndoStaysOut()
{
    UndoPages pages;
    pages.type(host, "one");
    pages.type(port, "90");
    pages.input<QWidget>(host)->setFocus();
    pages.undo();
    QCOMPARE(pages.shown(host), QString("one"));
    QCOMPARE(pages.shown(port), QString("8443"));
    pages.redo();
    QCOMPARE(pages.shown(port), QString("90"));
}

void TestEditHistory::theFocusEndsAStep()
{
    UndoPages pages;
    pages.type(host, "one");
    pages.input<QWidget>(port)->setFocus();
    pages.type(host, "two");
    pages.undo();
    QCOMPARE(pages.shown(host), QString("one"));
}

void TestEditHistory::anEditPutBackIsNoStep()
{
    UndoPages pages;
    pages.input<QWidget>(host)->setFocus();
    QTest::keyClicks(pages.input<QWidget>(host), "x");
    QTest::keyClick(pages.input<QWidget>(host), Qt::Key_Backspace);
    QVERIFY(!pages.history.undoAction()->isEnabled());
}

void TestEditHistory::aNewEditEndsTheRedo()
{
    UndoPages pages;
    pages.type(host, "one");
    pages.undo();
    pages.type(host, "two");
    QVERIFY(!pages.history.redoAction()->isEnabled());
    pages.undo();
    QCOMPARE(pages.shown(host), storedHost);
}

void TestEditHistory::aRevertCanBeUndone()
{
    UndoPages pages;
    pages.type(host, "one");
    pages.type(port, "90");
    pages.session.revert();
    pages.undo();
    QCOMPARE(pages.shown(host), QString("one"));
    QCOMPARE(pages.shown(port), QString("90"));
    pages.undo();
    QCOMPARE(pages.shown(port), QString("8443"));
    pages.redo();
    pages.redo();
    QVERIFY(!pages.session.hasChanges());
}

void TestEditHistory::anUndoAfterASaveIsAnEdit()
{
    UndoPages pages;
    pages.type(host, "one");
    QVERIFY(SessionWait::save(pages.session).isDone());
    pages.undo();
    QCOMPARE(pages.shown(host), storedHost);
    QVERIFY(pages.session.isChanged(host));
    pages.redo();
    QVERIFY(!pages.session.hasChanges());
}

void TestEditHistory::whatOthersHaveStoredIsNotUndone()
{
    UndoPages pages;
    pages.database.watch();
    pages.type(port, "90");
    pages.type(host, "one");
    QVERIFY(SessionWait::save(pages.session).isDone());
    pages.file.store(MOBILE_HOST, "theirs");
    QTRY_COMPARE(pages.shown(host), QString("theirs"));
    pages.undo();
    QCOMPARE(pages.shown(host), QString("theirs"));
    QCOMPARE(pages.shown(port), QString("8443"));
    QVERIFY(!pages.history.undoAction()->isEnabled());
}

void TestEditHistory::undoneInAConflictTheirsIsShown()
{
    UndoPages pages;
    pages.database.watch();
    pages.type(host, "mine");
    pages.file.store(MOBILE_HOST, "theirs");
    QTRY_COMPARE(pages.session.conflicts().count(), 1);
    pages.undo();
    QCOMPARE(pages.shown(host), QString("theirs"));
    QVERIFY(!pages.session.hasChanges());
}

void TestEditHistory::theActionsFollowTheLanguage()
{
    UndoPages pages;
    QCOMPARE(pages.history.undoAction()->text(), QString("&Отменить правку"));
    const DoublingTranslator translator;
    QTRY_COMPARE(pages.history.undoAction()->text(), QString("&Отменить правку &Отменить правку"));
    QCOMPARE(pages.history.redoAction()->text(), QString("&Повторить правку &Повторить правку"));
}

void TestEditHistory::aRepairCanBeUndone()
{
    UndoPages pages({{MOBILE_PORT, "123456"}});
    QVERIFY(pages.session.replaceStored(port, "65535"));
    QVERIFY(pages.session.isChanged(port));
    pages.undo();
    QVERIFY(!pages.session.hasChanges());
    QCOMPARE(pages.shown(port), QString("65535"));
    pages.redo();
    QVERIFY(pages.session.isChanged(port));
    QVERIFY(SessionWait::save(pages.session).isDone());
    QCOMPARE(pages.file.stored(MOBILE_PORT), QString("65535"));
    pages.undo(); // of what is stored now there is nothing to take back
    QVERIFY(!pages.session.hasChanges());
}

void TestEditHistory::aRepairOfAWholeTextIsOneStep()
{
    UndoPages pages({{PIN_STRENGTH, "spoilt"}});
    pages.open(DBGroups::Employees);
    pages.session.repair(PIN_STRENGTH);
    QCOMPARE(pages.session.changedAddresses().size(), 4);
    pages.undo();
    QVERIFY(!pages.session.hasChanges());
    QVERIFY(!pages.history.undoAction()->isEnabled());
    pages.redo();
    QCOMPARE(pages.session.changedAddresses().size(), 4);
    QVERIFY(SessionWait::save(pages.session).isDone());
    QVERIFY(pages.file.stored(PIN_STRENGTH) != "spoilt");
}

void TestEditHistory::anUndoneRepairLeavesAConflictToBeDecided()
{
    UndoPages pages;
    pages.type(host, "mine");
    pages.database.watch();
    pages.file.store(MOBILE_HOST, "theirs");
    QTRY_COMPARE(pages.session.conflicts().size(), 1);
    QVERIFY(pages.session.replaceStored(host, "another"));
    pages.undo();
    QCOMPARE(pages.shown(host), QString("mine"));
    QCOMPARE(pages.session.conflicts().size(), 1);
}

QTEST_MAIN(TestEditHistory)
#include "tst_edithistory.moc"
