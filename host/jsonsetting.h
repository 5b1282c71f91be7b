#pragma once

#include <QString>

#include <map>

/// The text of a JSON setting, taken apart so far that a member can be replaced while the others stay as they are
/// written, letter by letter.
class JsonSetting
{
public:
    enum class State {
        Empty,      ///< nothing is stored
        Object,     ///< an object whose members differ in their names
        Unreadable, ///< anything else: another text, or an object in which a name occurs twice
    };

    explicit JsonSetting(const QString &text);

    State state() const;

    /// What to store instead of @p stored when a page that gave @p baseline now gives @p current, both objects of
    /// texts: the stored object with the members replaced that differ between the two. Where no object is stored, all
    /// members of the page.
    static QString merged(const QString &stored, const QString &baseline, const QString &current);

private:
    /// Member name → its name and its value as they are written.
    struct Member
    {
        QString name;
        QString value;
    };
    using Members = std::map<QString, Member>;

    QString text() const;

    Members m_members;
    State m_state;
};
