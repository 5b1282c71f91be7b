#pragma once

#include <QProcess>

/// A program that is prepared in its own process, before it starts. Qt 5 overrides a step for that, Qt 6 takes a
/// function.
class ChildProcess : public QProcess
{
public:
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    ChildProcess()
    {
        setChildProcessModifier([this] { prepareChild(); });
    }
#endif

protected:
    virtual void prepareChild() = 0;

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    void setupChildProcess() override
    {
        prepareChild();
    }
#endif
};
