#include "session.h"

#include "interruption.h"
#include "stampwords.h"
#include "valuewords.h"
#include "waitnotices.h"

#include <host/pageaccesswords.h>

#include <QEventLoop>
#include <QJsonArray>
#include <QJsonObject>

#include <memory>

using vantorix::OBJECT_PARAMETERS;
using Outcome = SaveResult::Outcome;

Session::Session(const CommandLine &commandLine)
    : m_commandLine(commandLine)
    , m_database(DatabaseLocation::chosen(commandLine.database()))
    , m_objects({})
{}

const CommandLine &Session::commandLine() const
{
    return m_commandLine;
}

InstallationDatabase &Session::database()
{
    return m_database;
}

std::optional<Report> Session::locationProblem() const
{
    if (m_database.location().isValid())
        return {};
    return Report::failure(ExitUsage, m_database.location().problem());
}

std::optional<Report> Session::create(const Installation &content)
{
    if (auto problem = locationProblem())
        return problem;
    const auto result = await<DatabaseResult<int>>(
        [this, &content](const auto &done) { m_database.create(content, done); }, Interrupted::WaitsForTheEnd);
    return result->error ? std::optional(failure(*result->error)) : std::nullopt;
}

std::optional<Report> Session::load()
{
    if (auto problem = locationProblem())
        return problem;
    Installation installation;
    if (auto problem = read<Installation>(installation, [this](const auto &done) { m_database.load(done); }))
        return problem;
    m_objects = ObjectIndex(installation.objects);
    return {};
}

const QHash<QString, QString> &Session::settings() const
{
    return m_database.installation().settings;
}

const ObjectIndex &Session::objects() const
{
    return m_objects;
}

std::optional<Report> Session::readHistory(const QString &key, QVector<HistoryRecord> &records)
{
    return read<QVector<HistoryRecord>>(records, [this, &key](const auto &done) { m_database.history(key, done); });
}

std::optional<Report> Session::readTextAt(const QString &key, qint64 revision, QString &text)
{
    return read<QString>(text, [&](const auto &done) { m_database.textAt(key, revision, done); });
}

std::optional<Report> Session::save(const OBJECT_PARAMETERS &changes)
{
    const auto result = await<SaveResult>(
        [this, &changes](const auto &done) { m_database.save(orderOf(changes), done); }, Interrupted::WaitsForTheEnd);
    if (result->isDone())
        return {};
    if (result->outcome == Outcome::Conflicting)
        return conflictReport(result->conflicts);
    if (result->outcome == Outcome::Forbidden)
        return Report::failure(ExitInvalid,
                               tr("Ничего не сохранено.\n%1").arg(PageAccessWords::refusal(result->forbiddenKeys)));
    if (result->outcome == Outcome::Unknown)
        return unknownReport(*result);
    return failure(result->error.value_or(DatabaseError()));
}

Authority Session::authority() const
{
    return m_commandLine.isSet(Option::AsAdministrator) ? Authority::Administrator : Authority::Operator;
}

SaveOrder Session::orderOf(const OBJECT_PARAMETERS &changes) const
{
    return {changes, m_database.installation(), m_commandLine.reason(), authority()};
}

template <typename Result>
std::optional<Result> Session::await(const Call<Result> &call, Interrupted interrupted)
{
    struct Waiting
    {
        QEventLoop loop;
        std::optional<Result> result;
    };
    const auto waiting = std::make_shared<Waiting>(); // an answer can come when nobody waits for it any more
    const WaitNotices notices(m_database);
    const Interruption interruption;
    QObject::connect(&interruption, &Interruption::requested, &m_database, &InstallationDatabase::cancel);
    if (interrupted == Interrupted::GivesUp)
        QObject::connect(&interruption, &Interruption::requested, &waiting->loop, &QEventLoop::quit);
    call([waiting](const Result &result) {
        waiting->result.emplace(result);
        waiting->loop.quit();
    });
    waiting->loop.exec();
    const bool isGivenUp = interrupted == Interrupted::GivesUp && interruption.isRequested();
    return isGivenUp ? std::nullopt : waiting->result;
}

template <typename Value>
std::optional<Report> Session::read(Value &value, const Call<DatabaseResult<Value>> &call)
{
    const auto result = await<DatabaseResult<Value>>(call, Interrupted::GivesUp);
    if (!result)
        return Report::failure(ExitDatabase, tr("Прервано."));
    if (result->error)
        return failure(*result->error);
    value = result->value;
    return {};
}

Report Session::failure(const DatabaseError &error)
{
    DatabaseError advised = error;
    if (error.kind == DatabaseError::Kind::Missing)
        advised.advice = tr("Проверьте параметр --database или создайте базу данных: vxsettingsctl init.");
    return Report::failure(ExitDatabase, advised.text());
}

Report Session::conflictReport(const QVector<SettingConflict> &conflicts) const
{
    QStringList lines{tr("Ничего не сохранено: настройки одновременно изменил кто-то другой.")};
    QJsonArray rows;
    for (const SettingConflict &conflict : conflicts) {
        const SettingAddress address{conflict.key};
        lines.append(tr("%1: было %2, сейчас %3 (%4), вы задаёте %5")
                         .arg(conflict.key, ValueWords::words(address, conflict.loaded),
                              ValueWords::words(address, conflict.stored), StampWords::sentence(conflict.stamp),
                              ValueWords::words(address, conflict.wanted)));
        QJsonObject row = ValueWords::json(address, {{QStringLiteral("base"), conflict.loaded},
                                                     {QStringLiteral("theirs"), conflict.stored},
                                                     {QStringLiteral("mine"), conflict.wanted}});
        StampWords::insertInto(row, conflict.stamp);
        rows.append(row);
    }
    Report report = Report::failure(ExitConflict, lines.join(QLatin1Char('\n')));
    QJsonObject json = report.json.object();
    json.insert(QStringLiteral("conflicts"), rows);
    report.json.setObject(json);
    return report;
}

Report Session::unknownReport(const SaveResult &result) const
{
    const QString reason = result.error ? result.error->text() : QString();
    Report report = Report::failure(
        ExitDatabase,
        tr("Неизвестно, сохранены ли изменения.\n%1\nКогда связь восстановится, посмотрите: vxsettingsctl "
           "history. Если сохранение %2 там есть, изменения сохранены все, иначе не сохранено ни одно.")
            .arg(reason, result.saveId));
    QJsonObject json = report.json.object();
    json.insert(QStringLiteral("save"), result.saveId);
    report.json.setObject(json);
    return report;
}
