#pragma once

#include "exitstatus.h"

#include <host/databaseerror.h>
#include <host/databaselocation.h>

#include <QCoreApplication>
#include <QString>
#include <QTemporaryDir>

#include <optional>

class QTextStream;

/// Changes, saves and reads again every setting of a database, as an operator would, and tells in words what came of
/// it.
///
/// All of it happens on a temporary copy in a file, or on a new sample database where there is no file yet.
class SelfTest
{
    Q_DECLARE_TR_FUNCTIONS(SelfTest)

public:
    SelfTest(const DatabaseLocation &database, QTextStream &out, QTextStream &err);

    ExitStatus run();

private:
    std::optional<DatabaseError> makeWorkingCopy();
    std::optional<DatabaseError> copyFile();
    std::optional<DatabaseError> copyServer();
    /// Each says what it does and what it found; the error is one that stops the whole test.
    std::optional<DatabaseError> testSaving();
    std::optional<DatabaseError> testReverting();
    std::optional<DatabaseError> testConflict();
    std::optional<DatabaseError> testOriginal();
    void report(bool passed, const QString &what);

    DatabaseLocation m_database;
    QTextStream &m_out;
    QTextStream &m_err;
    QTemporaryDir m_folder;
    QString m_workingCopy;
    QByteArray m_originalContent; ///< a hash; of nothing if there is no file
    bool m_passed = true;
};
