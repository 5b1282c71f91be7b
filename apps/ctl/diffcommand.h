#pragma once

#include "report.h"

#include <QCoreApplication>

class Session;

/// "diff": stored settings against a file.
class DiffCommand
{
    Q_DECLARE_TR_FUNCTIONS(DiffCommand)

public:
    static Report run(Session &session);
};
