#pragma once

#include "report.h"

#include <host/settingaddress.h>

#include <vxsettings/objectparameters.h>

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <optional>

class ObjectIndex;
class Session;

/// What is to be stored: collected, judged as a whole, and only then shown or saved.
class SettingChanges
{
    Q_DECLARE_TR_FUNCTIONS(SettingChanges)

public:
    /// Starts from what the session has loaded. @p session must live longer.
    explicit SettingChanges(Session &session);

    /// Judges what a person has written, and remembers an error for apply().
    void assign(const SettingAddress &address, const QString &words);
    /// Stores @p text under @p key unless it is there already. It has been judged.
    void put(const QString &key, const QString &text);
    /// Remembers that something else must not be stored.
    void refuse(const QString &error);

    /// Saves the changes, or only tells them if the command line says so. Nothing is saved if anything was refused,
    /// if an operator may not change it, or if they break a rule across settings that was not broken in this way
    /// before.
    [[nodiscard]] Report apply();

private:
    static QString unreadableError(const SettingAddress &address);
    void refuseLocked();
    void refuseBrokenRules();
    vantorix::OBJECT_PARAMETERS toStore() const;
    Report report(bool isSaved) const;

    Session &m_session;
    QHash<QString, QString> m_wanted; ///< all that would be stored afterwards
    QStringList m_errors;
};
