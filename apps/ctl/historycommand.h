#pragma once

#include "report.h"

#include <QCoreApplication>

class Session;

/// "history": shows who changed what, and when.
class HistoryCommand
{
    Q_DECLARE_TR_FUNCTIONS(HistoryCommand)

public:
    static Report run(Session &session);
};
