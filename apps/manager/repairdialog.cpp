#include "repairdialog.h"

#include "wrappedlabel.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr QSize initialSize(640, 520);
} // namespace

RepairDialog::RepairDialog(const QString &caption, const QString &problem, const QString &stored,
                           const QString &repaired, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Исправление записи: %1").arg(caption));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new WrappedLabel(problem, this));
    addText(*layout, tr("&Записано сейчас:"), QStringLiteral("stored"), stored);
    addText(*layout, tr("&Будет записано (то, что показывает страница):"), QStringLiteral("repaired"), repaired);
    layout->addWidget(new WrappedLabel(tr("Это обычная правка: до сохранения её можно отменить, а после прежний текст "
                                          "останется в истории изменений."),
                                       this));

    auto *buttons = new QDialogButtonBox(this);
    buttons->addButton(tr("&Исправить"), QDialogButtonBox::AcceptRole)->setAutoDefault(false);
    buttons->addButton(tr("&Не исправлять"), QDialogButtonBox::RejectRole)->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    resize(initialSize);
}

void RepairDialog::addText(QVBoxLayout &layout, const QString &label, const QString &name, const QString &text)
{
    auto *caption = new QLabel(label, this);
    auto *shown = new QPlainTextEdit(text, this);
    shown->setObjectName(name);
    shown->setReadOnly(true);
    shown->setTabChangesFocus(true);
    shown->setAccessibleName(QString(label).remove(QLatin1Char('&')));
    caption->setBuddy(shown);
    layout.addWidget(caption);
    layout.addWidget(shown, 1);
}
