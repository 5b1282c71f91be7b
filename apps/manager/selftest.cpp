#include "selftest.h"

#include "selftestsession.h"

#include <host/settingsstore.h>

#include <vxsettings/dbkeys.h>

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (file.open(QIODevice::ReadOnly))
        hash.addData(&file);
    return hash.result();
}

QStringList sorted(QStringList texts)
{
    texts.sort();
    return texts;
}
} // namespace

SelfTest::SelfTest(const QString &databasePath, QTextStream &out, QTextStream &err)
    : m_databasePath(databasePath)
    , m_out(out)
    , m_err(err)
    , m_workingCopy(m_folder.filePath(QStringLiteral("self-test.db")))
    , m_originalContent(contentOf(databasePath))
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
    if (error) {
        m_err << error->text() << '\n';
        return ExitDatabase;
    }
    testOriginal();
    m_out << (m_passed ? tr("Самопроверка пройдена.") : tr("Самопроверка НЕ пройдена.")) << '\n';
    m_out.flush();
    return m_passed ? ExitDone : ExitFailed;
}

std::optional<DatabaseError> SelfTest::makeWorkingCopy()
{
    if (QFileInfo::exists(m_databasePath)) {
        m_out << tr("Самопроверка на временной копии базы данных «%1».").arg(m_databasePath) << '\n';
        return SettingsStore::copy(m_databasePath, m_workingCopy);
    }
    m_out << tr("Самопроверка на новой временной базе данных: файла «%1» ещё нет.").arg(m_databasePath) << '\n';
    return SettingsStore().open(DatabaseLocation::ofFile(m_workingCopy));
}

std::optional<DatabaseError> SelfTest::testSaving()
{
    SelfTestSession::Values shown;
    {
        SelfTestSession session;
        if (auto error = session.open(m_workingCopy))
            return error;
        report(!session.controller().hasChanges(),
               tr("построено страниц: %1, изменений в них нет").arg(session.pageCount()));

        const QStringList edited = sorted(session.editEverything());
        const QStringList noticed = sorted(session.controller().changes().keys());
        report(!edited.isEmpty() && edited == noticed,
               tr("изменено настроек: %1, замечено: %2").arg(edited.count()).arg(noticed.count()));

        shown = session.values();
        const SaveResult result = session.controller().save({true, {}});
        if (result.error)
            return result.error;
        report(result.isDone() && !session.controller().hasChanges(), tr("изменения сохранены одной транзакцией"));
    }
    SelfTestSession session;
    if (auto error = session.open(m_workingCopy))
        return error;
    report(session.values() == shown,
           tr("база данных перечитана, все параметры показаны такими, как сохранены: %1").arg(shown.count()));
    return {};
}

std::optional<DatabaseError> SelfTest::testReverting()
{
    SelfTestSession session;
    if (auto error = session.open(m_workingCopy))
        return error;
    const SelfTestSession::Values before = session.values();
    session.typeInto(db::database::MOBILE_HOST, QStringLiteral("x"));
    const bool noticed = session.controller().changes().keys() == QStringList{db::database::MOBILE_HOST};
    session.controller().revert();
    report(noticed && !session.controller().hasChanges() && session.values() == before, tr("набранный текст отменён"));
    return {};
}

std::optional<DatabaseError> SelfTest::testConflict()
{
    SelfTestSession mine;
    if (auto error = mine.open(m_workingCopy))
        return error;
    mine.typeInto(db::database::MOBILE_HOST, QStringLiteral("mine"));

    SettingsStore other;
    Installation before;
    if (auto error = other.open(DatabaseLocation::ofFile(m_workingCopy)))
        return error;
    if (auto error = other.load(before))
        return error;
    const auto theirs = QStringLiteral("theirs");
    const bool written = other.save({{db::database::MOBILE_HOST, theirs}}, before).isDone();
    const SaveResult refused = mine.controller().save();
    Installation after;
    if (auto error = other.load(after))
        return error;
    report(written && refused.outcome == SaveResult::Outcome::Conflicting &&
               after.settings.value(db::database::MOBILE_HOST) == theirs,
           tr("запись поверх чужого изменения не выполнена, чужое значение цело"));
    return {};
}

void SelfTest::testOriginal()
{
    report(contentOf(m_databasePath) == m_originalContent, tr("исходная база данных не тронута"));
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
