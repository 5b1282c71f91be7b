#pragma once

#include "report.h"

#include <QCoreApplication>

class Session;

/// "restore": gives a setting a value back that it had.
class RestoreCommand
{
    Q_DECLARE_TR_FUNCTIONS(RestoreCommand)

public:
    static Report run(Session &session);
};
