#include <vxsettings/dbbuttonwidget.h>

#include <vxwidgets/smartcardkeydialog.h>
#include <vxwidgets/userdatabutton.h>

#include <QPointer>

namespace {

constexpr char keyProperty[] = "userData";
}

DBButtonWidget::DBButtonWidget(QWidget *parent)
    : DBParamWidget(parent)
{
    auto *button = new UserDataButton(tr("Изменить"), this);
    connect(button, &QAbstractButton::clicked, this, [this] { editKey(); });
    setCentralWidget(button);
}

void DBButtonWidget::setValue(const QVariant &value)
{
    auto *button = qobject_cast<UserDataButton *>(centralWidget());
    if (!button)
        return;
    button->setProperty(keyProperty, value);
    DBParamWidget::setValue(value);
}

QVariant DBButtonWidget::value() const
{
    const auto *button = qobject_cast<UserDataButton *>(centralWidget());
    return button ? button->property(keyProperty) : QVariant();
}

void DBButtonWidget::setEnabled(bool enabled)
{
    DBParamWidget::setEnabled(enabled);
    if (auto *button = qobject_cast<UserDataButton *>(centralWidget()))
        button->setEnabled(enabled);
}

void DBButtonWidget::retranslate()
{
    DBParamWidget::retranslate();
    if (auto *button = qobject_cast<UserDataButton *>(centralWidget()))
        button->setText(tr("Изменить"));
}

void DBButtonWidget::editKey()
{
    auto *button = static_cast<QWidget *>(sender());
    // The page may be closed while the dialog is open; the dialog then goes with its button.
    const QPointer<SmartCardKeyDialog> dialog = new SmartCardKeyDialog(button);
    dialog->setKey(button->property(keyProperty).toString());
    if (dialog->exec() == QDialog::Accepted) {
        const QPointer<DBButtonWidget> self(this);
        const QString newKey = dialog->key();
        button->setProperty(keyProperty, newKey);
        Q_EMIT paramChanged(key(), newKey);
        if (self)
            Q_EMIT commitData();
    }
    delete dialog;
}
