#pragma once

#include <vxsettings/dbparamwidget.h>

/// An integer within bounds.
class VXSETTINGS_EXPORT DBSpinBoxWidget : public DBParamWidget
{
    Q_OBJECT

public:
    /// 0 in the range 0 to 99, until it gets one; @p parent, which may be null, owns it.
    explicit DBSpinBoxWidget(QWidget *parent);

    void setValue(const QVariant &value) override;
    /// The number shown, as an int; after clamping it differs from the stored value.
    QVariant value() const override;
    void setParamRange(const std::pair<int, int> &range) override;
    void setSpecialValue(const QString &text) override;
    /// A read-only number can still be selected and copied.
    void setReadOnly(bool readOnly) override;
    void setEnabled(bool enabled) override;
    void setDefaultValue() override;
};
