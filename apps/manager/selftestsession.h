#pragma once

#include <host/installationdatabase.h>
#include <host/settingssession.h>

#include <QMap>
#include <QWidget>

class DBParamWidget;

/// A database with all its pages open, and an operator's hands on them.
class SelfTestSession
{
public:
    /// Group and key of an editor → what it shows, as text.
    using Values = QMap<std::pair<int, QString>, QString>;

    /// Of a new sample database if there is none at @p databasePath.
    explicit SelfTestSession(const QString &databasePath);

    [[nodiscard]] std::optional<DatabaseError> open();
    /// Saves what is edited, in place of what cannot be read too.
    SaveResult save();
    SettingsSession &settings();
    int pageCount() const;

    Values values() const;
    /// Gives every parameter another value that its editor takes. Returns the stored keys that are concerned.
    QStringList editEverything();
    /// Types at the end of a line edit.
    void typeInto(const QString &key, const QString &text);

private:
    InstallationDatabase m_database;
    SettingsSession m_settings;
    QWidget m_window;
    QMap<int, QWidget *> m_pages; ///< by group
};
