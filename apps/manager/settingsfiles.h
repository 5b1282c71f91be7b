#pragma once

#include "importdialog.h"

#include <host/settingchange.h>
#include <host/settingsdocument.h>

#include <QObject>

#include <optional>

class DatabaseLocation;
class QWidget;
class SettingsSession;

/// Writes what is stored into files that a person chooses, and reads such files, with all that is to be asked and told.
class SettingsFiles : public QObject
{
    Q_OBJECT

public:
    /// Asks over @p window, which is its parent. @p session lives longer.
    SettingsFiles(const SettingsSession &session, const DatabaseLocation &location, QWidget *window);

    /// All settings as a file to be imported, secret ones only if that is wanted.
    void exportSettings();
    /// All settings in words, to be printed.
    void writeReport();
    /// What is chosen from a file to be edited here; empty if nothing is.
    QVector<SettingChange> chooseImported();
    /// How a file differs from what is stored.
    void compare();

private:
    using Secrets = SettingsDocument::Secrets;

    QVector<SettingChange> showDifference(ImportDialog::Purpose purpose, const QString &title);
    QString askWhereTo(const QString &title, const QString &filter, const QString &suffix);
    /// Whether to go on although what is edited will not be in the file; asks only if there is something.
    bool mayWriteStored(const QString &title);
    /// Nothing if no file is wanted any more; asks only if there are secrets.
    std::optional<Secrets> askForSecrets();
    /// What became of the file, and @p content of it, a sentence.
    void tell(const QString &path, const std::optional<QString> &problem, const QString &content);
    void complain(const QString &title, const QString &problem);

    const SettingsSession &m_session;
    QString m_database; ///< its name for a person to read
    QWidget *m_window;
};
