#pragma once

#include "importdialog.h"

#include <host/settingchange.h>

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

    /// All settings but secret ones, as a file to be imported.
    void exportSettings();
    /// All settings in words, to be printed.
    void writeReport();
    /// What is chosen from a file to be edited here; empty if nothing is.
    QVector<SettingChange> chooseImported();
    /// How a file differs from what is stored.
    void compare();

private:
    QVector<SettingChange> showDifference(ImportDialog::Purpose purpose, const QString &title);
    QString askWhereTo(const QString &title, const QString &filter, const QString &suffix);
    void tell(const QString &path, const std::optional<QString> &problem);
    void complain(const QString &title, const QString &problem);

    const SettingsSession &m_session;
    QString m_database; ///< its name for a person to read
    QWidget *m_window;
};
