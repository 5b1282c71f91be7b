#include "historycommand.h"

#include "historywords.h"
#include "session.h"
#include "stampwords.h"
#include "texttable.h"

#include <host/pageaccess.h>

#include <QJsonArray>

using Records = QVector<HistoryRecord>;

namespace {

/// Of one @p member only, unless it is empty.
QString table(const Records &records, const QString &member)
{
    TextTable table({HistoryCommand::tr("РЕВИЗИЯ"), HistoryCommand::tr("КОГДА"), HistoryCommand::tr("КТО"),
                     HistoryCommand::tr("НАСТРОЙКА"), HistoryCommand::tr("БЫЛО"), HistoryCommand::tr("СТАЛО"),
                     HistoryCommand::tr("СОХРАНЕНИЕ"), HistoryCommand::tr("ПРИЧИНА")});
    for (const HistoryRecord &record : records) {
        for (const auto &[address, before, after] : HistoryWords::rows(record)) {
            if (member.isEmpty() || address.member == member)
                table.addRow({QString::number(record.revision), StampWords::time(record.stamp),
                              StampWords::who(record.stamp), address.text(), before, after, record.saveId,
                              record.reason});
        }
    }
    return table.text();
}

QJsonArray json(const Records &records, const QString &member)
{
    QJsonArray array;
    for (const HistoryRecord &record : records) {
        if (const auto row = HistoryWords::json(record, {record.key, member}))
            array.append(*row);
    }
    return array;
}
} // namespace

Report HistoryCommand::run(Session &session)
{
    if (auto failure = session.load())
        return *failure;
    const QString name = session.commandLine().arguments().value(0);
    const auto address = SettingAddress::fromText(name);
    Records records;
    if (auto failure = session.readHistory(address.key, records))
        return *failure;
    const QJsonArray rows = json(records, address.member);
    if (rows.isEmpty() && !name.isNull() && !address.isKnown() && !PageAccess::isAbout(address))
        return Report::failure(ExitDiffers, tr("Настройки «%1» нет.").arg(TextTable::visible(name)));

    Report report;
    report.text = rows.isEmpty() ? tr("Изменений не было.\n") : table(records, address.member);
    report.json.setArray(rows);
    return report;
}
