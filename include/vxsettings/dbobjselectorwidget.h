#pragma once

#include <vxsettings/dbparamwidget.h>

/// One object of the installation, chosen from a drop-down tree.
///
/// Every change of the choice raises both paramChanged() and commitData(), also one made by program.
class VXSETTINGS_EXPORT DBObjSelectorWidget : public DBParamWidget
{
    Q_OBJECT

public:
    /// Offers the objects that vantorix::LocalStorage has under @p dataname; nothing is chosen.
    DBObjSelectorWidget(const QString &dataname, QWidget *parent);
    /// Offers departments and what they are parts of, as a form wants it that knows of no data names.
    explicit DBObjSelectorWidget(QWidget *parent);

    /// Chooses the object with that uid; a value that is no unsigned number is stored but changes no choice.
    void setValue(const QVariant &value) override;
    /// The uid of the chosen object as an unsigned int, 0 while none is.
    QVariant value() const override;
    void setEnabled(bool enabled) override;

    /// Pixels that the selector takes for the objects of @p dataname.
    int selectorWidth(const QString &dataname) const;
};
