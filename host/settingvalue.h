#pragma once

#include <host/settingaddress.h>

#include <QCoreApplication>
#include <QString>

#include <optional>

class ObjectIndex;

/// Values that somebody has written by hand, judged by the catalogue.
class SettingValue
{
    Q_DECLARE_TR_FUNCTIONS(SettingValue)

public:
    struct [[nodiscard]] Judgement
    {
        std::optional<QString> stored; ///< the exact text to store at the address; nothing if the value is refused
        QString error;                 ///< why it is refused and what would be right, a few sentences; no secret
    };

    /// Judges @p words for @p address, known to the catalogue or not.
    ///
    /// - Number: decimal digits, a minus before them; no blanks. The range is inclusive. What the editor shows instead
    /// of
    ///   the minimum stands for it.
    /// - Choice: its number, or its caption in the current language; in any case unless that is ambiguous.
    /// - Flag: "true", "да", "yes", "1" and their opposites, in any case; stored as "true" or "false".
    /// - Object: the uid of one that exists and that a selector offers, or "0" for none; whether the operator may see
    /// it
    ///   does not matter.
    /// - Text: one line without control characters.
    /// - JSON object: one with unique names, each member of the catalogue as it is stored; others are let through.
    ///   Stored letter by letter.
    ///
    /// - PageAccess: as a whole such an object; one of its flags like any flag.
    ///
    /// A read-only setting is refused. The rules across settings are another matter, see SettingRules.
    static Judgement judge(const SettingAddress &address, const QString &words, const ObjectIndex &objects);

private:
    static Judgement judgeAccess(const SettingAddress &address, const QString &words);
    static Judgement judgeObject(const SettingAddress &address, const QString &text, const ObjectIndex &objects);
    static Judgement judgeParameter(const SettingAddress &address, const QString &words, const ObjectIndex &objects);
    static QString unknownError(const SettingAddress &address);
    static QString valueError(const SettingAddress &address, const QString &words, const QString &problem);
};
