#pragma once

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QString>
#include <QStringList>

/// Looks for a secret, or a part of it, where it must not be.
class SecretSearch
{
public:
    /// @p secret is so long, and so much by chance, that each 32 characters of it are found nowhere else.
    explicit SecretSearch(const QString &secret)
        : m_encodings{secret.toUtf8().toBase64()}
    {
        for (int start = 0; start < secret.size(); start += partSize) {
            const QString part = secret.mid(start, partSize);
            m_encodings << part.toUtf8() << utf16(part, true) << utf16(part, false) << part.toUtf8().toHex();
        }
    }

    bool isIn(const QByteArray &bytes) const
    {
        return std::any_of(m_encodings.begin(), m_encodings.end(),
                           [&bytes](const QByteArray &encoding) { return bytes.contains(encoding); });
    }
    bool isIn(const QString &text) const { return isIn(text.toUtf8()); }

    /// The files below @p folder that have it in their name or content.
    QStringList files(const QString &folder) const
    {
        QStringList found;
        for (QDirIterator it(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
             it.hasNext();) {
            QFile file(it.next());
            if (isIn(file.fileName()) || (file.open(QIODevice::ReadOnly) && isIn(file.readAll())))
                found.append(QDir(folder).relativeFilePath(file.fileName()));
        }
        found.sort();
        return found;
    }

    /// What every user sees of the processes: the numbers of those that have it in their arguments.
    QStringList processes() const
    {
        QStringList found;
        for (const QString &process : QDir(QStringLiteral("/proc")).entryList(QDir::Dirs)) {
            QFile arguments(QStringLiteral("/proc/%1/cmdline").arg(process));
            if (arguments.open(QIODevice::ReadOnly) && isIn(arguments.readAll()))
                found.append(process);
        }
        return found;
    }

private:
    static constexpr int partSize = 32;

    static QByteArray utf16(const QString &text, bool isLittleEndian)
    {
        QByteArray bytes;
        for (const QChar c : text) {
            bytes += char(isLittleEndian ? c.cell() : c.row());
            bytes += char(isLittleEndian ? c.row() : c.cell());
        }
        return bytes;
    }

    QVector<QByteArray> m_encodings;
};
