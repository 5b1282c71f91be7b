#pragma once

#include <vxsettings/dbparamwidget.h>

/// A line of masked text.
class VXSETTINGS_EXPORT DBPasswordWidget : public DBParamWidget
{
    Q_OBJECT

public:
    explicit DBPasswordWidget(QWidget *parent);

    void setValue(const QVariant &value) override;
    QVariant value() const override;
    void setReadOnly(bool readOnly) override;
    void setEnabled(bool enabled) override;
};
