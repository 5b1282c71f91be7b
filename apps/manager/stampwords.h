#pragma once

#include <QCoreApplication>
#include <QString>

struct ChangeStamp;

/// A change stamp in the words of the person in front of it.
class StampWords
{
    Q_DECLARE_TR_FUNCTIONS(StampWords)

public:
    /// Who changed the setting, where and when, as far as that is known.
    static QString words(const ChangeStamp &stamp);
};
