#pragma once

#include <vxsettings/dbparamwidget.h>

/// A choice from a list of numbered captions.
class VXSETTINGS_EXPORT DBComboBoxWidget : public DBParamWidget
{
    Q_OBJECT

public:
    /// Without choices; @p parent, which may be null, owns it.
    explicit DBComboBoxWidget(QWidget *parent);

    /// Chooses the entry with that number; a number without an entry is stored but changes no choice.
    void setValue(const QVariant &value) override;
    /// The number of the chosen entry as an unsigned int; invalid while there is none.
    QVariant value() const override;
    void setParamValues(const std::map<unsigned int, QString> &values) override;
    void setEnabled(bool enabled) override;
    void setDefaultValue() override;
    /// Keeps the wheel from changing the choice while the page scrolls under it.
    bool eventFilter(QObject *watched, QEvent *event) override;
    void retranslate() override;
};
