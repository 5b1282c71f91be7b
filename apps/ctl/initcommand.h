#pragma once

#include "report.h"

#include <QCoreApplication>

class Session;

/// "init": makes a database.
class InitCommand
{
    Q_DECLARE_TR_FUNCTIONS(InitCommand)

public:
    static Report run(Session &session);
};
