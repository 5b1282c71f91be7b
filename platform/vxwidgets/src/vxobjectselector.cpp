#include "objectmodel.h"

#include <vxwidgets/objecttreeproxy.h>
#include <vxwidgets/vxobjectselector.h>

#include <QSignalBlocker>

VXObjectSelector::VXObjectSelector(QWidget *parent)
    : VXTreeBox(modelComesLater, parent)
    , m_objects(new ObjectModel(this))
{
    connect(this, qOverload<int>(&QComboBox::currentIndexChanged), this, &VXObjectSelector::followChoice);
}

void VXObjectSelector::setProxyModel(ObjectTreeProxy *proxy)
{
    if (!proxy || proxy == model())
        return;

    proxy->setSourceModel(m_objects);
    connect(proxy, &QAbstractItemModel::layoutChanged, this, &VXObjectSelector::followObjects);
    const QSignalBlocker blocker(this);
    setModel(proxy); // chooses the first row
    followObjects();
}

ObjectTreeProxy *VXObjectSelector::proxyModel() const
{
    return qobject_cast<ObjectTreeProxy *>(model());
}

void VXObjectSelector::setDataname(const QString &dataname)
{
    m_objects->setDataname(dataname);
}

QString VXObjectSelector::dataname() const
{
    return m_objects->dataname();
}

void VXObjectSelector::setCurrentUid(unsigned int uid)
{
    const QModelIndex index = choosableIndex(uid);
    const bool isMissing = m_uid && !currentModelIndex().isValid();
    if (isMissing && uid == m_uid)
        return;

    m_wantedUid = uid;
    m_uid = index.isValid() ? uid : 0;
    setCurrentModelIndex(index);
    // The base class has nothing to report if a missing object is given up.
    if (isMissing && !index.isValid())
        Q_EMIT currentIndexChanged(-1);
}

QModelIndex VXObjectSelector::choosableIndex(unsigned int uid) const
{
    const QModelIndex index = proxyModel() ? proxyModel()->indexOf(uid) : QModelIndex();
    return (index.flags() & Qt::ItemIsSelectable) ? index : QModelIndex();
}

void VXObjectSelector::followChoice()
{
    const unsigned int uid = currentModelIndex().data(ObjectModel::UidRole).toUInt();
    if (uid == m_uid)
        return;
    m_uid = uid;
    m_wantedUid = uid;
}

void VXObjectSelector::followObjects()
{
    const QModelIndex index = choosableIndex(m_wantedUid);
    if (index.isValid())
        m_uid = m_wantedUid;
    const QSignalBlocker blocker(this);
    setCurrentModelIndex(index);
    update();
}
