#pragma once

#include <QAbstractItemModel>
#include <QStringList>

/// Describes a tree of objects for comparison: the uids of siblings in their order, children in parentheses, "-" after
/// a node that cannot be selected.
///
///     QCOMPARE(outline(model), QString("1(2- 3(4)) 5"));
inline QString outline(const QAbstractItemModel &model, const QModelIndex &parent = {})
{
    QStringList children;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex child = model.index(row, 0, parent);
        const QString below = outline(model, child);
        children << child.data(Qt::UserRole).toString() + (child.flags() & Qt::ItemIsSelectable ? "" : "-") +
                        (below.isEmpty() ? "" : "(" + below + ")");
    }
    return children.join(' ');
}

/// Whether each node tells beforehand if it has children.
inline bool announcesItsChildren(const QAbstractItemModel &model, const QModelIndex &parent = {})
{
    if (model.hasChildren(parent) != (model.rowCount(parent) > 0))
        return false;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        if (!announcesItsChildren(model, model.index(row, 0, parent)))
            return false;
    }
    return true;
}
