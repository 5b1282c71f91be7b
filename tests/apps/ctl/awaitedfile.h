#pragma once

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <fcntl.h>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

/// A file that a program waits for: it has loaded the database when it opens this end, and saves when it has read it.
class AwaitedFile
{
public:
    explicit AwaitedFile(const QString &path)
        : m_path(QFile::encodeName(path))
    {
        if (mkfifo(m_path.constData(), 0600) != 0)
            throw std::runtime_error("no pipe");
    }
    /// Whether somebody reads.
    bool isAwaited()
    {
        if (m_descriptor < 0)
            m_descriptor = open(m_path.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
        return m_descriptor >= 0;
    }
    void finish(const QByteArray &bytes)
    {
        const bool isWritten = ::write(m_descriptor, bytes.constData(), size_t(bytes.size())) == bytes.size();
        close(m_descriptor);
        if (!isWritten)
            throw std::runtime_error("the pipe takes nothing");
    }

    /// What "export" would have written.
    static QByteArray document(const QJsonObject &settings)
    {
        return QJsonDocument({{"format", "vxsettings-export"}, {"version", 1}, {"settings", settings}}).toJson();
    }

private:
    QByteArray m_path;
    int m_descriptor = -1;
};
