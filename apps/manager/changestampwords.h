#pragma once

#include <QCoreApplication>
#include <QString>

struct ChangeStamp;

/// Who changed something, where and when, for a person to read.
class ChangeStampWords
{
    Q_DECLARE_TR_FUNCTIONS(ChangeStampWords)

public:
    /// In one line, as far as it is known.
    static QString of(const ChangeStamp &stamp);
};
