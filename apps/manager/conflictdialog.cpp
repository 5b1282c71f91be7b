#include "conflictdialog.h"

#include <host/settingwords.h>

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

constexpr QSize initialSize(760, 360);

QTableWidgetItem *cell(const QString &text)
{
    auto *item = new QTableWidgetItem(text);
    item->setToolTip(text);
    return item;
}
} // namespace

ConflictDialog::ConflictDialog(const QVector<SettingConflict> &conflicts, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Настройки изменены в другом месте"));
    auto *explanation = new QLabel(tr("Пока вы редактировали настройки, эти параметры изменила другая программа. "
                                      "Ничего не записано."),
                                   this);
    explanation->setWordWrap(true);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(explanation);
    layout->addWidget(createTable(conflicts));
    layout->addWidget(createButtons());
    resize(initialSize);
}

QWidget *ConflictDialog::createTable(const QVector<SettingConflict> &conflicts)
{
    auto *table = new QTableWidget(conflicts.count(), 4, this);
    table->setHorizontalHeaderLabels({tr("Параметр"), tr("Сейчас в базе данных"), tr("У вас"), tr("Было")});
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table->verticalHeader()->hide();
    table->setEditTriggers(QTableWidget::NoEditTriggers);
    table->setSelectionMode(QTableWidget::NoSelection);
    for (int row = 0; row < conflicts.count(); ++row) {
        const SettingConflict &conflict = conflicts[row];
        table->setItem(row, 0, cell(SettingWords::caption(conflict.key)));
        table->setItem(row, 1, cell(SettingWords::value(conflict.key, conflict.stored)));
        table->setItem(row, 2, cell(SettingWords::value(conflict.key, conflict.wanted)));
        table->setItem(row, 3, cell(SettingWords::value(conflict.key, conflict.loaded)));
    }
    table->resizeRowsToContents();
    return table;
}

QWidget *ConflictDialog::createButtons()
{
    auto *buttons = new QDialogButtonBox(this);
    const auto add = [&](const QString &text, const QString &toolTip, QDialogButtonBox::ButtonRole role,
                         Answer answer) {
        QPushButton *button = buttons->addButton(text, role);
        button->setToolTip(toolTip);
        connect(button, &QPushButton::clicked, this, [this, answer] { done(answer); });
        return button;
    };
    add(tr("&Записать мои"), tr("Заменить значения в базе данных вашими"), QDialogButtonBox::AcceptRole, Overwrite);
    add(tr("&Перечитать базу"), tr("Взять значения из базы данных. Все ваши несохранённые изменения будут потеряны"),
        QDialogButtonBox::DestructiveRole, Reload);
    QPushButton *stay =
        add(tr("&Вернуться"), tr("Ничего не записывать и продолжить"), QDialogButtonBox::RejectRole, Stay);
    stay->setDefault(true);
    stay->setFocus();
    return buttons;
}
