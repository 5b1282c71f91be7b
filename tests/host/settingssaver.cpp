#include <host/settingsstore.h>

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QTextStream>

#include <algorithm>

using vantorix::OBJECT_PARAMETERS;

namespace {

QStringList keys()
{
    QStringList keys;
    for (int i = 1; i <= 20; ++i)
        keys << QStringLiteral("COUNTER_%1").arg(i);
    return keys;
}

/// 1 to 10 of the keys, or all of them.
QStringList chosenKeys(bool all, QRandomGenerator &random)
{
    QStringList chosen = keys();
    if (all)
        return chosen;
    std::shuffle(chosen.begin(), chosen.end(), random);
    return chosen.mid(0, random.bounded(1, 11));
}

/// Every setting of these, one higher than it was.
OBJECT_PARAMETERS increments(const QStringList &keys, const QHash<QString, QString> &settings)
{
    OBJECT_PARAMETERS changes;
    for (const QString &key : keys)
        changes.insert(key, QString::number(settings.value(key).toLongLong() + 1));
    return changes;
}

/// Whether a refusal tells what was there, what is there and by whom, and what was to be there.
bool isComplete(const SettingConflict &conflict, const QHash<QString, QString> &loaded,
                const OBJECT_PARAMETERS &changes)
{
    return conflict.loaded == loaded.value(conflict.key) && conflict.wanted == changes.value(conflict.key) &&
           conflict.stored.toLongLong() > conflict.loaded.toLongLong() && !conflict.stamp.by.isEmpty();
}
} // namespace

/// settingssaver DATABASE all|some SAVES SEED: counts settings up, 20 or 1 to 10 of them in a save, until SAVES saves
/// were acknowledged. Each acknowledgement is a line with the number of settings, each refusal a line with a minus sign
/// and the number of conflicts, "incomplete" one that does not tell everything.
int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    const bool all = arguments[2] == QLatin1String("all");
    QRandomGenerator random(arguments[4].toUInt());
    QTextStream out(stdout);

    SettingsStore store;
    if (store.open(DatabaseLocation::ofFile(arguments[1])))
        return 1;
    for (int saved = 0; saved < arguments[3].toInt();) {
        Installation loaded;
        if (store.load(loaded))
            return 2;
        const OBJECT_PARAMETERS changes = increments(chosenKeys(all, random), loaded.settings);
        const SaveResult result = store.save(changes, loaded);
        if (result.isDone()) {
            ++saved;
            out << changes.count() << '\n' << Qt::flush;
        }
        if (!result.conflicts.isEmpty())
            out << -result.conflicts.count() << '\n';
        for (const SettingConflict &conflict : result.conflicts) {
            if (!isComplete(conflict, loaded.settings, changes))
                out << "incomplete\n";
        }
        // A writer that had to wait too long tries again; any other failure ends the program.
        if (result.error && !result.error->reason.startsWith(QStringLiteral("База данных занята")))
            return 3;
    }
    return 0;
}
