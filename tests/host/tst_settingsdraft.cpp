#include <host/settingsdraft.h>

#include "messages.h"

#include <host/databaselocation.h>
#include <host/installation.h>

#include <vxsettings/dbkeys.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace db::database;
using Standing = DraftEdit::Standing;

class TestSettingsDraft : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void anEditIsOnTheDiskWithinASecond();
    void editsInARowPutNothingOff();
    void onlyItsOwnerCanReadIt();
    void secretsAreLeftOut();
    void nothingUnsavedIsNoFile();
    void anEndInBetweenLosesNothing();
    void aKilledProcessLeavesItsEdits();
    void whatWasFoundStaysUntilItIsForgotten();
    void twoProcessesHaveAFileEach();
    void anotherDatabaseHasAnotherFile();
    void aFileThatIsNoDraft_data();
    void aFileThatIsNoDraft();
    void aFolderThatCannotBeWrittenIsTold();
    void standing_data();
    void standing();
    void anEditKnowsWhatItStartsFrom();
    void anythingMakesADifference_data();
    void anythingMakesADifference();

private:
    QString folder() const { return m_home->path() + "/vxsettings/drafts"; }
    QStringList files() const { return QDir(folder()).entryList({"*.json"}, QDir::Files); }
    QString onlyFile() const { return files().size() == 1 ? folder() + '/' + files().first() : QString(); }
    QByteArray content() const;

    std::unique_ptr<QTemporaryDir> m_home;
    const DatabaseLocation m_location = DatabaseLocation::ofFile("/data/installation.db");
};

Q_DECLARE_METATYPE(DraftEdit)
Q_DECLARE_METATYPE(DraftEdit::Standing)

namespace {

DraftEdit portEdit(const QString &text)
{
    return {{MOBILE_PORT}, text, "80", 3};
}

const DraftEdit lengthEdit{{"PT_PIN_STRENGTH", "min_len"}, "6", QString(), 0};
const DraftEdit repair{{"PT_PASSWORD_STRENGTH", "min_len"}, "6", QString(), 7, true};

/// Keeps @p edits until they are on the disk, then ends without a word of it, as a crash does.
bool keep(SettingsDraft &draft, const QVector<DraftEdit> &edits)
{
    QSignalSpy written(&draft, &SettingsDraft::written);
    draft.keep(edits);
    return written.wait();
}
} // namespace

void TestSettingsDraft::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestSettingsDraft::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    qputenv("XDG_DATA_HOME", m_home->path().toUtf8());
}

