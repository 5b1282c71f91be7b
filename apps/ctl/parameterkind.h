#pragma once

#include <QCoreApplication>
#include <QString>

/// The editor kinds by the names that programs and people know them by. @c parameter is known to the catalogue.
class ParameterKind
{
    Q_DECLARE_TR_FUNCTIONS(ParameterKind)

public:
    /// Stable, such as "number".
    static QString name(const QString &parameter);
    /// In the current language.
    static QString words(const QString &parameter);
};
