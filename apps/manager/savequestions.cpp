#include "savequestions.h"

#include <host/settingwords.h>

#include <QLocale>
#include <QMessageBox>
#include <QPushButton>

namespace {

constexpr int mostLines = 12; // that a box can have on a small screen

/// The first of @p lines, and how many more there are.
QString shortened(const QStringList &lines)
{
    QStringList shown = lines.mid(0, mostLines);
    if (lines.size() > mostLines)
        shown.append(SaveQuestions::tr("…и ещё: %1").arg(lines.size() - mostLines));
    return shown.join(QLatin1Char('\n'));
}
} // namespace

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

SaveQuestions::Leaving SaveQuestions::leave(QWidget *parent, const QVector<SettingChange> &changes)
{
    QStringList lines;
    for (const SettingChange &change : changes)
        lines.append(words(change));
    QMessageBox box(QMessageBox::Question, tr("Несохранённые изменения"),
                    tr("Изменено настроек: %1. Сохранить изменения?").arg(changes.count()), QMessageBox::NoButton,
                    parent);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(shortened(lines));
    QPushButton *save = box.addButton(tr("&Сохранить"), QMessageBox::AcceptRole);
    const QPushButton *discard = box.addButton(tr("&Не сохранять"), QMessageBox::DestructiveRole);
    box.addButton(tr("&Вернуться"), QMessageBox::RejectRole);
    box.setDefaultButton(save);
    box.exec();
    if (box.clickedButton() == save)
        return Leaving::Save;
    return box.clickedButton() == discard ? Leaving::Discard : Leaving::Stay;
}

bool SaveQuestions::restoreDraft(QWidget *parent, const QStringList &edits, const QDateTime &at)
{
    const QString time = QLocale().toString(at.toLocalTime(), QLocale::ShortFormat);
    QMessageBox box(QMessageBox::Question, tr("Черновик изменений"),
                    tr("Программа завершилась, не сохранив изменения от %1. Восстановить их?").arg(time),
                    QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(shortened(edits));
    QPushButton *restore = box.addButton(tr("&Восстановить"), QMessageBox::AcceptRole);
    box.addButton(tr("&Удалить черновик"), QMessageBox::DestructiveRole);
    box.setDefaultButton(restore);
    box.setEscapeButton(restore); // loses nothing
    box.exec();
    return box.clickedButton() == restore;
}

QString SaveQuestions::words(const SettingChange &change)
{
    return tr("%1: %2 → %3")
        .arg(change.address.caption(), SettingWords::value(change.address, change.before),
             SettingWords::value(change.address, change.after));
}

void SaveQuestions::showDraftProblem(QWidget *parent, const QString &problem)
{
    QMessageBox box(QMessageBox::Warning, tr("Черновик изменений"), problem, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    box.addButton(tr("&Закрыть"), QMessageBox::AcceptRole);
    box.exec();
}

void SaveQuestions::refuseRestored(QWidget *parent, const QString &problem)
{
    QMessageBox box(QMessageBox::Warning, tr("Прежнее значение не подходит"), problem, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(tr("Ничего не изменено."));
    box.addButton(tr("&Закрыть"), QMessageBox::AcceptRole);
    box.exec();
}

bool SaveQuestions::revertForbidden(QWidget *parent, const QString &refusal)
{
    QMessageBox box(QMessageBox::Warning, tr("Страница закрыта"), refusal, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(
        tr("Ничего не записано. Изменения на закрытых страницах можно отменить и сохранить остальные."));
    const QPushButton *revert = box.addButton(tr("&Отменить их"), QMessageBox::DestructiveRole);
    box.setDefaultButton(box.addButton(tr("&Вернуться"), QMessageBox::RejectRole));
    box.exec();
    return box.clickedButton() == revert;
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
