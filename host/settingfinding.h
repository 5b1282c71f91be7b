#pragma once

#include <host/settingaddress.h>
#include <host/settingproblem.h>

#include <QString>

/// One thing that is wrong with what is stored. Of a secret setting none of the three values is told: they are null.
struct SettingFinding
{
    SettingAddress address;
    SettingProblem::Kind problem = SettingProblem::Kind::None;
    QString words;  ///< what is wrong and what would be right, in the current language; no value is part of it
    QString stored; ///< as it is stored; of a name that occurs more than once all values as they are written
    QString shown;  ///< what the editor makes of it, as the text that it would save; null if no editor shows it
    QString repair; ///< what to store here instead; null if that is for a person to decide
};
