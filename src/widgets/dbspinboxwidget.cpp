#include <vxsettings/dbspinboxwidget.h>

#include "readonlylook.h"

#include <qtcompat.h>

#include <vxwidgets/scrollignoringspinbox.h>

DBSpinBoxWidget::DBSpinBoxWidget(QWidget *parent)
    : DBParamWidget(parent)
{
    auto *spinBox = new ScrollIgnoringSpinBox(this);
    connect(spinBox, QOverload<int>::of(&QSpinBox::valueChanged), this,
            [this](int value) { Q_EMIT paramChanged(key(), value); });
    // On purpose not the overload that setDefaultValue() reconnects: after a revert every change commits twice.
    connect(spinBox, qtcompat::spinBoxTextSignal(), this, SIGNAL(commitData()));
    setCentralWidget(spinBox);
}

void DBSpinBoxWidget::setValue(const QVariant &value)
{
    auto *spinBox = qobject_cast<ScrollIgnoringSpinBox *>(centralWidget());
    if (!spinBox)
        return;
    spinBox->setValue(qtcompat::numberText(value).toInt());
    DBParamWidget::setValue(value);
}

QVariant DBSpinBoxWidget::value() const
{
    const auto *spinBox = qobject_cast<ScrollIgnoringSpinBox *>(centralWidget());
    return spinBox ? QVariant(spinBox->value()) : QVariant();
}

void DBSpinBoxWidget::setParamRange(const std::pair<int, int> &range)
{
    auto *spinBox = qobject_cast<ScrollIgnoringSpinBox *>(centralWidget());
    if (!spinBox)
        return;
    spinBox->setRange(range.first, range.second);
    setDefaultValue();
}

void DBSpinBoxWidget::setSpecialValue(const QString &text)
{
    auto *spinBox = qobject_cast<ScrollIgnoringSpinBox *>(centralWidget());
    if (!spinBox || spinBox->specialValueText() == text)
        return;
    spinBox->setSpecialValueText(text);
    spinBox->updateGeometry(); // Qt leaves a spin box that is on screen as wide as it is
}

void DBSpinBoxWidget::setReadOnly(bool readOnly)
{
    DBParamWidget::setReadOnly(readOnly);
    if (auto *spinBox = qobject_cast<ScrollIgnoringSpinBox *>(centralWidget()))
        readonlylook::setReadOnly(spinBox, readOnly);
}

void DBSpinBoxWidget::setEnabled(bool enabled)
{
    DBParamWidget::setEnabled(enabled);
    if (auto *spinBox = qobject_cast<ScrollIgnoringSpinBox *>(centralWidget()))
        spinBox->setEnabled(enabled);
}

void DBSpinBoxWidget::setDefaultValue()
{
    auto *spinBox = qobject_cast<ScrollIgnoringSpinBox *>(centralWidget());
    if (!spinBox)
        return;
    disconnect(spinBox, SIGNAL(valueChanged(int)), this, SIGNAL(commitData()));
    setValue(storedValue());
    connect(spinBox, SIGNAL(valueChanged(int)), this, SIGNAL(commitData()));
}
