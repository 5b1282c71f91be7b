#pragma once

#include "host/testdatabase.h"

#include <host/settingsstore.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include <csignal>
#include <stdexcept>

/// vxsettingsctl as somebody starts it, on a database of its own, in an environment without any settings of the person
/// who tests and without a display.
class CtlProgram : public QProcess
{
public:
    CtlProgram(const TestDatabase &database, const QStringList &arguments)
        : CtlProgram(database.folder(), database.path(), arguments)
    {}
    /// On the database at @p url, with @p folder as home and working folder.
    CtlProgram(const QString &folder, const QString &url, const QStringList &arguments)
    {
        QProcessEnvironment environment;
        environment.insert(QStringLiteral("PATH"), qEnvironmentVariable("PATH"));
        environment.insert(QStringLiteral("HOME"), folder);
        environment.insert(QStringLiteral("VXSETTINGS_DATABASE"), url);
        for (const char *name : {"LSAN_OPTIONS", "UBSAN_OPTIONS"})
            environment.insert(QLatin1String(name), qEnvironmentVariable(name));
        setProcessEnvironment(environment);
        setWorkingDirectory(folder);
        setProgram(QStringLiteral(CTL));
        setArguments(arguments);
    }

    ~CtlProgram() override
    {
        kill();
        waitForFinished();
    }

    /// The exit status; -1 if the program crashed or did not end.
    int run(const QByteArray &input = {})
    {
        start();
        write(input);
        closeWriteChannel();
        return finish();
    }
    int finish()
    {
        const bool ended = state() == NotRunning || waitForFinished(60000);
        takeOutput();
        return ended && exitStatus() == NormalExit ? exitCode() : -1;
    }
    /// Takes what the program has printed so far.
    void takeOutput()
    {
        output += readAllStandardOutput();
        out = QString::fromUtf8(output);
        errors += readAllStandardError();
        err = QString::fromUtf8(errors);
    }
    /// What Ctrl+C and its like send.
    void interrupt(int signal = SIGINT) const
    {
        if (::kill(pid_t(processId()), signal) != 0)
            throw std::runtime_error("nobody to interrupt");
    }
    bool hasSaid(const QString &part)
    {
        takeOutput();
        return err.contains(part);
    }
    void setVariable(const QString &name, const QString &value)
    {
        QProcessEnvironment environment = processEnvironment();
        environment.insert(name, value);
        setProcessEnvironment(environment);
    }

    /// What was printed, which must be one document and nothing else.
    QJsonDocument json() const
    {
        QJsonParseError error;
        const QJsonDocument document = QJsonDocument::fromJson(output, &error);
        if (error.error != QJsonParseError::NoError)
            throw std::runtime_error("no JSON document: " + output.toStdString());
        return document;
    }
    /// The object with that key in the array that was printed; empty if there is none.
    QJsonObject row(const QString &key) const
    {
        const QJsonArray rows = json().array();
        for (const QJsonValue &row : rows) {
            if (row[QLatin1String("key")] == key)
                return row.toObject();
        }
        return {};
    }

    QByteArray output;
    QByteArray errors;
    QString out;
    QString err;
};

/// A database with the sample content.
class SampleDatabase : public TestDatabase
{
public:
    SampleDatabase()
    {
        if (SettingsStore().open(DatabaseLocation::ofFile(path())))
            throw std::runtime_error("no sample database");
    }
};
