#pragma once

#include <vxwidgets/vxwidgets_export.h>

#include <QPointer>
#include <QSortFilterProxyModel>
#include <QStringList>

#include <vector>

class ObjectModel;

namespace vantorix {
struct ObjectRecord;
}

/// Shows a part of the objects that a VXObjectSelector puts below it, chosen by their type.
///
/// What is shown follows from the objects alone: the text filter of the base class is not asked. Any change of the
/// filter is a change of layout, so persistent indexes stay with their object. Source models other than that of a
/// VXObjectSelector are shown as they are.
class VXWIDGETS_EXPORT ObjectTreeProxy : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    /// Lets all types pass; @p parent owns it.
    explicit ObjectTreeProxy(QObject *parent = nullptr);

    /// Only objects of these types can be chosen, compared case-sensitively. An empty list, the default, lets all pass.
    void setObjectTypeFilter(const QStringList &types);
    /// What setObjectTypeFilter() was given.
    QStringList objectTypeFilter() const { return m_types; }

    /// What becomes of an object of another type. With true, it is shown for the sake of a shown child, but not
    /// selectable. With false, the default, it is hidden together with everything below it.
    void setFilterAcceptsParents(bool accepts);
    /// What setFilterAcceptsParents() was given.
    bool filterAcceptsParents() const { return m_acceptsParents; }

    /// The index of an object in this model; invalid if no shown object has this uid.
    QModelIndex indexOf(unsigned int uid) const;

    /// Called by VXObjectSelector::setProxyModel().
    void setSourceModel(QAbstractItemModel *sourceModel) override;
    /// Whether anything below @p parent is shown.
    bool hasChildren(const QModelIndex &parent = {}) const override;
    /// Those of the object, but not selectable if it is shown only for the sake of a child.
    Qt::ItemFlags flags(const QModelIndex &index) const override;

protected:
    /// Whether the object is shown, see hides() and setFilterAcceptsParents().
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;
    /// Whether @p object is hidden together with everything below it, whatever its type. The default hides nothing.
    virtual bool hides(const vantorix::ObjectRecord &object) const;

private:
    enum Verdict : char { Unknown, HasShownChild, HasNoShownChild };

    // An object goes by its number in the source model's tree.
    bool isShown(int number) const;
    bool passes(int number) const;
    bool isPassedType(int number) const;
    bool hasShownChild(int number) const;
    void filterChanged();

    QPointer<ObjectModel> m_objects; // the source model
    QStringList m_types;
    bool m_acceptsParents = false;
    bool m_isFilterChanging = false;
    mutable std::vector<Verdict> m_verdicts; // by number, each found when first needed
    mutable int m_verdictsRevision = -1;     // of the source model that they are about
};
