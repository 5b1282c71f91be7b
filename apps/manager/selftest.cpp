#include "selftest.h"

#include "selftestsession.h"
#include "sessionwait.h"

#include <host/databasefile.h>
#include <host/settingsstore.h>

#include <vxsettings/dbkeys.h>

#include <QCryptographicHash>
#include <QFile>
#include <QTextStream>

namespace {

QStringList sorted(QStringList texts)
{
    texts.sort();
    return texts;
}

QByteArray hashOfFile(const QString &path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (file.open(QIODevice::ReadOnly))
        hash.addData(&file);
    return hash.result();
}

/// Every change leads to another revision.
QByteArray hashOf(const QHash<QString, qint64> &revisions)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    for (const QString &key : sorted(revisions.keys()))
        hash.addData(QStringLiteral("%1 %2\n").arg(key).arg(revisions.value(key)).toUtf8());
    return hash.result();
}

DatabaseResult<Installation> read(const DatabaseLocation &location)
{
    InstallationDatabase database(location);
    SettingsSession session(database);
    if (auto error = SessionWait::load(session))
        return *error;
    return session.stored();
}
} // namespace

SelfTest::SelfTest(const DatabaseLocation &database, QTextStream &out, QTextStream &err)
    : m_database(database)
    , m_out(out)
    , m_err(err)
    , m_workingCopy(m_folder.filePath(QStringLiteral("self-test.db")))
{}

ExitStatus SelfTest::run()
{
    auto error = makeWorkingCopy();
    if (!error)
        error = testSaving();
    if (!error)
        error = testReverting();
    if (!error)
        error = testConflict();
    if (!error)
        error = testOriginal();
    if (error) {
        m_err << error->text() << '\n';
        return ExitDatabase;
    }
    m_out << (m_passed ? tr("Самопроверка пройдена.") : tr("Самопроверка НЕ пройдена.")) << '\n';
    m_out.flush();
    return m_passed ? ExitDone : ExitFailed;
}

std::optional<DatabaseError> SelfTest::makeWorkingCopy()
{
    if (m_database.engine() == DatabaseLocation::Engine::PostgreSql)
        return copyServer();
    return copyFile();
}

std::optional<DatabaseError> SelfTest::copyFile()
{
    const QString path = m_database.filePath();
    const DatabaseFile file(path);
    // A pipe or a device would be read for ever.
    if (auto problem = file.exists() ? file.problem() : std::nullopt)
        return problem;
    m_originalContent = hashOfFile(path);
    if (file.exists()) {
        m_out << tr("Самопроверка на временной копии базы данных «%1».").arg(path) << '\n';
        return SettingsStore::copy(path, m_workingCopy);
    }
    m_out << tr("Самопроверка на новой временной базе данных: файла «%1» ещё нет.").arg(path) << '\n';
    return {};
}

std::optional<DatabaseError> SelfTest::copyServer()
{
    const DatabaseResult<Installation> original = read(m_database);
    if (original.error)
        return original.error;
    m_originalContent = hashOf(original.value.revisions);
    m_out << tr("Самопроверка на временной копии базы данных «%1».").arg(m_database.name()) << '\n';
    return SettingsStore::create(DatabaseLocation::ofFile(m_workingCopy), original.value);
}

std::optional<DatabaseError> SelfTest::testSaving()
{
    SelfTestSession::Values shown;
    {
        SelfTestSession session(m_workingCopy);
        if (auto error = session.open())
            return error;
        report(!session.settings().hasChanges(),
               tr("построено страниц: %1, изменений в них нет").arg(session.pageCount()));

        const QStringList edited = sorted(session.editEverything());
        const QStringList noticed = sorted(session.settings().changes().keys());
        report(!edited.isEmpty() && edited == noticed,
               tr("изменено настроек: %1, замечено: %2").arg(edited.count()).arg(noticed.count()));

        shown = session.values();
        const SaveResult result = session.save();
        if (result.error)
            return result.error;
        report(result.isDone() && !session.settings().hasChanges(), tr("изменения сохранены одной транзакцией"));
    }
    SelfTestSession session(m_workingCopy);
    if (auto error = session.open())
        return error;
    report(session.values() == shown,
           tr("база данных перечитана, все параметры показаны такими, как сохранены: %1").arg(shown.count()));
    return {};
}

std::optional<DatabaseError> SelfTest::testReverting()
{
    SelfTestSession session(m_workingCopy);
    if (auto error = session.open())
        return error;
    const SelfTestSession::Values before = session.values();
    session.typeInto(db::database::MOBILE_HOST, QStringLiteral("x"));
    const bool noticed = session.settings().changes().keys() == QStringList{db::database::MOBILE_HOST};
    session.settings().revert();
    report(noticed && !session.settings().hasChanges() && session.values() == before, tr("набранный текст отменён"));
    return {};
}

std::optional<DatabaseError> SelfTest::testConflict()
{
    SelfTestSession mine(m_workingCopy);
    SelfTestSession theirs(m_workingCopy);
    for (SelfTestSession *session : {&mine, &theirs}) {
        if (auto error = session->open())
            return error;
    }
    mine.typeInto(db::database::MOBILE_HOST, QStringLiteral("mine"));
    theirs.typeInto(db::database::MOBILE_HOST, QStringLiteral("theirs"));
    const SaveResult written = theirs.save();
    const SaveResult refused = mine.save();
    for (const SaveResult &result : {written, refused}) {
        if (result.error)
            return result.error;
    }

    const DatabaseResult<Installation> after = read(DatabaseLocation::ofFile(m_workingCopy));
    if (after.error)
        return after.error;
    report(written.isDone() && refused.outcome == SaveResult::Outcome::Conflicting &&
               after.value.settings.value(db::database::MOBILE_HOST).endsWith(QLatin1String("theirs")),
           tr("запись поверх чужого изменения не выполнена, чужое значение цело"));
    return {};
}

std::optional<DatabaseError> SelfTest::testOriginal()
{
    QByteArray content = hashOfFile(m_database.filePath());
    if (m_database.engine() == DatabaseLocation::Engine::PostgreSql) {
        const DatabaseResult<Installation> original = read(m_database);
        if (original.error)
            return original.error;
        content = hashOf(original.value.revisions);
    }
    report(content == m_originalContent, tr("исходная база данных не тронута"));
    return {};
}

void SelfTest::report(bool passed, const QString &what)
{
    //: As wide as the words for what failed, so that what follows stands in a column.
    const QString right = tr("  верно:  ");
    //: As wide as the words for what is right.
    const QString wrong = tr("  ОШИБКА: ");
    m_out << (passed ? right : wrong) << what << '\n';
    m_out.flush();
    m_passed = m_passed && passed;
}
