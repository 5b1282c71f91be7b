#pragma once

#include <vxsettings/dbparamwidget.h>

/// An integer within bounds.
class VXSETTINGS_EXPORT DBSpinBoxWidget : public DBParamWidget
{
    Q_OBJECT

public:
    explicit DBSpinBoxWidget(QWidget *parent);

    void setValue(const QVariant &value) override;
    /// The number shown, as an int; after clamping it differs from the stored value.
    QVariant value() const override;
    void setParamRange(const std::pair<int, int> &range) override;
    void setSpecialValue(const QString &text) override;
    void setReadOnly(bool readOnly) override;
    void setEnabled(bool enabled) override;
    void setDefaultValue() override;
};
