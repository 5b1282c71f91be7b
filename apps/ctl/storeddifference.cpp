#include "storeddifference.h"

#include "valuewords.h"

#include <host/jsonmembers.h>

namespace {

std::optional<QString> value(const QHash<QString, QString> &settings, const QString &key)
{
    const auto found = settings.find(key);
    return found == settings.end() ? std::nullopt : std::optional(*found);
}

std::optional<JsonMembers> members(const SettingAddress &address, const std::optional<QString> &text)
{
    const bool isObject = address.isKnown() && address.isJsonObject();
    return isObject && text ? JsonMembers::fromText(*text) : std::nullopt;
}

/// As people read it; an array, an object and null as they are written.
std::optional<QString> memberValue(const JsonMembers &members, const QString &name)
{
    const QStringList written = members.written(name);
    if (written.isEmpty())
        return {};
    return members.scalar(name).value_or(written.last());
}
} // namespace

StoredDifference::StoredDifference(const QHash<QString, QString> &before, const QHash<QString, QString> &after)
{
    QStringList keys = after.keys();
    keys.sort();
    for (const QString &key : qAsConst(keys)) {
        const Row whole{{key}, value(before, key), value(after, key)};
        if (whole.before != whole.after)
            addRows(whole);
    }
}

bool StoredDifference::isEmpty() const
{
    return m_rows.isEmpty();
}

const QVector<StoredDifference::Row> &StoredDifference::rows() const
{
    return m_rows;
}

QString StoredDifference::text() const
{
    QString text;
    for (const Row &row : m_rows) {
        const QString caption = ValueWords::caption(row.address);
        //: A key and its caption.
        const QString name = caption.isEmpty() ? row.address.text() : tr("%1 (%2)").arg(row.address.text(), caption);
        text += QStringLiteral("%1: %2 → %3\n")
                    .arg(name, ValueWords::words(row.address, row.before), ValueWords::words(row.address, row.after));
    }
    return text;
}

QJsonArray StoredDifference::json() const
{
    QJsonArray rows;
    for (const Row &row : m_rows) {
        QJsonObject json =
            ValueWords::json(row.address, {{QStringLiteral("old"), row.before}, {QStringLiteral("new"), row.after}});
        json.insert(QStringLiteral("caption"), ValueWords::caption(row.address));
        rows.append(json);
    }
    return rows;
}

void StoredDifference::addRows(const Row &whole)
{
    const auto before = members(whole.address, whole.before);
    const auto after = members(whole.address, whole.after);
    const int count = m_rows.size();
    if (before && after) {
        QStringList names = before->names() + after->names();
        names.sort();
        names.removeDuplicates();
        for (const QString &name : qAsConst(names)) {
            if (before->written(name) != after->written(name))
                m_rows.append({{whole.address.key, name}, memberValue(*before, name), memberValue(*after, name)});
        }
    }
    // Another text with equal members is still another text.
    if (m_rows.size() == count)
        m_rows.append(whole);
}
