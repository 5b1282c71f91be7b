#pragma once

#include <QCoreApplication>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

/// One run of the host program: what it printed and the icon that it drew.
struct IconHostRun
{
    explicit IconHostRun(const QString &start, const QStringList &environment = {})
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath("icon.png");
        QProcess host;
        host.setEnvironment(QProcess::systemEnvironment() + environment +
                            QStringList("XDG_RUNTIME_DIR=" + folder.path()));
        host.start(QCoreApplication::applicationDirPath() + "/iconhost", {start, file});
        succeeded = host.waitForFinished() && host.exitStatus() == QProcess::NormalExit && host.exitCode() == 0;
        lines = QString::fromUtf8(host.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
        errors = QString::fromUtf8(host.readAllStandardError());
        icon = QImage(file);
    }

    bool succeeded = false;
    QStringList lines;
    QString errors;
    QImage icon; ///< in pixels of the screen
};
