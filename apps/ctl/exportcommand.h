#pragma once

#include "report.h"

#include <QCoreApplication>

class Session;

/// "export": settings into a file.
class ExportCommand
{
    Q_DECLARE_TR_FUNCTIONS(ExportCommand)

public:
    static Report run(Session &session);
};
