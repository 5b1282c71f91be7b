#include <host/settingsstore.h>

#include "messages.h"
#include "testdatabase.h"

#include <QTest>

class TestSettingsHistory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyChangeIsRemembered();
    void whoWhereAndWhenAreRemembered();
    void aRefusedSaveIsNotRemembered();
    void aTextThatIsStoredAlreadyIsNoChange();
    void everyRevisionIsFoundAgain();
    void aSettingThatComesBackGetsANewRevision();
    void theHistoryCannotBeChanged_data();
    void theHistoryCannotBeChanged();
    void secretsAreNotInTheHistory_data();
    void secretsAreNotInTheHistory();
    void aFailureIsAnError();
};

namespace {

/// An open database with the sample in it, and what was loaded from it last.
struct Opened
{
    explicit Opened(const TestDatabase &database)
    {
        if (auto error = store.open(DatabaseLocation::ofFile(database.path())))
            throw std::runtime_error(error->text().toStdString());
        load();
    }
    void load()
    {
        if (auto error = store.load(installation))
            throw std::runtime_error(error->text().toStdString());
    }
    SaveResult save(const vantorix::OBJECT_PARAMETERS &changes, const QString &reason = {})
    {
        load();
        return store.save(changes, installation, reason);
    }
    QVector<HistoryRecord> history(const QString &key = {})
    {
        QVector<HistoryRecord> records;
        if (auto error = store.history(key, records))
            throw std::runtime_error(error->text().toStdString());
        return records;
    }
    QString textAt(const QString &key, qint64 revision)
    {
        QString text = "unread";
        if (auto error = store.textAt(key, revision, text))
            throw std::runtime_error(error->text().toStdString());
        return text;
    }

    SettingsStore store;
    Installation installation;
};

/// "key revision: old → new", null texts as "-".
QStringList summary(const QVector<HistoryRecord> &records)
{
    QStringList lines;
    const auto shown = [](const QString &text) { return text.isNull() ? QString("-") : "'" + text + "'"; };
    for (const HistoryRecord &record : records)
        lines << QString("%1 %2: %3 → %4")
                     .arg(record.key)
                     .arg(record.revision)
                     .arg(shown(record.oldValue), shown(record.newValue));
    return lines;
}
} // namespace

void TestSettingsHistory::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestSettingsHistory::everyChangeIsRemembered()
{
    const TestDatabase database;
    Opened opened(database);
    QCOMPARE(opened.history().count(), 0);
    const SaveResult first = opened.save({{"PT_MOBILE_HOST", "a"}, {"NEW", ""}}, "moved");
    const SaveResult second = opened.save({{"PT_MOBILE_HOST", QString()}});
    QVERIFY(first.isDone() && second.isDone());
    QCOMPARE(first.revisions, (QHash<QString, qint64>{{"PT_MOBILE_HOST", 2}, {"NEW", 1}}));
    QCOMPARE(second.revisions, (QHash<QString, qint64>{{"PT_MOBILE_HOST", 3}}));

    const auto records = opened.history();
    QCOMPARE(summary(records).mid(2), QStringList{"PT_MOBILE_HOST 3: 'a' → ''"});
    QStringList ofTheFirst = summary(records).mid(0, 2);
    ofTheFirst.sort();
    QCOMPARE(ofTheFirst, QStringList({"NEW 1: - → ''", "PT_MOBILE_HOST 2: 'mobile.installation.example' → 'a'"}));
    QVERIFY(!first.saveId.isEmpty() && first.saveId != second.saveId);
    QCOMPARE(records[0].saveId, first.saveId);
    QCOMPARE(records[1].saveId, first.saveId);
    QCOMPARE(records[2].saveId, second.saveId);
    QCOMPARE(records[0].reason, QString("moved"));
    QVERIFY(records[2].reason.isNull());
    QVERIFY(records[0].id < records[1].id && records[1].id < records[2].id);
    QCOMPARE(summary(opened.history("NEW")), QStringList{"NEW 1: - → ''"});
    QCOMPARE(opened.history("PT_MOBILE_HOST").count(), 2);
    QCOMPARE(opened.history("ELSE").count(), 0);
}

void TestSettingsHistory::whoWhereAndWhenAreRemembered()
{
    const TestDatabase database;
    Opened opened(database);
    const QDateTime before = QDateTime::currentDateTimeUtc();
    QVERIFY(opened.save({{"PT_MOBILE_HOST", "a"}}).isDone());
    const ChangeStamp stamp = opened.history()[0].stamp;
    QVERIFY(stamp.at >= before.addMSecs(-1) && stamp.at <= QDateTime::currentDateTimeUtc());
    QCOMPARE(stamp.at.timeSpec(), Qt::UTC);
    QVERIFY(!stamp.by.isEmpty());
    QCOMPARE(stamp.workstation, QSysInfo::machineHostName());
    QCOMPARE(stamp.program, QString("tst_settingshistory"));
}

void TestSettingsHistory::aRefusedSaveIsNotRemembered()
{
    const TestDatabase database;
    Opened mine(database);
    Opened theirs(database);
    QVERIFY(theirs.save({{"PT_MOBILE_HOST", "theirs"}}).isDone());
    const SaveResult refused =
        mine.store.save({{"PT_MOBILE_HOST", "mine"}, {"PT_MOBILE_PORT", "1"}}, mine.installation);
    QCOMPARE(refused.outcome, SaveResult::Outcome::Conflicting);
    QVERIFY(refused.saveId.isNull() && refused.revisions.isEmpty());
    QCOMPARE(mine.history().count(), 1);
}

