#include "objectmodel.h"

#include <QIcon>

using vantorix::LocalStorage;
using vantorix::ObjectRecord;

ObjectModel::ObjectModel(QObject *parent)
    : QAbstractItemModel(parent)
    , m_tree(ObjectTree::of(m_dataname))
{
    connect(LocalStorage::instance(), &LocalStorage::objectsChanged, this, [this](const QString &dataname) {
        if (dataname == m_dataname)
            load();
    });
}

void ObjectModel::setDataname(const QString &dataname)
{
    if (dataname == m_dataname)
        return;
    m_dataname = dataname;
    load();
}

QModelIndex ObjectModel::indexOf(unsigned int uid) const
{
    return indexAt(*m_tree, m_tree->find(uid));
}

QModelIndex ObjectModel::index(int row, int column, const QModelIndex &parent) const
{
    const int parentNumber = numberAt(parent);
    if (row < 0 || row >= m_tree->childCount(parentNumber) || column != 0)
        return {};
    return createIndex(row, 0, quintptr(m_tree->child(parentNumber, row)));
}

QModelIndex ObjectModel::parent(const QModelIndex &index) const
{
    return index.isValid() ? indexAt(*m_tree, m_tree->parent(numberAt(index))) : QModelIndex();
}

int ObjectModel::rowCount(const QModelIndex &parent) const
{
    return m_tree->childCount(numberAt(parent));
}

int ObjectModel::columnCount(const QModelIndex &) const
{
    return 1;
}

bool ObjectModel::hasChildren(const QModelIndex &parent) const
{
    return rowCount(parent) > 0;
}

Qt::ItemFlags ObjectModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return {};
    Qt::ItemFlags flags = Qt::ItemIsEnabled;
    flags.setFlag(Qt::ItemIsSelectable, m_tree->record(numberAt(index)).uid != 0);
    flags.setFlag(Qt::ItemNeverHasChildren, !hasChildren(index));
    return flags;
}

QVariant ObjectModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const ObjectRecord &record = m_tree->record(numberAt(index));
    switch (role) {
    case Qt::DisplayRole:
        return record.name;
    case Qt::DecorationRole:
        return QIcon::fromTheme(QLatin1String("object-") + record.type);
    case UidRole:
        return record.uid;
    default:
        return {};
    }
}

void ObjectModel::load()
{
    const auto tree = ObjectTree::of(m_dataname);
    Q_EMIT layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    for (const QModelIndex &index : before)
        after << indexAt(*tree, tree->find(m_tree->record(numberAt(index)).uid));
    m_tree = tree;
    ++m_revision;
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged();
}

QModelIndex ObjectModel::indexAt(const ObjectTree &tree, int number) const
{
    return number == ObjectTree::none ? QModelIndex() : createIndex(tree.row(number), 0, quintptr(number));
}
