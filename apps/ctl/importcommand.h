#pragma once

#include "report.h"

#include <QCoreApplication>

class Session;

/// "import": settings from a file.
class ImportCommand
{
    Q_DECLARE_TR_FUNCTIONS(ImportCommand)

public:
    static Report run(Session &session);
};
