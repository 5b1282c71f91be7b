#pragma once

#include "report.h"

#include <QCoreApplication>

class Session;

/// "watch": tells what others change.
class WatchCommand
{
    Q_DECLARE_TR_FUNCTIONS(WatchCommand)

public:
    static Report run(Session &session);
};
