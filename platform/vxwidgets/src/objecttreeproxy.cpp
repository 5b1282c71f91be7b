#include "objectmodel.h"

#include <vxwidgets/objecttreeproxy.h>

#include <QScopedValueRollback>

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
    m_parentsRevision = -1;
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
    return m_types.isEmpty() || m_types.contains(m_objects->tree().record(number).type);
}

bool ObjectTreeProxy::hasShownChild(int number) const
{
    const ObjectTree &tree = m_objects->tree();
    if (tree.childCount(number) == 0)
        return false;
    // Mostly so, and then nobody looks at all objects to build a page.
    if (passes(tree.child(number, 0)))
        return true;
    if (m_parentsRevision != m_objects->revision())
        findParentsOfShown();
    return m_parentsOfShown[size_t(number)];
}

void ObjectTreeProxy::findParentsOfShown() const
{
    const ObjectTree &tree = m_objects->tree();
    m_parentsOfShown.assign(size_t(tree.count()), false);
    for (int number = 0; number < tree.count(); ++number) {
        if (!passes(number))
            continue;
        // Up to where another object has been already: everything above is marked.
        for (int parent = tree.parent(number); parent != ObjectTree::none && !m_parentsOfShown[size_t(parent)];
             parent = tree.parent(parent)) {
            m_parentsOfShown[size_t(parent)] = true;
            if (!m_acceptsParents || hides(tree.record(parent)))
                break;
        }
    }
    m_parentsRevision = m_objects->revision();
}

void ObjectTreeProxy::filterChanged()
{
    m_parentsRevision = -1;
    const QScopedValueRollback<bool> changing(m_isFilterChanging, true);
    invalidate();
}
