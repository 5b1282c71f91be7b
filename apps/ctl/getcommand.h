#pragma once

#include "report.h"

#include <QCoreApplication>

class Session;

/// "get": one stored value as it is.
class GetCommand
{
    Q_DECLARE_TR_FUNCTIONS(GetCommand)

public:
    static Report run(Session &session);
};
