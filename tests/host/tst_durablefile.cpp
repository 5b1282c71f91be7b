#include <host/durablefile.h>

#include "messages.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

using Readers = DurableFile::Readers;

class TestDurableFile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void aNewFile();
    void anOldFileIsReplaced();
    void anOpenReaderKeepsTheOldBytes();
    void onlyTheOwnerReads_data();
    void onlyTheOwnerReads();
    void aLinkIsFollowed();
    void refused_data();
    void refused();

private:
    QString path(const QString &name = "file") const { return m_folder->filePath(name); }
    QByteArray bytes() const;
    mode_t mode() const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestDurableFile::initTestCase()
{
    failOnUnexpectedMessages();
}

void TestDurableFile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

void TestDurableFile::cleanup()
{
    m_folder.reset();
}

QByteArray TestDurableFile::bytes() const
{
    QFile file(path());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

mode_t TestDurableFile::mode() const
{
    struct stat status;
    return ::stat(QFile::encodeName(path()).constData(), &status) == 0 ? status.st_mode & 0777 : 0;
}

void TestDurableFile::aNewFile()
{
    QVERIFY(!DurableFile::write(path(), "new", Readers::AsUsual));
    QCOMPARE(bytes(), QByteArray("new"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files | QDir::Hidden), QStringList{"file"});
}

void TestDurableFile::anOldFileIsReplaced()
{
    QVERIFY(!DurableFile::write(path(), "something longer", Readers::AsUsual));
    QVERIFY(!DurableFile::write(path(), "new", Readers::AsUsual));
    QCOMPARE(bytes(), QByteArray("new"));
}

void TestDurableFile::anOpenReaderKeepsTheOldBytes()
{
    QVERIFY(!DurableFile::write(path(), "old", Readers::AsUsual));
    QFile reader(path());
    QVERIFY(reader.open(QIODevice::ReadOnly));
    QVERIFY(!DurableFile::write(path(), "new", Readers::AsUsual));
    QCOMPARE(reader.readAll(), QByteArray("old"));
}

void TestDurableFile::onlyTheOwnerReads_data()
{
    QTest::addColumn<bool>("existsForAll");
    QTest::addColumn<Readers>("readers");
    QTest::addColumn<uint>("mode");

    QTest::newRow("new, as usual") << false << Readers::AsUsual << 0644u;
    QTest::newRow("new, owner only") << false << Readers::OwnerOnly << 0600u;
    QTest::newRow("old for all, as it was") << true << Readers::AsUsual << 0666u;
    QTest::newRow("old for all, owner only") << true << Readers::OwnerOnly << 0600u;
}

Q_DECLARE_METATYPE(DurableFile::Readers)

void TestDurableFile::onlyTheOwnerReads()
{
    QFETCH(bool, existsForAll);
    QFETCH(Readers, readers);
    const mode_t mask = ::umask(022);
    if (existsForAll) {
        QFile old(path());
        QVERIFY(old.open(QIODevice::WriteOnly));
        QCOMPARE(::fchmod(old.handle(), 0666), 0);
    }
    const auto problem = DurableFile::write(path(), "bytes", readers);
    ::umask(mask);
    QVERIFY(!problem);
    QTEST(uint(mode()), "mode");
}

void TestDurableFile::aLinkIsFollowed()
{
    QVERIFY(QDir(m_folder->path()).mkdir("elsewhere"));
    QVERIFY(QFile::link(path("elsewhere/target"), path()));
    QFile target(path("elsewhere/target"));
    QVERIFY(target.open(QIODevice::WriteOnly));
    target.close();
    QVERIFY(!DurableFile::write(path(), "new", Readers::AsUsual));
    QVERIFY(QFileInfo(path()).isSymLink());
    QVERIFY(target.open(QIODevice::ReadOnly));
    QCOMPARE(target.readAll(), QByteArray("new"));
}

void TestDurableFile::refused_data()
{
    QTest::addColumn<QString>("place");
    QTest::addColumn<QString>("reason");

    QTest::newRow("folder") << ""
                            << "это не обычный файл";
    QTest::newRow("pipe") << "pipe"
                          << "это не обычный файл";
    QTest::newRow("in a folder that is missing") << "missing/file"
                                                 << "Не удаётся записать файл";
}

void TestDurableFile::refused()
{
    QFETCH(QString, place);
    QFETCH(QString, reason);
    QCOMPARE(::mkfifo(QFile::encodeName(path("pipe")).constData(), 0600), 0);
    const QString refusedPath = place.isEmpty() ? m_folder->path() : path(place);
    const auto problem = DurableFile::write(refusedPath, "bytes", Readers::AsUsual);
    QVERIFY(problem);
    QVERIFY2(problem->contains(reason) && problem->contains(refusedPath), qPrintable(*problem));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot),
             QStringList{"pipe"});
}

QTEST_MAIN(TestDurableFile)
#include "tst_durablefile.moc"
