#pragma once

#include <QString>

/// Texts of whole numbers within bounds.
class IntegerPattern
{
public:
    /// A regular expression, with groups, classes and counts alone, for the decimal digits of every number from
    /// @p minimum, at least 0, to @p maximum; zeros may lead.
    static QString between(int minimum, int maximum);
};
