#include "settingsfiles.h"

#include <host/databaselocation.h>
#include <host/settingsdocument.h>
#include <host/settingsreport.h>
#include <host/settingssession.h>

#include <QDateTime>
#include <QFileDialog>
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

QString SettingsFiles::askWhereTo(const QString &title, const QString &filter, const QString &suffix)
{
    QFileDialog dialog(m_window, title, QString(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

void SettingsFiles::tell(const QString &path, const std::optional<QString> &problem)
{
    QMessageBox box(problem ? QMessageBox::Critical : QMessageBox::Information,
                    problem ? tr("Файл не записан") : tr("Файл записан"), problem.value_or(path), QMessageBox::NoButton,
                    m_window);
    box.setTextFormat(Qt::PlainText);
    if (!problem)
        box.setInformativeText(tr("Несохранённые изменения и пароли в файл не входят."));
    box.addButton(tr("&Закрыть"), QMessageBox::AcceptRole);
    box.exec();
}
