#include <host/installationdatabase.h>

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QTextStream>
#include <QThread>
#include <QTimer>

#include <algorithm>

using namespace std::chrono_literals;
using vantorix::OBJECT_PARAMETERS;
using Outcome = SaveResult::Outcome;

namespace {

InstallationDatabase::Limits limits(std::chrono::milliseconds deadline)
{
    InstallationDatabase::Limits limits;
    limits.call = deadline;
    limits.firstRetry = 20ms;
    limits.lastRetry = 200ms;
    return limits;
}

QStringList keys()
{
    QStringList keys;
    for (int i = 1; i <= 20; ++i)
        keys << QStringLiteral("COUNTER_%1").arg(i);
    return keys;
}

/// Every setting of these, one higher than it was.
OBJECT_PARAMETERS increments(const QStringList &keys, const QHash<QString, QString> &settings)
{
    OBJECT_PARAMETERS changes;
    for (const QString &key : keys)
        changes.insert(key, QString::number(settings.value(key).toLongLong() + 1));
    return changes;
}

/// Whether a refusal tells what was there, what is there and by whom, from where and when, and what was to be there.
bool isComplete(const SettingConflict &conflict, const QHash<QString, QString> &loaded,
                const OBJECT_PARAMETERS &changes)
{
    const ChangeStamp &stamp = conflict.stamp;
    return conflict.loaded == loaded.value(conflict.key) && conflict.wanted == changes.value(conflict.key) &&
           conflict.stored.toLongLong() > conflict.loaded.toLongLong() && !stamp.by.isEmpty() &&
           !stamp.workstation.isEmpty() && stamp.program == QLatin1String("settingssaver") && stamp.at.isValid();
}

QString oneLine(const DatabaseError &error)
{
    return error.text().replace(QLatin1Char('\n'), QLatin1Char(' '));
}
} // namespace

/// Counts settings up, as a program with an event loop does, and tells of every save.
class Saver
{
public:
    Saver(const QString &url, bool all, int saves, quint32 seed, std::chrono::milliseconds patience,
          std::chrono::milliseconds deadline)
        : m_database(DatabaseLocation(url), InstallationDatabase::Missing::CreateSample, limits(deadline))
        , m_all(all)
        , m_left(saves)
        , m_random(seed)
        , m_name(QString::number(seed))
    {
        QObject::connect(&m_database, &InstallationDatabase::waiting, &m_database, [this](auto wait) {
            if (wait == InstallationDatabase::Wait::Resolving && !m_patience.isActive())
                m_patience.start();
        });
        m_patience.setSingleShot(true);
        m_patience.setInterval(patience);
        QObject::connect(&m_patience, &QTimer::timeout, &m_database, [this] { m_database.cancel(); });
    }

    void loadAndSave()
    {
        if (m_left == 0)
            return QCoreApplication::quit();
        m_database.load([this](const DatabaseResult<Installation> &result) {
            if (!result.error)
                return save(result.value);
            tell(QStringLiteral("unread ") + oneLine(*result.error));
            --m_left;
            loadAndSave();
        });
    }

private:
    void save(const Installation &base)
    {
        const OBJECT_PARAMETERS changes = increments(chosenKeys(), base.settings);
        const QString reason = QStringLiteral("%1-%2").arg(m_name).arg(++m_number);
        tell(QStringLiteral("saving ") + reason);
        m_database.save(changes, base, reason, [this, changes, base](const SaveResult &result) {
            m_patience.stop();
            conclude(result, changes, base);
            loadAndSave();
        });
    }

    void conclude(const SaveResult &result, const OBJECT_PARAMETERS &changes, const Installation &base)
    {
        const bool isBusy = result.error && result.error->kind == DatabaseError::Kind::Busy;
        if (!result.isDone() && !result.error) {
            tell(QStringLiteral("refused %1").arg(result.conflicts.count()));
        } else if (isBusy) {
            tell(QStringLiteral("busy"));
        } else {
            const bool isUnknown = result.outcome == Outcome::Unknown;
            const QString words = result.error ? oneLine(*result.error) : QString::number(changes.count());
            tell((result.isDone() ? "saved " : isUnknown ? "unknown " : "failed ") + words);
            --m_left;
        }
        for (const SettingConflict &conflict : result.conflicts) {
            if (!isComplete(conflict, base.settings, changes))
                tell(QStringLiteral("incomplete ") + conflict.key);
        }
    }

    /// 1 to 10 of the keys, or all of them.
    QStringList chosenKeys()
    {
        QStringList chosen = keys();
        if (m_all)
            return chosen;
        std::shuffle(chosen.begin(), chosen.end(), m_random);
        return chosen.mid(0, m_random.bounded(1, 11));
    }

    void tell(const QString &line) { m_out << line << '\n' << Qt::flush; }

    InstallationDatabase m_database;
    bool m_all;
    int m_left;
    QRandomGenerator m_random;
    QString m_name;
    int m_number = 0;
    QTimer m_patience;
    QTextStream m_out{stdout};
};

/// settingssaver DATABASE all|some SAVES SEED [PATIENCE [DEADLINE]]: counts settings up, 20 or 1 to 10 of them in a
/// save, until SAVES saves were stored or failed. A save whose outcome is not known PATIENCE milliseconds later is
/// given up. With a DEADLINE for calls, also in milliseconds, the program stays for another second, for what overran
/// it.
///
/// Prints a line before each save and one after it:
///
///   saving REASON     with which the history will have it
///   saved COUNT       settings
///   refused COUNT     because of so many conflicts; tried again
///   busy              somebody else was writing for too long; tried again
///   failed WORDS
///   unknown WORDS     it may or may not be stored
///   unread WORDS      nothing could be read, and nothing was to be saved
///   incomplete KEY    a conflict that does not tell everything
int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    const auto milliseconds = [&arguments](int position, int otherwise) {
        return std::chrono::milliseconds(position < arguments.size() ? arguments[position].toInt() : otherwise);
    };
    Saver saver(arguments[1], arguments[2] == QLatin1String("all"), arguments[3].toInt(), arguments[4].toUInt(),
                milliseconds(5, 30000), milliseconds(6, 30000));
    QTimer::singleShot(0, &application, [&saver] { saver.loadAndSave(); });
    const int status = QCoreApplication::exec();
    if (arguments.size() > 6)
        QThread::sleep(1);
    return status;
}
