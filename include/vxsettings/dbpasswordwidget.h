#pragma once

#include <vxsettings/dbparamwidget.h>

/// A line of masked text.
class VXSETTINGS_EXPORT DBPasswordWidget : public DBParamWidget
{
    Q_OBJECT

public:
    /// Empty; @p parent, which may be null, owns it.
    explicit DBPasswordWidget(QWidget *parent);

    void setValue(const QVariant &value) override;
    QVariant value() const override;
    /// A read-only text cannot be revealed.
    void setReadOnly(bool readOnly) override;
    void setEnabled(bool enabled) override;
};
