#pragma once

#include <vxsettings/dbparamwidget.h>

/// A line of free text.
class VXSETTINGS_EXPORT DBLineEditWidget : public DBParamWidget
{
    Q_OBJECT

public:
    /// Empty; @p parent, which may be null, owns it.
    explicit DBLineEditWidget(QWidget *parent);

    void setValue(const QVariant &value) override;
    QVariant value() const override;
    /// A read-only text can still be selected and copied.
    void setReadOnly(bool readOnly) override;
    void setEnabled(bool enabled) override;
};
