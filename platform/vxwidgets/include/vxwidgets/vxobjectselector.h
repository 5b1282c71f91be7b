#pragma once

#include <vxwidgets/vxtreebox.h>

class ObjectModel;
class ObjectTreeProxy;

/// A VXTreeBox for one object of the installation, out of those that LocalStorage holds under a data name.
///
/// The setters may be called in any order. Changes of the objects or of the filter of the proxy model are followed
/// without a signal, and nothing is chosen by them:
/// - the chosen object stays chosen wherever it has moved to;
/// - if it is gone, or must not be chosen any more, nothing is shown as chosen, but currentUid() stays, because nobody
///   has made another choice; it is shown again as soon as it is back;
/// - an object that was set by setCurrentUid() before it was there is chosen when it arrives.
class VXWIDGETS_EXPORT VXObjectSelector : public VXTreeBox
{
    Q_OBJECT

public:
    /// Shows nothing before it has a proxy and a data name; @p parent owns it.
    explicit VXObjectSelector(QWidget *parent = nullptr);

    /// Shows the objects through @p proxy and becomes the owner of its source model. The proxy stays with its parent;
    /// one that the selector is the parent of is deleted when another one is set. Nothing happens for a null pointer.
    void setProxyModel(ObjectTreeProxy *proxy);
    /// Null before setProxyModel(); until then nothing is shown.
    ObjectTreeProxy *proxyModel() const;

    /// Whose objects to show, for instance "orgstructure".
    void setDataname(const QString &dataname);
    /// What setDataname() was given.
    QString dataname() const;

    /// Chooses an object. 0, a uid that is not there, and one that cannot be chosen mean that none is chosen.
    void setCurrentUid(unsigned int uid);
    /// 0 while none is chosen.
    unsigned int currentUid() const { return m_uid; }

private:
    QModelIndex choosableIndex(unsigned int uid) const;
    void followChoice();
    void followObjects();

    ObjectModel *m_objects; // child
    unsigned int m_uid = 0;
    unsigned int m_wantedUid = 0; // m_uid, or the uid of an object that has never been there
};