void TestSettingsHistory::aTextThatIsStoredAlreadyIsNoChange()
{
    const TestDatabase database;
    Opened opened(database);
    const SaveResult result = opened.save({{"PT_MOBILE_HOST", "mobile.installation.example"}});
    QVERIFY(result.isDone() && result.revisions.isEmpty());
    QCOMPARE(opened.history().count(), 0);
    opened.load();
    QCOMPARE(opened.installation.revisions["PT_MOBILE_HOST"], 1);
}

void TestSettingsHistory::everyRevisionIsFoundAgain()
{
    const TestDatabase database;
    Opened opened(database);
    QCOMPARE(opened.textAt("PT_MOBILE_HOST", 1), QString("mobile.installation.example"));
    for (const char *text : {"second", "", "fourth"})
        QVERIFY(opened.save({{"PT_MOBILE_HOST", text}}).isDone());
    QCOMPARE(opened.textAt("PT_MOBILE_HOST", 1), QString("mobile.installation.example"));
    QCOMPARE(opened.textAt("PT_MOBILE_HOST", 2), QString("second"));
    QVERIFY(opened.textAt("PT_MOBILE_HOST", 3).isEmpty() && !opened.textAt("PT_MOBILE_HOST", 3).isNull());
    QCOMPARE(opened.textAt("PT_MOBILE_HOST", 4), QString("fourth"));
    for (int unknown : {-1, 0, 5})
        QVERIFY(opened.textAt("PT_MOBILE_HOST", unknown).isNull());
    QVERIFY(opened.textAt("ELSE", 1).isNull());
}

void TestSettingsHistory::aSettingThatComesBackGetsANewRevision()
{
    const TestDatabase database;
    Opened opened(database);
    QVERIFY(opened.save({{"PT_MOBILE_HOST", "second"}}).isDone());
    opened.load();
    const Installation seen = opened.installation;
    database.execute("DELETE FROM settings WHERE key = 'PT_MOBILE_HOST'");
    const SaveResult refused = opened.store.save({{"PT_MOBILE_HOST", "mine"}}, seen);
    QCOMPARE(refused.outcome, SaveResult::Outcome::Conflicting);
    QCOMPARE(refused.conflicts[0].revision, 0);

    QCOMPARE(opened.save({{"PT_MOBILE_HOST", "back"}}).revisions.value("PT_MOBILE_HOST"), 3);
    QCOMPARE(opened.textAt("PT_MOBILE_HOST", 3), QString("back"));
    QCOMPARE(opened.textAt("PT_MOBILE_HOST", 2), QString("second"));
    QCOMPARE(opened.store.save({{"PT_MOBILE_HOST", "mine"}}, seen).outcome, SaveResult::Outcome::Conflicting);
}

void TestSettingsHistory::theHistoryCannotBeChanged_data()
{
    QTest::addColumn<QString>("statement");
    QTest::newRow("updated") << "UPDATE history SET new_value = 'x'";
    QTest::newRow("deleted") << "DELETE FROM history";
}

void TestSettingsHistory::theHistoryCannotBeChanged()
{
    QFETCH(QString, statement);
    const TestDatabase database;
    Opened opened(database);
    QVERIFY(opened.save({{"PT_MOBILE_HOST", "a"}}).isDone());
    const QStringList before = summary(opened.history());
    SqlConnection connection(DatabaseLocation::ofFile(database.path()), SqlConnection::Mode::ReadWrite);
    QVERIFY(!connection.execute(statement));
    QVERIFY2(connection.error().text().contains("history cannot be"), qPrintable(connection.error().text()));
    QCOMPARE(summary(opened.history()), before);
}

void TestSettingsHistory::secretsAreNotInTheHistory_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("password") << "PT_PASSWORD_DEF";
    QTest::newRow("token") << "PT_LOCKER_ACCESS_TOKEN";
}

void TestSettingsHistory::secretsAreNotInTheHistory()
{
    QFETCH(QString, key);
    const TestDatabase database;
    {
        Opened opened(database);
        // Long texts lie on pages of their own, which are given up whole.
        QVERIFY(
            opened.save({{key, QString("first-canary").repeated(1000)}, {"PT_MOBILE_HOST", "plain-canary"}}).isDone());
        QVERIFY(opened.save({{key, "second-canary"}, {"PT_MOBILE_HOST", "h"}}).isDone());
        QVERIFY(opened.save({{key, ""}}).isDone());
        QCOMPARE(summary(opened.history(key)), QStringList({key + " 2: - → -", key + " 3: - → -", key + " 4: - → -"}));
        QVERIFY(opened.textAt(key, 2).isNull() && opened.textAt(key, 1).isNull());
    }
    // Closed by its last user the file is all there is.
    QCOMPARE(database.files(), QStringList{"installation.db"});
    QVERIFY(!database.bytes().contains("first-canary"));
    QVERIFY(!database.bytes().contains("second-canary"));
    // A text that is no secret is remembered, so the search can find something.
    QVERIFY(database.bytes().contains("plain-canary"));
}

void TestSettingsHistory::aFailureIsAnError()
{
    const TestDatabase database;
    Opened opened(database);
    database.execute("ALTER TABLE history RENAME TO gone");
    QVector<HistoryRecord> records(1);
    QString text = "before";
    QVERIFY(opened.store.history({}, records));
    QCOMPARE(records.count(), 1);
    QVERIFY(opened.store.textAt("PT_MOBILE_HOST", 1, text));
    QCOMPARE(text, QString("before"));
    QCOMPARE(opened.save({{"PT_MOBILE_HOST", "a"}}).outcome, SaveResult::Outcome::Failed);
    QCOMPARE(database.stored("PT_MOBILE_HOST"), QString("mobile.installation.example"));
}

QTEST_MAIN(TestSettingsHistory)
#include "tst_settingshistory.moc"
