#include "historywords.h"

#include "stampwords.h"
#include "storeddifference.h"
#include "valuewords.h"

namespace {

QHash<QString, QString> settings(const HistoryRecord &record, const QString &value)
{
    return value.isNull() ? QHash<QString, QString>() : QHash<QString, QString>{{record.key, value}};
}

QJsonValue orNull(const QString &text)
{
    return text.isNull() ? QJsonValue() : QJsonValue(text);
}
} // namespace

QVector<HistoryWords::Row> HistoryWords::rows(const HistoryRecord &record)
{
    const SettingAddress whole{record.key};
    if (ValueWords::isSecret(whole))
        return {{whole, tr("скрыто"), tr("скрыто")}};
    if (record.newValue.isNull())
        return {{whole, ValueWords::words(whole, record.oldValue), ValueWords::words(whole, {})}};
    const StoredDifference difference(settings(record, record.oldValue), settings(record, record.newValue));
    QVector<Row> rows;
    for (const auto &[address, before, after] : difference.rows())
        rows.append({address, ValueWords::words(address, before), ValueWords::words(address, after)});
    return rows;
}

std::optional<QJsonObject> HistoryWords::json(const HistoryRecord &record, const SettingAddress &address)
{
    const auto before = address.valueIn(settings(record, record.oldValue));
    const auto after = address.valueIn(settings(record, record.newValue));
    const bool isSecret = ValueWords::isSecret(address);
    if (before == after && !isSecret)
        return {};
    QJsonObject json = ValueWords::json(address, {{QStringLiteral("old"), before}, {QStringLiteral("new"), after}});
    if (isSecret)
        json.insert(QStringLiteral("hidden"), true);
    json.insert(QStringLiteral("revision"), record.revision);
    StampWords::insertInto(json, record.stamp);
    json.insert(QStringLiteral("program"), orNull(record.stamp.program));
    json.insert(QStringLiteral("save"), orNull(record.saveId));
    json.insert(QStringLiteral("reason"), orNull(record.reason));
    return json;
}
