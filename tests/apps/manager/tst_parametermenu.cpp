#include "parametermenu.h"

#include "messages.h"
#include "modalanswer.h"
#include "openpages.h"

#include <host/pageaccess.h>

#include <vxsettings/dbkeys.h>

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

using namespace db::database;

namespace {

const SettingAddress host{MOBILE_HOST};
const SettingAddress port{MOBILE_PORT};
const SettingAddress token{LOCKER_ACCESS_TOKEN};
const QString revert = QStringLiteral("Вернуть сохранённое значение");
const QString why = QStringLiteral("Почему такое значение…");
const QString copyKey = QStringLiteral("Скопировать ключ");
const QString copyCommand = QStringLiteral("Скопировать команду vxsettingsctl");

class MenuPages : public OpenPages
{
public:
    explicit MenuPages(const QHash<QString, QString> &stored = {})
        : OpenPages(stored)
        , menu(session, database.location())
    {
        open(DBGroups::Connection);
    }

    /// The menu that opens at a widget.
    static QMenu *menuAt(QWidget *widget, QContextMenuEvent::Reason reason = QContextMenuEvent::Mouse)
    {
        const QPoint middle = widget->rect().center();
        QContextMenuEvent event(reason, middle, widget->mapToGlobal(middle));
        QApplication::sendEvent(widget, &event);
        return qobject_cast<QMenu *>(QApplication::activePopupWidget());
    }
    static QAction *entry(const QMenu *menu, const QString &text)
    {
        for (QAction *action : menu->actions()) {
            if (action->text() == text)
                return action;
        }
        return nullptr;
    }
    /// Clicks the entry of the menu at the parameter's frame.
    void choose(const SettingAddress &address, const QString &text) const
    {
        QMenu *shown = menuAt(editor(address));
        QVERIFY(shown);
        QVERIFY2(entry(shown, text), qPrintable(text));
        QTest::mouseClick(shown, Qt::LeftButton, {}, shown->actionGeometry(entry(shown, text)).center());
    }

    ParameterMenu menu;
};
} // namespace

class TestParameterMenu : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void itOpensEverywhere();
    void aLineEditKeepsItsEntries();
    void aChangeIsReverted();
    void whatIsStoredWrongIsRepaired();
    void whyTellsWhatIsStoredAndByWhom();
    void whyTellsNoSecret();
    void theKeyIsCopied();
    void theCommandIsCopied_data();
    void theCommandIsCopied();
    void theHistoryIsOfTheParameter();
    void anUnreadableTextIsRepairedAsAWhole_data();
    void anUnreadableTextIsRepairedAsAWhole();
    void aLockedPageIsNotRepaired();
};

void TestParameterMenu::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestParameterMenu::cleanup()
{
    while (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
}

void TestParameterMenu::itOpensEverywhere()
{
    MenuPages pages;
    for (const SettingAddress &address : {host, port, token}) {
        DBParamWidget *editor = pages.editor(address);
        QWidget *caption = editor->findChild<QWidget *>("leftLabel");
        for (QWidget *widget : {static_cast<QWidget *>(editor), caption, editor->centralWidget()}) {
            QMenu *menu = MenuPages::menuAt(widget);
            QVERIFY(menu && MenuPages::entry(menu, why));
            menu->close();
        }
        QMenu *byKey = MenuPages::menuAt(editor->centralWidget(), QContextMenuEvent::Keyboard);
        QVERIFY(byKey && MenuPages::entry(byKey, why));
        byKey->close();
    }
}

void TestParameterMenu::aLineEditKeepsItsEntries()
{
    MenuPages pages;
    for (const SettingAddress &address : {host, port, token}) {
        QMenu *menu = MenuPages::menuAt(pages.input<QWidget>(address));
        QVERIFY(menu);
        const QList<QAction *> entries = menu->actions();
        QVERIFY(std::any_of(entries.begin(), entries.end(),
                            [](const QAction *entry) { return entry->text().startsWith("Select All"); }));
        menu->close();
    }
}

void TestParameterMenu::aChangeIsReverted()
{
    MenuPages pages;
    QMenu *menu = MenuPages::menuAt(pages.editor(host));
    QVERIFY(!MenuPages::entry(menu, revert)->isEnabled());
    menu->close();
    editors::retype(pages.input<QWidget>(host), "edited");
    editors::retype(pages.input<QWidget>(port), "90");
    pages.choose(host, revert);
    QVERIFY(!pages.session.isChanged(host));
    QVERIFY(pages.session.isChanged(port));
}

void TestParameterMenu::whatIsStoredWrongIsRepaired()
{
    MenuPages pages({{MOBILE_PORT, "123456"}});
    QVERIFY(!pages.session.hasChanges());
    pages.choose(port, "Исправить сохранённое: 65535");
    QVERIFY(pages.session.isChanged(port));
    QVERIFY(SessionWait::save(pages.session).isDone());
    QCOMPARE(pages.file.stored(MOBILE_PORT), QString("65535"));
}

void TestParameterMenu::whyTellsWhatIsStoredAndByWhom()
{
    MenuPages pages({{MOBILE_PORT, "123456"}});
    pages.file.execute("UPDATE settings SET changed_by = 'ivanov' WHERE key = ?", {MOBILE_PORT});
    QVERIFY(!SessionWait::load(pages.session));
    const ModalAnswer answer("Закрыть");
    pages.choose(port, why);
    QTRY_VERIFY(answer.wasGiven());
    const QStringList parts{"PT_MOBILE_PORT", "Сохранено: «123456»", "Показано: 65535", "Число вне допустимых границ",
                            "пользователь ivanov"};
    for (const QString &part : parts)
        QVERIFY2(answer.text().contains(part), qPrintable(part + " / " + answer.text()));
}

void TestParameterMenu::whyTellsNoSecret()
{
    MenuPages pages({{LOCKER_ACCESS_TOKEN, "canary"}});
    const ModalAnswer answer("Закрыть");
    pages.choose(token, why);
    QTRY_VERIFY(answer.wasGiven());
    QVERIFY(answer.text().contains("Сохранено: скрыто"));
    QVERIFY(!answer.text().contains("canary"));
}

void TestParameterMenu::theKeyIsCopied()
{
    MenuPages pages;
    pages.choose(host, copyKey);
    QCOMPARE(QApplication::clipboard()->text(), QString("PT_MOBILE_HOST"));
}

void TestParameterMenu::theCommandIsCopied_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("command");
    QTest::newRow("number") << MOBILE_PORT << "90"
                            << "set 'PT_MOBILE_PORT=90'";
    QTest::newRow("what a shell would not leave alone") << MOBILE_HOST << "a'b $c"
                                                        << "set 'PT_MOBILE_HOST=a'\\''b $c'";
    QTest::newRow("secret") << LOCKER_ACCESS_TOKEN << "canary"
                            << "set --stdin 'PT_LOCKER_ACCESS_TOKEN'";
}

