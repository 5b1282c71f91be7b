#include <vxsettings/dbobjselectorwidget.h>

#include "comboboxinterface.h"
#include "dbsc.h"

#include <vxsettings/dbkeys.h>

#include <vxwidgets/grantedproxymodel.h>
#include <vxwidgets/vxobjectselector.h>
#include <vxwidgets/vxtreeviewdelegate.h>

#include <qtcompat.h>

#include <QPointer>
#include <QTreeView>

namespace {

constexpr char sourceFile[] = "src/widgets/dbobjselectorwidget";
constexpr LogPoint viewPrepared{sourceFile, 0, "DBObjSelectorWidget::DBObjSelectorWidget(const QString&, QWidget*)"};
constexpr LogPoint choiceChanged{sourceFile, 0,
                                 "DBObjSelectorWidget::DBObjSelectorWidget(const QString&, QWidget*)::<lambda(int)>"};
constexpr LogPoint valueSet{sourceFile, 0, "virtual void DBObjSelectorWidget::setValue(const QVariant&)"};

bool isOrgstructure(const QString &dataname)
{
    return dataname == vantorix::ORGSTRUCTURE_DATANAME;
}

/// 20 pixels for each child of the first top-level object, within reason.
int selectorHeight(const QAbstractItemModel &objects)
{
    return qBound(100, 20 * objects.rowCount(objects.index(0, 0)), 200);
}

void setDelegate(QAbstractItemView *view)
{
    // Uncovered from here: the selector in platform/ has a tree view; that of an installation may have another.
    if (auto *tree = qobject_cast<QTreeView *>(view)) {
        tree->setItemDelegate(new VXTreeViewDelegate(tree));
        if (dbsc().isDebugEnabled())
            viewPrepared().debug() << tree << "->" << tree->itemDelegate();
    } else if (dbsc().isDebugEnabled()) {
        viewPrepared().debug() << "View does not initialized";
    }
    // Uncovered to here
}
} // namespace

DBObjSelectorWidget::DBObjSelectorWidget(const QString &dataname, QWidget *parent)
    : DBParamWidget(parent)
{
    ComboBoxInterface::install();
    auto *selector = new VXObjectSelector(this);
    auto *proxy = new GrantedProxyModel(selector);
    selector->setProxyModel(proxy);
    selector->setFixedWidth(selectorWidth(dataname));
    if (isOrgstructure(dataname)) {
        proxy->setObjectTypeFilter(
            {db::orgstructure::SUBJECTROOT, db::orgstructure::FIRM, db::orgstructure::DEPARTMENT});
    }
    proxy->setFilterAcceptsParents(true);
    selector->setDataname(dataname);
    if (isOrgstructure(dataname))
        selector->setDefaultRootIndex(proxy->index(0, 0));
    selector->setCurrentUid(0);
    selector->setFixedHeight(selectorHeight(*proxy->sourceModel()));
    setDelegate(selector->view());

    connect(selector, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this, selector](int index) {
        if (dbsc().isDebugEnabled())
            choiceChanged().debug() << "Changing data" << index;
        ComboBoxInterface::announceChoice(selector);
        const QString changed = key();
        const QPointer<DBObjSelectorWidget> self(this);
        Q_EMIT paramChanged(changed, selector->currentUid());
        if (self)
            Q_EMIT commitData();
    });
    setCentralWidget(selector);
}

DBObjSelectorWidget::DBObjSelectorWidget(QWidget *parent)
    : DBObjSelectorWidget(vantorix::ORGSTRUCTURE_DATANAME, parent)
{}

void DBObjSelectorWidget::setValue(const QVariant &value)
{
    if (dbsc().isDebugEnabled())
        valueSet().debug() << "Setting value for selector" << value;
    auto *selector = qobject_cast<VXObjectSelector *>(centralWidget());
    if (!selector)
        return;
    DBParamWidget::setValue(value);
    bool isUid = false;
    const unsigned int uid = qtcompat::numberText(value).toUInt(&isUid);
    if (!isUid) {
        if (dbsc().isDebugEnabled())
            valueSet().debug() << "Unable to parse value. Returning";
        return;
    }
    selector->setCurrentUid(uid);
    // Uncovered from here: as above
    if (auto *tree = qobject_cast<QTreeView *>(selector->view()))
        tree->expand(selector->currentModelIndex());
    // Uncovered to here
}

QVariant DBObjSelectorWidget::value() const
{
    const auto *selector = qobject_cast<VXObjectSelector *>(centralWidget());
    return selector ? QVariant(selector->currentUid()) : QVariant();
}

void DBObjSelectorWidget::setEnabled(bool enabled)
{
    DBParamWidget::setEnabled(enabled);
    if (auto *selector = qobject_cast<VXObjectSelector *>(centralWidget()))
        selector->setEnabled(enabled);
}

int DBObjSelectorWidget::selectorWidth(const QString &dataname) const
{
    return isOrgstructure(dataname) ? 400 : 256;
}
