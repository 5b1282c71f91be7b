#include <vxsettings/dbpasswordwidget.h>

#include "readonlylook.h"

#include <vxwidgets/passwordedit.h>

DBPasswordWidget::DBPasswordWidget(QWidget *parent)
    : DBParamWidget(parent)
{
    auto *passwordEdit = new PasswordEdit(this);
    passwordEdit->setMinimumWidth(300);
    passwordEdit->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    connect(passwordEdit, &QLineEdit::textEdited, this,
            [this](const QString &text) { Q_EMIT paramChanged(key(), text); });
    connect(passwordEdit, SIGNAL(textEdited(QString)), this, SIGNAL(commitData()));
    setCentralWidget(passwordEdit);
}

void DBPasswordWidget::setValue(const QVariant &value)
{
    auto *passwordEdit = qobject_cast<PasswordEdit *>(centralWidget());
    if (!passwordEdit)
        return;
    passwordEdit->setText(value.toString());
    DBParamWidget::setValue(value);
}

QVariant DBPasswordWidget::value() const
{
    const auto *passwordEdit = qobject_cast<PasswordEdit *>(centralWidget());
    return passwordEdit ? QVariant(passwordEdit->text()) : QVariant();
}

void DBPasswordWidget::setReadOnly(bool readOnly)
{
    DBParamWidget::setReadOnly(readOnly);
    if (auto *passwordEdit = qobject_cast<PasswordEdit *>(centralWidget()))
        readonlylook::setReadOnly(passwordEdit, readOnly);
}

void DBPasswordWidget::setEnabled(bool enabled)
{
    DBParamWidget::setEnabled(enabled);
    if (auto *passwordEdit = qobject_cast<PasswordEdit *>(centralWidget()))
        passwordEdit->setEnabled(enabled);
}