QByteArray TestSettingsDraft::content() const
{
    QFile file(onlyFile());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestSettingsDraft::anEditIsOnTheDiskWithinASecond()
{
    SettingsDraft draft(m_location);
    QVERIFY(draft.found().edits.isEmpty());
    QVERIFY(draft.found().problem.isNull());
    QElapsedTimer timer;
    timer.start();
    QSignalSpy written(&draft, &SettingsDraft::written);
    draft.keep({portEdit("8080")});
    QVERIFY(timer.elapsed() < 50); // it is not written by the one who types
    QVERIFY(written.wait(1000));
    QVERIFY(content().contains("8080"));
}

void TestSettingsDraft::editsInARowPutNothingOff()
{
    SettingsDraft draft(m_location);
    QSignalSpy written(&draft, &SettingsDraft::written);
    QElapsedTimer timer;
    timer.start();
    for (int typed = 0; timer.elapsed() < 1000 && written.isEmpty(); ++typed) {
        draft.keep({portEdit(QString::number(typed))});
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    QCOMPARE(written.count(), 1);
}

void TestSettingsDraft::onlyItsOwnerCanReadIt()
{
    SettingsDraft draft(m_location);
    QVERIFY(keep(draft, {portEdit("8080")}));
    const auto groupAndOthers =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    QCOMPARE(QFileInfo(onlyFile()).permissions() & groupAndOthers, QFile::Permissions());
    QCOMPARE(QFileInfo(folder()).permissions() & groupAndOthers, QFile::Permissions());
}

void TestSettingsDraft::secretsAreLeftOut()
{
    SettingsDraft draft(m_location);
    QVERIFY(keep(
        draft,
        {portEdit("8080"), {{PASSWORD_DEF}, "canary", "canary", 1}, {{LOCKER_ACCESS_TOKEN}, "canary", "canary", 1}}));
    QVERIFY(content().contains("8080"));
    QVERIFY(!content().contains("canary"));
    QVERIFY(!content().contains(PASSWORD_DEF.toUtf8()));
}

void TestSettingsDraft::nothingUnsavedIsNoFile()
{
    SettingsDraft draft(m_location);
    QVERIFY(keep(draft, {portEdit("8080")}));
    QCOMPARE(files().size(), 1);
    QVERIFY(keep(draft, {}));
    QCOMPARE(files(), QStringList());
}

void TestSettingsDraft::anEndInBetweenLosesNothing()
{
    {
        SettingsDraft draft(m_location);
        draft.keep({portEdit("8080"), lengthEdit, repair});
    }
    const SettingsDraft next(m_location);
    QCOMPARE(next.found().edits, (QVector<DraftEdit>{portEdit("8080"), lengthEdit, repair}));
    QVERIFY(next.found().edits[1].base.isNull());
    QVERIFY(next.found().edits[2].isRepair && !next.found().edits[1].isRepair);
    QVERIFY(qAbs(next.found().at.secsTo(QDateTime::currentDateTimeUtc())) < 60);
}

void TestSettingsDraft::aKilledProcessLeavesItsEdits()
{
    QProcess keeper;
    keeper.start(QCoreApplication::applicationDirPath() + "/draftkeeper", {m_location.name(), "4711"});
    QVERIFY(keeper.waitForReadyRead());
    QCOMPARE(keeper.readAll(), QByteArray("written\n"));
    {
        const SettingsDraft beside(m_location); // which is somebody else's as long as that lives
        QVERIFY(beside.found().edits.isEmpty());
    }
    keeper.kill();
    QVERIFY(keeper.waitForFinished());

    const SettingsDraft next(m_location);
    QCOMPARE(next.found().edits, QVector<DraftEdit>{portEdit("4711")});
}

void TestSettingsDraft::whatWasFoundStaysUntilItIsForgotten()
{
    {
        SettingsDraft draft(m_location);
        draft.keep({portEdit("8080"), lengthEdit});
    }
    {
        SettingsDraft draft(m_location);
        QVERIFY(keep(draft, {portEdit("9090")}));
        QVERIFY(keep(draft, {}));
        QVERIFY(keep(draft, {portEdit("9091")}));
    }
    SettingsDraft draft(m_location);
    QCOMPARE(draft.found().edits, (QVector<DraftEdit>{portEdit("9091"), lengthEdit}));

    QSignalSpy written(&draft, &SettingsDraft::written);
    draft.forgetFound();
    QVERIFY(written.wait());
    QVERIFY(draft.found().edits.isEmpty());
    QCOMPARE(files(), QStringList());
}

void TestSettingsDraft::twoProcessesHaveAFileEach()
{
    {
        SettingsDraft first(m_location);
        SettingsDraft second(m_location);
        QVERIFY(keep(first, {portEdit("1")}));
        QVERIFY(keep(second, {portEdit("2")}));
        QCOMPARE(files().size(), 2);
    }
    SettingsDraft third(m_location);
    SettingsDraft fourth(m_location);
    const SettingsDraft fifth(m_location);
    QCOMPARE(third.found().edits, QVector<DraftEdit>{portEdit("1")});
    QCOMPARE(fourth.found().edits, QVector<DraftEdit>{portEdit("2")});
    QVERIFY(fifth.found().edits.isEmpty());
}

void TestSettingsDraft::anotherDatabaseHasAnotherFile()
{
    SettingsDraft draft(m_location);
    QVERIFY(keep(draft, {portEdit("8080")}));
    const SettingsDraft other(DatabaseLocation::ofFile("/data/other.db"));
    QVERIFY(other.found().edits.isEmpty());
    const SettingsDraft server{DatabaseLocation("postgresql://vx@db/vx")};
    QVERIFY(server.found().edits.isEmpty());
}

void TestSettingsDraft::aFileThatIsNoDraft_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut off") << QByteArray(R"({"format": "vxsettings-draft", )");
    QTest::newRow("another version") << QByteArray(
        R"({"format": "vxsettings-draft", "version": 2, "database": "/data/installation.db"})");
    QTest::newRow("another database") << QByteArray(
        R"({"format": "vxsettings-draft", "version": 1, "database": "/data/other.db"})");
}

void TestSettingsDraft::aFileThatIsNoDraft()
{
    QFETCH(QByteArray, content);
    {
        SettingsDraft draft(m_location);
        draft.keep({portEdit("8080")});
    }
    QFile file(onlyFile());
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(content);
    file.close();

    SettingsDraft draft(m_location);
    QVERIFY(draft.found().edits.isEmpty());
    QVERIFY(draft.found().problem.contains(file.fileName()));
    QVERIFY(keep(draft, {portEdit("9090")}));
    QVERIFY(this->content().contains("9090"));
}

void TestSettingsDraft::aFolderThatCannotBeWrittenIsTold()
{
    QFile obstacle(m_home->path() + "/vxsettings");
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    SettingsDraft draft(m_location);
    QSignalSpy failed(&draft, &SettingsDraft::failed);
    QSignalSpy written(&draft, &SettingsDraft::written);
    draft.keep({portEdit("1")});
    QVERIFY(failed.wait());
    QVERIFY(failed.first().first().toString().contains(folder()));
    QCOMPARE(written.count(), 0);

    QVERIFY(obstacle.remove());
    QVERIFY(keep(draft, {portEdit("2")}));
    QVERIFY(content().contains(R"("text": "2")"));
    QCOMPARE(failed.count(), 1);
}

void TestSettingsDraft::standing_data()
{
    QTest::addColumn<DraftEdit>("edit");
    QTest::addColumn<QString>("stored");
    QTest::addColumn<qint64>("revision");
    QTest::addColumn<Standing>("standing");

    const DraftEdit port = portEdit("8080"); // of "80", which was revision 3
    QTest::newRow("untouched") << port << "80" << qint64(3) << Standing::Current;
    QTest::newRow("there and back again") << port << "80" << qint64(5) << Standing::Current;
    QTest::newRow("already stored") << port << "8080" << qint64(4) << Standing::Done;
    QTest::newRow("changed by somebody else") << port << "90" << qint64(4) << Standing::Changed;
    QTest::newRow("deleted by somebody else") << port << QString() << qint64(4) << Standing::Changed;
    QTest::newRow("another text of the same revision") << port << "90" << qint64(3) << Standing::Foreign;
    QTest::newRow("an older database") << port << "80" << qint64(2) << Standing::Foreign;
    QTest::newRow("no such key") << DraftEdit{{"PT_OTHER"}, "1", "0", 1} << "0" << qint64(1) << Standing::Unknown;
    QTest::newRow("a member that nobody has touched")
        << DraftEdit{{PIN_STRENGTH, "min_len"}, "6", "4", 3} << R"({"min_len": "4", "max_len": "9"})" << qint64(4)
        << Standing::Current;
    QTest::newRow("a changed member") << DraftEdit{{PIN_STRENGTH, "min_len"}, "6", "4", 3} << R"({"min_len": "5"})"
                                      << qint64(4) << Standing::Changed;
    QTest::newRow("an empty text came where nothing was")
        << DraftEdit{{MOBILE_HOST}, "x", QString(), 0} << "" << qint64(1) << Standing::Changed;
    QTest::newRow("a new setting") << DraftEdit{{MOBILE_PORT}, "1", QString(), 0} << QString() << qint64(0)
                                   << Standing::Current;
}

void TestSettingsDraft::standing()
{
    QFETCH(DraftEdit, edit);
    QFETCH(QString, stored);
    QFETCH(qint64, revision);
    Installation installation;
    if (!stored.isNull())
        installation.settings.insert(edit.address.key, stored);
    installation.revisions.insert(edit.address.key, revision);
    QTEST(edit.standing(installation), "standing");
    QVERIFY(!DraftEdit::words(edit.standing(installation)).isEmpty());
}

void TestSettingsDraft::anEditKnowsWhatItStartsFrom()
{
    const Installation stored{{{MOBILE_PORT, "80"}, {PIN_STRENGTH, R"({"min_len": 4})"}}, {}, {{MOBILE_PORT, 3}}};
    QVERIFY(DraftEdit::of({MOBILE_PORT}, "81", stored) == (DraftEdit{{MOBILE_PORT}, "81", "80", 3}));
    QVERIFY(DraftEdit::of({PIN_STRENGTH, "min_len"}, "5", stored) ==
            (DraftEdit{{PIN_STRENGTH, "min_len"}, "5", "4", 0}));
    QVERIFY(DraftEdit::of({MOBILE_HOST}, "x", stored) == (DraftEdit{{MOBILE_HOST}, "x", QString(), 0}));
}

void TestSettingsDraft::anythingMakesADifference_data()
{
    QTest::addColumn<DraftEdit>("other");
    QTest::newRow("address") << DraftEdit{{MOBILE_HOST}, "81", "80", 3};
    QTest::newRow("text") << DraftEdit{{MOBILE_PORT}, "82", "80", 3};
    QTest::newRow("base") << DraftEdit{{MOBILE_PORT}, "81", "", 3};
    QTest::newRow("revision") << DraftEdit{{MOBILE_PORT}, "81", "80", 4};
}

void TestSettingsDraft::anythingMakesADifference()
{
    QFETCH(DraftEdit, other);
    const DraftEdit edit{{MOBILE_PORT}, "81", "80", 3};
    QVERIFY(edit == edit);
    QVERIFY(!(edit == other));
}

QTEST_MAIN(TestSettingsDraft)
#include "tst_settingsdraft.moc"
