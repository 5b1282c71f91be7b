#pragma once

#include <vxsettings/dbparamwidget.h>

/// A yes/no parameter. The caption stands on the check box itself, wherever the group puts its captions.
class VXSETTINGS_EXPORT DBCheckBoxWidget : public DBParamWidget
{
    Q_OBJECT

public:
    /// Unchecked; @p parent, which may be null, owns it.
    explicit DBCheckBoxWidget(QWidget *parent);

    void setName(const QString &name) override;
    /// Checks the box if @p value converts to true, or to false while @c inverted is set.
    void setValue(const QVariant &value) override;
    /// A bool, in the sense in which it is stored. paramChanged() carries what the box shows.
    QVariant value() const override;
    bool canChangeLabelPosition() const override;
    void setEnabled(bool enabled) override;
    void setDefaultValue() override;
};
