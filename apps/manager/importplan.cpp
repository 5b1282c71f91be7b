#include "importplan.h"

#include <host/pageaccess.h>

#include <algorithm>

namespace {

using Row = ImportPlan::Row;
using State = ImportPlan::State;

/// Null if there is none; an empty text is one.
QString textOf(const vantorix::OBJECT_PARAMETERS &settings, const QString &key)
{
    const auto found = settings.find(key);
    if (found == settings.end())
        return {};
    return found->isNull() ? QStringLiteral("") : *found;
}

State stateOf(const SettingChange &change)
{
    if (!change.address.isKnown() && !PageAccess::isAbout(change.address))
        return State::Unknown;
    return change.after.isNull() ? State::Missing : State::Changed;
}

QVector<Row> rowsOf(const SettingsDifference::Row &difference, const QString &stored, const QString &wanted)
{
    const SettingChange whole{{difference.key}, stored, wanted};
    if (difference.state != State::Changed)
        return {{whole, difference.state, difference.error}};

    QVector<Row> rows;
    for (const SettingChange &change : SettingChange::between(difference.key, stored, wanted))
        rows.append({change, stateOf(change), {}});
    // Of a JSON setting only the way it is written may differ.
    return rows.isEmpty() ? QVector<Row>{{whole, State::Unchanged, {}}} : rows;
}
} // namespace

QVector<ImportPlan::Row> ImportPlan::rows(const vantorix::OBJECT_PARAMETERS &wanted,
                                          const vantorix::OBJECT_PARAMETERS &stored, const ObjectIndex &objects)
{
    QVector<Row> rows;
    for (const SettingsDifference::Row &difference : SettingsDifference::rows(wanted, stored, objects))
        rows += rowsOf(difference, textOf(stored, difference.key), textOf(wanted, difference.key));

    const QVector<SettingAddress> order = SettingAddress::all();
    const auto position = [&order](const Row &row) {
        const int index = order.indexOf(row.change.address);
        return index < 0 ? order.size() : index;
    };
    std::stable_sort(rows.begin(), rows.end(),
                     [&](const Row &left, const Row &right) { return position(left) < position(right); });
    return rows;
}

QVector<ImportPlan::Row> ImportPlan::locked(QVector<Row> rows, const PageAccess &access)
{
    for (Row &row : rows) {
        const QString &key = row.change.address.key;
        if (row.state != State::Changed || access.locked({key}).isEmpty())
            continue;
        row.state = State::Invalid;
        row.error =
            key == PageAccess::KEY ? tr("Меняется в окне «Доступ операторов»") : tr("Страница закрыта для операторов");
    }
    return rows;
}
