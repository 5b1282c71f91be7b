#pragma once

#include "command.h"

#include <QCoreApplication>
#include <QString>

/// The manual page of vxsettingsctl, for man(1), made from the tables that --help is made from.
class ManualPage
{
    Q_DECLARE_TR_FUNCTIONS(ManualPage)

public:
    /// UTF-8 troff source with the macros of man(7).
    static QString text();

private:
    static QString title();
    static QString commands();
    static QString command(const Command &command);
    static QString options(Options options);
    static QString environment();
    static QString statuses();
};
