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
    const QString path = askWhereTo(tr("Экспорт настроек"), tr("Файлы настроек (*.json)"), QStringLiteral("json"));
    if (path.isEmpty())
        return;
    const auto document = SettingsDocument::of(m_session.stored().settings, SettingsDocument::Secrets::LeaveOut);
    tell(path, document.write(path));
}

void SettingsFiles::writeReport()
{
    const QString path = askWhereTo(tr("Отчёт о настройках"), tr("Документы PDF (*.pdf)"), QStringLiteral("pdf"));
    if (path.isEmpty())
        return;
    tell(path, SettingsReport(m_session.stored(), m_database, QDateTime::currentDateTime()).writePdf(path));
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
    return dialog.exec() == QDialog::Accepted ? dialog.chosen() : QVector<SettingChange>();
}

QString SettingsFiles::askWhereTo(const QString &title, const QString &filter, const QString &suffix)
{
    QFileDialog dialog(m_window, title, QString(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

void SettingsFiles::tell(const QString &path, const std::optional<QString> &problem)
{
    if (problem) {
        complain(tr("Файл не записан"), *problem);
        return;
    }
    QMessageBox box(QMessageBox::Information, tr("Файл записан"), path, QMessageBox::NoButton, m_window);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(tr("Несохранённые изменения и пароли в файл не входят."));
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
