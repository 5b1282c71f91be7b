#pragma once

#include <vxsettings/objectparameters.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <optional>

class JsonMembers;

/// Settings in a file: for backups, and for other installations.
///
///     {"format": "vxsettings-export", "settings": {"PT_…": "text", …}, "version": 1}
///
/// Each text is what is stored, letter by letter. The same settings always give the same bytes: UTF-8, sorted,
/// indented. Read-only settings belong to one installation and are left out.
class SettingsDocument
{
    Q_DECLARE_TR_FUNCTIONS(SettingsDocument)

public:
    enum class Secrets { LeaveOut, Include };

    /// A document or, without one, what is wrong with it in words.
    struct [[nodiscard]] Reading;

    /// Of what an installation stores, settings that are not in the catalogue included.
    static SettingsDocument of(const vantorix::OBJECT_PARAMETERS &stored, Secrets secrets);

    /// Refuses another format, another version, a name that occurs twice, a value that is no text, a member that
    /// version 1 does not have, and bytes that are not valid UTF-8. What the settings hold is not looked at.
    static Reading fromJson(const QByteArray &json);
    static Reading read(const QString &path);

    /// Stored key → text.
    const vantorix::OBJECT_PARAMETERS &settings() const;
    QByteArray toJson() const;

    /// Replaces the file in one step, durably; only its owner can read it if there are secrets in it. If it fails, what
    /// is wrong, a sentence.
    [[nodiscard]] std::optional<QString> write(const QString &path) const;

private:
    explicit SettingsDocument(const vantorix::OBJECT_PARAMETERS &settings);

    static Reading fromText(const QString &text);
    static std::optional<QString> headProblem(const JsonMembers &head);
    static Reading fromSettings(const JsonMembers &settings);

    bool hasSecrets() const;

    vantorix::OBJECT_PARAMETERS m_settings;
};

struct SettingsDocument::Reading
{
    std::optional<SettingsDocument> document;
    QString error;
};
