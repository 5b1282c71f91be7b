#pragma once

#include <host/settingaddress.h>

#include <QString>

struct Installation;

/// An edit that was not saved, and what it started from.
struct DraftEdit
{
    /// What has become of the setting since.
    enum class Standing {
        Current, ///< still what the edit started from
        Done,    ///< what was wanted is stored already
        Changed, ///< somebody else has stored something else
        Unknown, ///< the catalogue does not have it any more
        Foreign, ///< the database cannot have held what the edit started from: it is another one, or an older copy
    };

    SettingAddress address;
    QString text;          ///< what was to be stored at the address
    QString base;          ///< what was stored there; null for nothing
    qint64 revision = 0;   ///< of the key then
    bool isRepair = false; ///< a part of what was to replace the whole text of that revision, which cannot be read

    /// An edit of what @p stored holds now.
    static DraftEdit of(const SettingAddress &address, const QString &text, const Installation &stored);

    Standing standing(const Installation &stored) const;
    /// Whether it is a repair of the text that is stored now.
    bool isRepairOf(const Installation &stored) const;
    /// That as a sentence in the current language.
    static QString words(Standing standing);
};

bool operator==(const DraftEdit &left, const DraftEdit &right);
