#pragma once

#include <vxsettings/dbparamwidget.h>

/// A line of free text.
class VXSETTINGS_EXPORT DBLineEditWidget : public DBParamWidget
{
    Q_OBJECT

public:
    explicit DBLineEditWidget(QWidget *parent);

    void setValue(const QVariant &value) override;
    QVariant value() const override;
    void setReadOnly(bool readOnly) override;
    void setEnabled(bool enabled) override;
};
