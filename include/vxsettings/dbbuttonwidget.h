#pragma once

#include <vxsettings/dbparamwidget.h>

/// A smart-card key, edited in a modal dialog that a button opens.
class VXSETTINGS_EXPORT DBButtonWidget : public DBParamWidget
{
    Q_OBJECT

public:
    /// Without a key; @p parent, which may be null, owns it.
    explicit DBButtonWidget(QWidget *parent);

    void setValue(const QVariant &value) override;
    /// What was set, or the text of the key that the dialog was accepted with.
    QVariant value() const override;
    void setEnabled(bool enabled) override;
    void retranslate() override;

private:
    void editKey();
};
