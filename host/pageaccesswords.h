#pragma once

#include <host/settingaddress.h>

#include <QCoreApplication>
#include <QStringList>

class PageAccess;

/// What operators may edit, in words of the current language.
class PageAccessWords
{
    Q_DECLARE_TR_FUNCTIONS(PageAccessWords)

public:
    /// Of the access as a whole, or of one of its flags.
    static QString caption(const SettingAddress &address);
    /// What @p text, stored at @p address, means: which pages are locked, or whether one is. Null stands for nothing.
    static QString value(const SettingAddress &address, const QString &text);

    /// Why an operator may not change the @p keys, which PageAccess::locked() has given, and what to do.
    static QString refusal(const QStringList &keys);
    /// The same of a page that is shown and locked by @p access.
    static QString lockReason(const PageAccess &access);

private:
    static QString quoted(const QStringList &titles);
};