void TestParameterMenu::theCommandIsCopied()
{
    QFETCH(QString, key);
    QFETCH(QString, stored);
    QFETCH(QString, command);
    MenuPages pages({{key, stored}});
    pages.choose({key}, copyCommand);
    QCOMPARE(QApplication::clipboard()->text(),
             QString("vxsettingsctl --database '%1' %2").arg(pages.file.path(), command));
}

void TestParameterMenu::theHistoryIsOfTheParameter()
{
    MenuPages pages;
    QVector<SettingAddress> wanted;
    connect(&pages.menu, &ParameterMenu::historyWanted, &pages.menu,
            [&wanted](const SettingAddress &address) { wanted << address; });
    pages.choose(port, "История параметра…");
    QTRY_COMPARE(wanted.size(), 1);
    QVERIFY(wanted.first() == port);
}

void TestParameterMenu::anUnreadableTextIsRepairedAsAWhole_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<bool>("isOffered");
    QTest::newRow("no object") << "spoilt" << true;
    QTest::newRow("a name that occurs twice") << R"({"min_len": "4", "min_len": "5"})" << true;
    QTest::newRow("a number out of range") << R"({"max_len": "1"})" << false;
}

void TestParameterMenu::anUnreadableTextIsRepairedAsAWhole()
{
    QFETCH(QString, stored);
    QFETCH(bool, isOffered);
    MenuPages pages({{PIN_STRENGTH, stored}});
    pages.open(DBGroups::Employees);
    QSignalSpy wanted(&pages.menu, &ParameterMenu::repairWanted);
    const SettingAddress maxLen{PIN_STRENGTH, json::MAX_LEN};
    const QString entry = "Исправить запись «Сложность пин-кода»…";
    QMenu *menu = MenuPages::menuAt(pages.editor(maxLen));
    QCOMPARE(MenuPages::entry(menu, entry) != nullptr, isOffered);
    QStringList single;
    for (const QAction *action : menu->actions())
        single << action->text();
    QCOMPARE(single.filter("Исправить сохранённое").isEmpty(), isOffered);
    menu->close();
    if (!isOffered)
        return;
    pages.choose(maxLen, entry);
    QTRY_COMPARE(wanted.size(), 1);
    QCOMPARE(wanted.first().first().toString(), PIN_STRENGTH);
    QVERIFY(!pages.session.hasChanges()); // it is only asked for
}

void TestParameterMenu::aLockedPageIsNotRepaired()
{
    MenuPages pages({{MOBILE_PORT, "123456"}, {PageAccess::KEY, R"({"connection": false})"}});
    QMenu *menu = MenuPages::menuAt(pages.editor(port));
    QVERIFY(!MenuPages::entry(menu, "Исправить сохранённое: 65535")->isEnabled());
}

QTEST_MAIN(TestParameterMenu)
#include "tst_parametermenu.moc"
