#pragma once

#include <QRandomGenerator>
#include <QtGlobal>

/// How a test that invents its input runs: a little of it in every run, much of it in the long form.
namespace testrun {

/// @p count, and VXSETTINGS_TEST_SCALE times as many in the long form.
inline int times(int count)
{
    return count * qMax(1, qEnvironmentVariableIntValue("VXSETTINGS_TEST_SCALE"));
}

/// Whether everything is tried that a test only takes samples of otherwise.
inline bool isLong()
{
    return times(1) > 1;
}

/// A new one for each run; VXSETTINGS_TEST_SEED repeats one. A test prints it.
inline quint32 seed()
{
    bool isGiven = false;
    const quint32 given = qEnvironmentVariable("VXSETTINGS_TEST_SEED").toUInt(&isGiven);
    return isGiven ? given : QRandomGenerator::global()->generate();
}
} // namespace testrun
