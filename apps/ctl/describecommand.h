#pragma once

#include "report.h"

#include <QCoreApplication>

class Session;

/// "describe": what the catalogue knows of a setting.
class DescribeCommand
{
    Q_DECLARE_TR_FUNCTIONS(DescribeCommand)

public:
    static Report run(Session &session);
};
