#pragma once

#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <map>
#include <optional>

/// The members of one JSON object as they are written, letter by letter, a name that occurs twice included.
class JsonMembers
{
public:
    /// An object without members.
    JsonMembers() = default;
    /// Nothing if @p text is anything else than one JSON object.
    static std::optional<JsonMembers> fromText(const QString &text);

    bool contains(const QString &name) const;
    /// Ascending, each name once.
    QStringList names() const;
    /// How the values of @p name are written, the one that pages show as the last; empty if there is no such member.
    QStringList written(const QString &name) const;
    /// Whether every name occurs once.
    bool areUnique() const;

    /// The value of @p name, which is the one that pages show if there are several; undefined if there is no such
    /// member.
    QJsonValue value(const QString &name) const;
    /// The same as a text: a JSON string's own text, a number, true or false as it is written. Nothing for null, an
    /// array or an object, and if there is no such member.
    std::optional<QString> scalar(const QString &name) const;

    /// Makes the JSON string @p text the only value of @p name.
    void setText(const QString &name, const QString &text);
    /// Makes @p flag, a JSON boolean, the only value of @p name.
    void setFlag(const QString &name, bool flag);

    /// The object with a member a line, ascending, and a final line break: what the settings library writes for the
    /// same members. Values stay as they are written; of several values of one name the one that
    /// pages show.
    QString text() const;

private:
    struct Member
    {
        QString writtenName;
        QStringList writtenValues;
    };

    std::map<QString, Member> m_members;
};
