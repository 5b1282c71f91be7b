#include <vxsettings/dbcheckboxwidget.h>

#include "wrappingcheckbox.h"

DBCheckBoxWidget::DBCheckBoxWidget(QWidget *parent)
    : DBParamWidget(parent)
{
    auto *checkBox = new WrappingCheckBox(this);
    connect(checkBox, &QCheckBox::toggled, this, [this](bool checked) { Q_EMIT paramChanged(key(), checked); });
    connect(checkBox, SIGNAL(stateChanged(int)), this, SIGNAL(commitData()));
    setLabelPosition(LabelPosition::None);
    setCentralWidget(checkBox);
}

void DBCheckBoxWidget::setName(const QString &name)
{
    if (auto *checkBox = qobject_cast<QCheckBox *>(centralWidget()))
        checkBox->setText(name);
}

void DBCheckBoxWidget::setValue(const QVariant &value)
{
    auto *checkBox = qobject_cast<QCheckBox *>(centralWidget());
    if (!checkBox)
        return;
    DBParamWidget::setValue(value);
    checkBox->setChecked(value.toBool() != inverted);
}

QVariant DBCheckBoxWidget::value() const
{
    const auto *checkBox = qobject_cast<QCheckBox *>(centralWidget());
    return checkBox ? QVariant(checkBox->isChecked() != inverted) : QVariant();
}

bool DBCheckBoxWidget::canChangeLabelPosition() const
{
    return false;
}

void DBCheckBoxWidget::setEnabled(bool enabled)
{
    DBParamWidget::setEnabled(enabled);
    if (auto *checkBox = qobject_cast<QCheckBox *>(centralWidget()))
        checkBox->setEnabled(enabled);
}

void DBCheckBoxWidget::setDefaultValue()
{
    auto *checkBox = qobject_cast<QCheckBox *>(centralWidget());
    if (!checkBox)
        return;
    // Showing the stored value again is no edit to be saved.
    disconnect(checkBox, SIGNAL(stateChanged(int)), this, SIGNAL(commitData()));
    setValue(storedValue());
    connect(checkBox, SIGNAL(stateChanged(int)), this, SIGNAL(commitData()));
}
