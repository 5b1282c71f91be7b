#pragma once

#include "report.h"

#include <QCoreApplication>

class Session;

/// "check": finds and repairs what is wrong with what is stored.
class CheckCommand
{
    Q_DECLARE_TR_FUNCTIONS(CheckCommand)

public:
    static Report run(Session &session);
};
