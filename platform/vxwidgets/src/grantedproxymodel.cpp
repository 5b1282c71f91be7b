#include <vxwidgets/grantedproxymodel.h>

#include <localstorage/localstorage.h>

GrantedProxyModel::GrantedProxyModel(QObject *parent)
    : ObjectTreeProxy(parent)
{}

bool GrantedProxyModel::hides(const vantorix::ObjectRecord &object) const
{
    return !object.granted;
}
