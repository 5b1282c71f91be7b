#include <vxsettings/dblineeditwidget.h>

#include "readonlylook.h"

#include <QLineEdit>

namespace {

constexpr int minimumWidthInPixels =
    300; // as a password has it: enough for the name of a computer or the pattern of a number
} // namespace

DBLineEditWidget::DBLineEditWidget(QWidget *parent)
    : DBParamWidget(parent)
{
    auto *lineEdit = new QLineEdit(this);
    lineEdit->setMinimumWidth(minimumWidthInPixels);
    connect(lineEdit, &QLineEdit::textEdited, this, [this](const QString &text) { Q_EMIT paramChanged(key(), text); });
    connect(lineEdit, SIGNAL(textEdited(QString)), this, SIGNAL(commitData()));
    setCentralWidget(lineEdit);
}

void DBLineEditWidget::setValue(const QVariant &value)
{
    auto *lineEdit = qobject_cast<QLineEdit *>(centralWidget());
    if (!lineEdit)
        return;
    lineEdit->setText(value.toString());
    DBParamWidget::setValue(value);
}

QVariant DBLineEditWidget::value() const
{
    const auto *lineEdit = qobject_cast<QLineEdit *>(centralWidget());
    return lineEdit ? QVariant(lineEdit->text()) : QVariant();
}

void DBLineEditWidget::setReadOnly(bool readOnly)
{
    DBParamWidget::setReadOnly(readOnly);
    if (auto *lineEdit = qobject_cast<QLineEdit *>(centralWidget()))
        readonlylook::setReadOnly(lineEdit, readOnly);
}

void DBLineEditWidget::setEnabled(bool enabled)
{
    DBParamWidget::setEnabled(enabled);
    if (auto *lineEdit = qobject_cast<QLineEdit *>(centralWidget()))
        lineEdit->setEnabled(enabled);
}
