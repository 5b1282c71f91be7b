#pragma once

#include "report.h"

#include <QCoreApplication>

class Session;

/// "set": changes settings.
class SetCommand
{
    Q_DECLARE_TR_FUNCTIONS(SetCommand)

public:
    static Report run(Session &session);
};
