#include "listcommand.h"

#include "pagenames.h"
#include "session.h"
#include "texttable.h"
#include "valuewords.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

struct Row
{
    SettingAddress address;
    QString page; ///< null for a setting that is not in the catalogue
};

QVector<Row> pageRows(DBGroups page)
{
    QVector<Row> rows;
    for (const SettingAddress &address : SettingAddress::all()) {
        if (SettingAddress{address.key}.group() == page)
            rows.append({address, PageNames::name(page)});
    }
    return rows;
}

QVector<Row> unknownRows(const QHash<QString, QString> &settings)
{
    QStringList keys = settings.keys();
    keys.sort();
    QVector<Row> rows;
    for (const QString &key : qAsConst(keys)) {
        if (!SettingAddress{key}.isKnown())
            rows.append(Row{SettingAddress{key}, {}});
    }
    return rows;
}

QVector<Row> allRows(const QHash<QString, QString> &settings)
{
    QVector<Row> rows;
    for (const SettingsPageName &page : settingsPages)
        rows += pageRows(page.group);
    return rows + unknownRows(settings);
}

/// People read a JSON setting member by member, programs as one value.
QString table(const QVector<Row> &rows, const QHash<QString, QString> &settings)
{
    TextTable table({ListCommand::tr("КЛЮЧ"), ListCommand::tr("НАЗВАНИЕ"), ListCommand::tr("ЗНАЧЕНИЕ")});
    for (const auto &[address, page] : rows) {
        if (!address.isKnown() || !address.isJsonObject())
            table.addRow(
                {address.text(), ValueWords::caption(address), ValueWords::words(address, address.valueIn(settings))});
    }
    return table.text();
}

QJsonArray json(const QVector<Row> &rows, const QHash<QString, QString> &settings)
{
    QJsonArray array;
    for (const auto &[address, page] : rows) {
        if (!address.member.isEmpty())
            continue;
        QJsonObject row = ValueWords::json(address, {{QStringLiteral("value"), address.valueIn(settings)}});
        row.insert(QStringLiteral("group"), page);
        row.insert(QStringLiteral("caption"), ValueWords::caption(address));
        array.append(row);
    }
    return array;
}

Report report(const QVector<Row> &rows, const QHash<QString, QString> &settings)
{
    Report report;
    report.text = table(rows, settings);
    report.json.setArray(json(rows, settings));
    return report;
}
} // namespace

Report ListCommand::run(Session &session)
{
    if (auto failure = session.load())
        return *failure;
    const QString name = session.commandLine().arguments().value(0);
    if (name.isNull())
        return report(allRows(session.settings()), session.settings());
    if (const auto page = PageNames::find(name))
        return report(pageRows(*page), session.settings());
    return Report::failure(
        ExitDiffers,
        tr("Группы «%1» нет. Группы: %2.").arg(TextTable::visible(name), PageNames::all().join(QStringLiteral(", "))));
}
