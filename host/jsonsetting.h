#pragma once

#include <host/jsonmembers.h>

#include <QHash>
#include <QString>

/// The text of a JSON setting, of which single members are replaced while the others stay as they are written, letter
/// by letter.
class JsonSetting
{
public:
    enum class State {
        Empty,      ///< nothing is stored
        Object,     ///< an object whose members differ in their names
        Unreadable, ///< anything else: another text, or an object in which a name occurs twice
    };

    /// Member name → text.
    using Texts = QHash<QString, QString>;

    explicit JsonSetting(const QString &stored);

    State state() const;

    /// What to store instead: the object with the members of @p edited replaced, each by a JSON string. Where there is
    /// no member to keep, those of @p shown, which is what a page shows without these edits, come with them. Of several
    /// members of one name the last is kept.
    QString merged(const Texts &edited, const Texts &shown) const;

private:
    JsonMembers m_members;
    State m_state;
};
