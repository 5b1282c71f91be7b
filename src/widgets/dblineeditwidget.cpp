#include <vxsettings/dblineeditwidget.h>

#include <QLineEdit>

DBLineEditWidget::DBLineEditWidget(QWidget *parent)
    : DBParamWidget(parent)
{
    auto *lineEdit = new QLineEdit(this);
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
        lineEdit->setReadOnly(readOnly);
}

void DBLineEditWidget::setEnabled(bool enabled)
{
    DBParamWidget::setEnabled(enabled);
    if (auto *lineEdit = qobject_cast<QLineEdit *>(centralWidget()))
        lineEdit->setEnabled(enabled);
}
