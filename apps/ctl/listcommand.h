#pragma once

#include "report.h"

#include <QCoreApplication>

class Session;

/// "list": what is stored, setting by setting.
class ListCommand
{
    Q_DECLARE_TR_FUNCTIONS(ListCommand)

public:
    static Report run(Session &session);
};
