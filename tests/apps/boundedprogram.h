#pragma once

#include "childprocess.h"

#include <QTemporaryDir>

#include <grp.h>
#include <unistd.h>

/// A program of this project as somebody starts it, without a display, in an environment without any settings of the
/// person who tests. It is killed if it does not end in time.
class BoundedProgram : public ChildProcess
{
public:
    BoundedProgram(const QString &program, const QStringList &arguments, const QString &database)
    {
        QProcessEnvironment environment;
        for (const char *kept : {"PATH", "LSAN_OPTIONS", "UBSAN_OPTIONS"})
            environment.insert(QLatin1String(kept), qEnvironmentVariable(kept));
        environment.insert(QStringLiteral("HOME"), m_home.path());
        environment.insert(QStringLiteral("VXSETTINGS_DATABASE"), database);
        setProcessEnvironment(environment);
        setWorkingDirectory(m_home.path());
        setProgram(program);
        setArguments(arguments);
    }

    void setVariable(const QString &name, const QString &value)
    {
        QProcessEnvironment environment = processEnvironment();
        environment.insert(name, value);
        setProcessEnvironment(environment);
    }

    /// The rights of root are no rights of a user.
    void runAsNobody() { m_asNobody = true; }

    /// The exit status; -1 if it crashed or was killed.
    int run(const QByteArray &input = {})
    {
        start();
        return finish(input);
    }
    /// The same for a program that was started.
    int finish(const QByteArray &input)
    {
        write(input);
        closeWriteChannel();
        if (!waitForFinished(60000)) {
            kill();
            waitForFinished();
        }
        out = readAllStandardOutput();
        err = readAllStandardError();
        return exitStatus() == NormalExit ? exitCode() : -1;
    }

    QString home() const { return m_home.path(); }

    QByteArray out;
    QByteArray err;

protected:
    void prepareChild() override
    {
        constexpr uid_t nobody = 65534;
        if (m_asNobody && (setgroups(0, nullptr) != 0 || setgid(nobody) != 0 || setuid(nobody) != 0))
            _exit(99);
    }

private:
    QTemporaryDir m_home;
    bool m_asNobody = false;
};
