#pragma once

#include "objecttree.h"

#include <QAbstractItemModel>

/// The objects of one data name of LocalStorage, each with its name, its icon and its uid.
///
/// Follows LocalStorage::objectsChanged() by a change of layout, not by a reset: who holds a persistent index keeps the
/// object of that uid, and a view keeps what is expanded, selected and scrolled to. The index of an object that is gone
/// becomes invalid.
class VXWIDGETS_AUTOTEST_EXPORT ObjectModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Role {
        UidRole = Qt::UserRole ///< unsigned int
    };

    explicit ObjectModel(QObject *parent = nullptr);

    void setDataname(const QString &dataname);
    QString dataname() const { return m_dataname; }

    const ObjectTree &tree() const { return *m_tree; }
    /// Another one after each change of the tree.
    int revision() const { return m_revision; }
    /// ObjectTree::none for the invalid index, the top.
    static int numberAt(const QModelIndex &index)
    {
        return index.isValid() ? int(index.internalId()) : ObjectTree::none;
    }
    /// Invalid if no object has this uid.
    QModelIndex indexOf(unsigned int uid) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    using QObject::parent;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    bool hasChildren(const QModelIndex &parent = {}) const override;
    /// A record without a uid cannot be selected.
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    void load();
    /// Invalid for ObjectTree::none.
    QModelIndex indexAt(const ObjectTree &tree, int number) const;

    QString m_dataname;
    std::shared_ptr<const ObjectTree> m_tree;
    int m_revision = 0;
};
