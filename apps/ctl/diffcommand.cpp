#include "diffcommand.h"

#include "session.h"
#include "settingsfile.h"
#include "texttable.h"
#include "valuewords.h"

#include <host/settingsdifference.h>

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

using vantorix::OBJECT_PARAMETERS;
using State = SettingsDifference::State;

namespace {

struct StateText
{
    State state;
    const char *name;
    const char *words;
};

// clang-format off
constexpr StateText stateTexts[] = {
    {State::Changed, "changed", QT_TRANSLATE_NOOP("DiffCommand", "отличается")},
    {State::Unknown, "unknown", QT_TRANSLATE_NOOP("DiffCommand", "нет в каталоге")},
    {State::Invalid, "invalid", QT_TRANSLATE_NOOP("DiffCommand", "недопустимо")},
    {State::Missing, "missing", QT_TRANSLATE_NOOP("DiffCommand", "нет в файле")},
};
// clang-format on

std::optional<QString> value(const OBJECT_PARAMETERS &settings, const QString &key)
{
    const auto found = settings.find(key);
    return found == settings.end() ? std::nullopt : std::optional(*found);
}
} // namespace

Report DiffCommand::run(Session &session)
{
    if (auto failure = session.load())
        return *failure;
    OBJECT_PARAMETERS wanted;
    if (auto failure = SettingsFile(session.commandLine().arguments().constFirst()).read(wanted))
        return *failure;

    TextTable table({tr("КЛЮЧ"), tr("ОТЛИЧИЕ"), tr("СОХРАНЕНО"), tr("В ФАЙЛЕ")});
    QJsonArray rows;
    for (const auto &row : SettingsDifference::rows(wanted, session.settings(), session.objects())) {
        const auto text = std::find_if(std::begin(stateTexts), std::end(stateTexts),
                                       [&row](const StateText &known) { return known.state == row.state; });
        if (text == std::end(stateTexts))
            continue; // unchanged
        const SettingAddress address{row.key};
        const auto stored = value(session.settings(), row.key);
        const auto inFile = value(wanted, row.key);
        table.addRow(
            {row.key, tr(text->words), ValueWords::words(address, stored), ValueWords::words(address, inFile)});
        QJsonObject json =
            ValueWords::json(address, {{QStringLiteral("stored"), stored}, {QStringLiteral("file"), inFile}});
        json.insert(QStringLiteral("state"), QLatin1String(text->name));
        json.insert(QStringLiteral("error"), row.error.isNull() ? QJsonValue() : row.error);
        rows.append(json);
    }
    Report report;
    report.status = rows.isEmpty() ? ExitDone : ExitDiffers;
    report.text = rows.isEmpty() ? tr("Отличий нет.\n") : table.text();
    report.json.setArray(rows);
    return report;
}
