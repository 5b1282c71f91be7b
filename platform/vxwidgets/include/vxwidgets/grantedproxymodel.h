#pragma once

#include <vxwidgets/objecttreeproxy.h>

/// An ObjectTreeProxy that also hides what the operator may not see, together with everything below it.
class VXWIDGETS_EXPORT GrantedProxyModel : public ObjectTreeProxy
{
    Q_OBJECT

public:
    /// Lets all types pass; @p parent owns it.
    explicit GrantedProxyModel(QObject *parent = nullptr);

protected:
    bool hides(const vantorix::ObjectRecord &object) const override;
};
