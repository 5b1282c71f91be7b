#include "savequestions.h"

#include <host/settingwords.h>

#include <QMessageBox>
#include <QPushButton>

bool SaveQuestions::replaceUnreadable(QWidget *parent, const QStringList &keys)
{
    QStringList settings;
    for (const QString &key : keys)
        settings << QStringLiteral("%1 (%2)").arg(SettingWords::caption(key), key);

    QMessageBox box(QMessageBox::Warning, tr("Хранимое значение не читается"),
                    tr("В базе данных записан текст, который не является объектом JSON с разными именами: %1.")
                        .arg(settings.join(QStringLiteral(", "))),
                    QMessageBox::NoButton, parent);
    box.setInformativeText(tr("Изменения нельзя добавить к этому тексту. Если его заменить, прежний текст пропадёт."));
    const QPushButton *replace = box.addButton(tr("&Заменить"), QMessageBox::DestructiveRole);
    box.setDefaultButton(box.addButton(tr("&Не сохранять"), QMessageBox::RejectRole));
    box.exec();
    return box.clickedButton() == replace;
}

SaveQuestions::Leaving SaveQuestions::leave(QWidget *parent, int count)
{
    QMessageBox box(QMessageBox::Question, tr("Несохранённые изменения"),
                    tr("Изменено настроек: %1. Сохранить изменения?").arg(count), QMessageBox::NoButton, parent);
    QPushButton *save = box.addButton(tr("&Сохранить"), QMessageBox::AcceptRole);
    const QPushButton *discard = box.addButton(tr("&Не сохранять"), QMessageBox::DestructiveRole);
    box.addButton(tr("&Вернуться"), QMessageBox::RejectRole);
    box.setDefaultButton(save);
    box.exec();
    if (box.clickedButton() == save)
        return Leaving::Save;
    return box.clickedButton() == discard ? Leaving::Discard : Leaving::Stay;
}

void SaveQuestions::showError(QWidget *parent, const DatabaseError &error)
{
    QMessageBox box(QMessageBox::Critical, tr("Ошибка базы данных"), error.text(), QMessageBox::NoButton, parent);
    box.addButton(tr("&Закрыть"), QMessageBox::AcceptRole);
    box.exec();
}

void SaveQuestions::showUnknown(QWidget *parent, const DatabaseError &error)
{
    QMessageBox box(QMessageBox::Warning, tr("Ошибка базы данных"),
                    tr("Неизвестно, записаны ли изменения. Когда связь восстановится, записанное перестанет "
                       "отмечаться как изменённое."),
                    QMessageBox::NoButton, parent);
    box.setInformativeText(error.text());
    box.addButton(tr("&Закрыть"), QMessageBox::AcceptRole);
    box.exec();
}
