#include "settingsfiles.h"

#include "importplan.h"

#include <host/databaselocation.h>
#include <host/objectindex.h>
#include <host/settingsdocument.h>
#include <host/settingsreport.h>
#include <host/settingssession.h>

#include <QDateTime>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

SettingsFiles::SettingsFiles(const SettingsSession &session, const DatabaseLocation &location, QWidget *window)
    : QObject(window)
    , m_session(session)
    , m_database(location.shortName())
    , m_window(window)
{}

void SettingsFiles::exportSettings()
{
    if (!mayWriteStored(tr("Экспорт настроек")))
        return;
    const auto secrets = askForSecrets();
    if (!secrets)
        return;
    const QString path = askWhereTo(tr("Экспорт настроек"), tr("Файлы настроек (*.json)"), QStringLiteral("json"));
    if (path.isEmpty())
        return;
    const auto problem = SettingsDocument::of(m_session.stored().settings, *secrets).write(path);
    tell(path, problem,
         *secrets == Secrets::Include ? tr("В файле есть пароли и токены. Прочитать его может только его владелец.")
                                      : tr("Пароли и токены в файл не входят."));
}

void SettingsFiles::writeReport()
{
    if (!mayWriteStored(tr("Отчёт о настройках")))
        return;
    const QString path = askWhereTo(tr("Отчёт о настройках"), tr("Документы PDF (*.pdf)"), QStringLiteral("pdf"));
    if (path.isEmpty())
        return;
    tell(path, SettingsReport(m_session.stored(), m_database, QDateTime::currentDateTime()).writePdf(path),
         tr("Пароли и токены в отчёте скрыты."));
}

QVector<SettingChange> SettingsFiles::chooseImported()
{
    return showDifference(ImportDialog::Purpose::Import, tr("Импорт настроек"));
}

void SettingsFiles::compare()
{
    showDifference(ImportDialog::Purpose::Compare, tr("Сравнение с файлом"));
}

QVector<SettingChange> SettingsFiles::showDifference(ImportDialog::Purpose purpose, const QString &title)
{
    QFileDialog question(m_window, title, QString(), tr("Файлы настроек (*.json)"));
    question.setFileMode(QFileDialog::ExistingFile);
    if (question.exec() == QDialog::Rejected)
        return {};
    const QString path = question.selectedFiles().value(0);
    const SettingsDocument::Reading reading = SettingsDocument::read(path);
    if (!reading.document) {
        complain(tr("Файл не прочитан"), reading.error);
        return {};
    }
    const Installation &stored = m_session.stored();
    auto rows = ImportPlan::rows(reading.document->settings(), stored.settings, ObjectIndex(stored.objects));
    if (purpose == ImportDialog::Purpose::Import)
        rows = ImportPlan::locked(rows, m_session.access());
    ImportDialog dialog(rows, QFileInfo(path).fileName(), purpose, m_window);
    dialog.setEditCount(m_session.changedAddresses().count());
    return dialog.exec() == QDialog::Accepted ? dialog.chosen() : QVector<SettingChange>();
}

QString SettingsFiles::askWhereTo(const QString &title, const QString &filter, const QString &suffix)
{
    QFileDialog dialog(m_window, title, QString(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

bool SettingsFiles::mayWriteStored(const QString &title)
{
    const int count = m_session.changedAddresses().count();
    if (count == 0)
        return true;
    QMessageBox box(QMessageBox::Question, title, tr("Несохранённых изменений: %1. В файл они не войдут.").arg(count),
                    QMessageBox::NoButton, m_window);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(tr("Будет записано то, что сохранено в базе данных."));
    QPushButton *proceed = box.addButton(tr("&Продолжить"), QMessageBox::AcceptRole);
    box.setDefaultButton(box.addButton(tr("&Вернуться"), QMessageBox::RejectRole));
    box.exec();
    return box.clickedButton() == proceed;
}

std::optional<SettingsFiles::Secrets> SettingsFiles::askForSecrets()
{
    const auto &stored = m_session.stored().settings;
    if (SettingsDocument::of(stored, Secrets::Include).settings() ==
        SettingsDocument::of(stored, Secrets::LeaveOut).settings())
        return Secrets::LeaveOut;
    QMessageBox box(QMessageBox::Question, tr("Экспорт настроек"), tr("Записать в файл пароли и токены?"),
                    QMessageBox::NoButton, m_window);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(
        tr("В файле они не зашифрованы: кто прочитает файл, узнает их. Без них файл можно передавать "
           "другим, а при импорте останутся те, что уже записаны."));
    QPushButton *without = box.addButton(tr("&Без паролей"), QMessageBox::AcceptRole);
    const QPushButton *with = box.addButton(tr("&С паролями"), QMessageBox::DestructiveRole);
    box.addButton(tr("Отме&на"), QMessageBox::RejectRole);
    box.setDefaultButton(without);
    box.exec();
    if (box.clickedButton() == without)
        return Secrets::LeaveOut;
    return box.clickedButton() == with ? std::optional(Secrets::Include) : std::nullopt;
}

void SettingsFiles::tell(const QString &path, const std::optional<QString> &problem, const QString &content)
{
    if (problem) {
        complain(tr("Файл не записан"), *problem);
        return;
    }
    QMessageBox box(QMessageBox::Information, tr("Файл записан"), path, QMessageBox::NoButton, m_window);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(content);
    box.addButton(tr("&Закрыть"), QMessageBox::AcceptRole);
    box.exec();
}

void SettingsFiles::complain(const QString &title, const QString &problem)
{
    QMessageBox box(QMessageBox::Critical, title, problem, QMessageBox::NoButton, m_window);
    box.setTextFormat(Qt::PlainText);
    box.addButton(tr("&Закрыть"), QMessageBox::AcceptRole);
    box.exec();
}
