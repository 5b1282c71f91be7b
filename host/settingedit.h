#pragma once

#include <host/jsonsetting.h>
#include <host/settingaddress.h>

#include <vxsettings/objectparameters.h>

#include <QHash>
#include <QString>
#include <QVector>

class ObjectIndex;

/// What somebody wants to store at an address, and what was stored when it was wanted.
///
/// The members of a JSON setting are looked at one by one: another member is another value.
struct SettingEdit
{
    SettingAddress address;
    QString text;    ///< for the address alone, as its editor gives it
    QString base;    ///< what was stored then: the whole text under the key
    qint64 revision; ///< of the base; 0 if there was none

    /// The value at @p address where its key holds @p stored: a text, the text of a scalar member, any other member as
    /// it is written. Null if there is none.
    static QString valueIn(const QString &stored, const SettingAddress &address);
    /// What the editor at @p address shows where its key holds @p stored.
    static QString shownIn(const QString &stored, const SettingAddress &address, const ObjectIndex &objects);

    /// Whether @p stored, which the key holds now, already shows what is wanted.
    bool isMadeIn(const QString &stored, const ObjectIndex &objects) const;
    /// Whether somebody else has changed the value to what is not wanted: a setting, be it to the text that it had
    /// before; of a JSON setting the member. @p stored is under the key now, with @p storedRevision.
    bool clashesWith(const QString &stored, qint64 storedRevision, const ObjectIndex &objects) const;

    /// What to store so that all of @p edits are made: key → text. Other members of a JSON setting stay as @p stored
    /// has them, letter by letter. Where it has none, they come from @p shown: key → what its page shows without the
    /// edits.
    static vantorix::OBJECT_PARAMETERS texts(const QVector<SettingEdit> &edits,
                                             const vantorix::OBJECT_PARAMETERS &stored,
                                             const QHash<QString, JsonSetting::Texts> &shown);
};
