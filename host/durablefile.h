#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <optional>

/// Files that are there as a whole or not at all.
class DurableFile
{
    Q_DECLARE_TR_FUNCTIONS(DurableFile)

public:
    enum class Readers {
        AsUsual,   ///< as the user's mask says, or as it was
        OwnerOnly, ///< mode 0600
    };

    /// Puts @p bytes into the place of the file @p path in one step, and returns when that outlasts a power failure. If
    /// it fails, what is wrong, a sentence; the file is then as it was, unless the sentence says otherwise. Only
    /// regular files are replaced, a symbolic link to one is followed.
    [[nodiscard]] static std::optional<QString> write(const QString &path, const QByteArray &bytes, Readers readers);
};
