#pragma once

#include <host/settingscontroller.h>
#include <host/settingsstore.h>

#include <QMap>
#include <QWidget>

class DBParamWidget;

/// A database with all its pages open, and an operator's hands on them.
class SelfTestSession
{
public:
    /// Group and key of an editor → what it shows, as text.
    using Values = QMap<std::pair<int, QString>, QString>;

    SelfTestSession();

    [[nodiscard]] std::optional<DatabaseError> open(const QString &databasePath);
    SettingsController &controller();
    int pageCount() const;

    Values values() const;
    /// Gives every parameter another value that its editor takes. Returns the stored keys that are concerned.
    QStringList editEverything();
    /// Types at the end of a line edit.
    void typeInto(const QString &key, const QString &text);

private:
    SettingsStore m_store;
    SettingsController m_controller;
    QWidget m_window;
    QMap<int, QWidget *> m_pages; ///< by group
};
