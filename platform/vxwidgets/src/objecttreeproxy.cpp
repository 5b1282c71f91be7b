#include "objectmodel.h"

#include <vxwidgets/objecttreeproxy.h>

#include <QScopedValueRollback>

#include <algorithm>

ObjectTreeProxy::ObjectTreeProxy(QObject *parent)
    : QSortFilterProxyModel(parent)
{}

void ObjectTreeProxy::setObjectTypeFilter(const QStringList &types)
{
    if (types == m_types)
        return;
    m_types = types;
    filterChanged();
}

void ObjectTreeProxy::setFilterAcceptsParents(bool accepts)
{
    if (accepts == m_acceptsParents)
        return;
    m_acceptsParents = accepts;
    filterChanged();
}

QModelIndex ObjectTreeProxy::indexOf(unsigned int uid) const
{
    if (!m_objects)
        return {};
    // The base class maps children of a hidden parent, too.
    const ObjectTree &tree = m_objects->tree();
    for (int number = tree.find(uid); number != ObjectTree::none; number = tree.parent(number)) {
        if (!isShown(number))
            return {};
    }
    return mapFromSource(m_objects->indexOf(uid));
}

void ObjectTreeProxy::setSourceModel(QAbstractItemModel *sourceModel)
{
    m_objects = qobject_cast<ObjectModel *>(sourceModel);
    m_verdictsRevision = -1;
    QSortFilterProxyModel::setSourceModel(sourceModel);
}

bool ObjectTreeProxy::hasChildren(const QModelIndex &parent) const
{
    // The base class would map the children of every node that is painted just to count them. But while the filter
    // changes, what it has mapped is what it still shows.
    if (!m_objects || !parent.isValid() || m_isFilterChanging)
        return QSortFilterProxyModel::hasChildren(parent);
    return hasShownChild(ObjectModel::numberAt(mapToSource(parent)));
}

Qt::ItemFlags ObjectTreeProxy::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QSortFilterProxyModel::flags(index);
    if (m_objects && index.isValid() && !isPassedType(ObjectModel::numberAt(mapToSource(index))))
        flags &= ~Qt::ItemIsSelectable;
    return flags;
}

bool ObjectTreeProxy::filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const
{
    return !m_objects || isShown(m_objects->tree().child(ObjectModel::numberAt(sourceParent), sourceRow));
}

bool ObjectTreeProxy::hides(const vantorix::ObjectRecord &) const
{
    return false;
}

bool ObjectTreeProxy::isShown(int number) const
{
    return passes(number) || (m_acceptsParents && !hides(m_objects->tree().record(number)) && hasShownChild(number));
}

bool ObjectTreeProxy::passes(int number) const
{
    return isPassedType(number) && !hides(m_objects->tree().record(number));
}

bool ObjectTreeProxy::isPassedType(int number) const
{
    const QString &type = m_objects->tree().record(number).type;
    return m_types.isEmpty() || std::find(m_types.cbegin(), m_types.cend(), type) != m_types.cend();
}

bool ObjectTreeProxy::hasShownChild(int number) const
{
    const ObjectTree &tree = m_objects->tree();
    const int childCount = tree.childCount(number);
    if (childCount == 0)
        return false;
    // Mostly so; then there is nothing to remember.
    if (passes(tree.child(number, 0)))
        return true;

    if (m_verdictsRevision != m_objects->revision()) {
        m_verdicts.assign(size_t(tree.count()), Unknown);
        m_verdictsRevision = m_objects->revision();
    }
    Verdict &verdict = m_verdicts[size_t(number)];
    for (int row = 0; verdict == Unknown && row < childCount; ++row) {
        if (isShown(tree.child(number, row)))
            verdict = HasShownChild;
    }
    if (verdict == Unknown)
        verdict = HasNoShownChild;
    return verdict == HasShownChild;
}

void ObjectTreeProxy::filterChanged()
{
    m_verdictsRevision = -1;
    const QScopedValueRollback<bool> changing(m_isFilterChanging, true);
    invalidate();
}
