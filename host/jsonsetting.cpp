#include "jsonsetting.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QStringList>

namespace {

/// Walks the text of an object that is known to be well-formed.
class Scanner
{
public:
    explicit Scanner(const QString &text)
        : m_text(text)
    {
        skipTo(QLatin1Char('{'));
    }

    /// Moves behind the next member's name, false at the end of the object.
    bool readName(QString &name)
    {
        while (current() != QLatin1Char('"') && current() != QLatin1Char('}'))
            ++m_position;
        const int start = m_position;
        if (current() == QLatin1Char('}'))
            return false;
        skipString();
        name = m_text.mid(start, m_position - start);
        return true;
    }

    /// Moves behind the value that follows.
    QString readValue()
    {
        skipTo(QLatin1Char(':'));
        const int start = m_position;
        for (int depth = 0; depth > 0 || !isEndOfMember();) {
            if (current() == QLatin1Char('"')) {
                skipString();
                continue;
            }
            if (isOneOf("{["))
                ++depth;
            else if (isOneOf("}]"))
                --depth;
            ++m_position;
        }
        return m_text.mid(start, m_position - start).trimmed();
    }

private:
    QChar current() const { return m_text.at(m_position); }
    bool isOneOf(const char *characters) const { return QLatin1String(characters).contains(current()); }
    bool isEndOfMember() const { return isOneOf(",}"); }

    void skipTo(QChar character) { m_position = m_text.indexOf(character, m_position) + 1; }

    void skipString()
    {
        for (++m_position; current() != QLatin1Char('"'); ++m_position) {
            if (current() == QLatin1Char('\\'))
                ++m_position;
        }
        ++m_position;
    }

    const QString &m_text;
    int m_position = 0;
};

QString unquoted(const QString &name)
{
    return QJsonDocument::fromJson(QStringLiteral("[%1]").arg(name).toUtf8()).array().first().toString();
}
} // namespace

JsonSetting::JsonSetting(const QString &text)
    : m_state(text.trimmed().isEmpty() ? State::Empty : State::Unreadable)
{
    if (!QJsonDocument::fromJson(text.toUtf8()).isObject())
        return;

    m_state = State::Object;
    Scanner scanner(text);
    for (QString name; scanner.readName(name);) {
        const bool isNew = m_members.insert_or_assign(unquoted(name), Member{name, scanner.readValue()}).second;
        if (!isNew)
            m_state = State::Unreadable;
    }
}

JsonSetting::State JsonSetting::state() const
{
    return m_state;
}

QString JsonSetting::merged(const QString &stored, const QString &baseline, const QString &current)
{
    JsonSetting result(stored);
    const Members before = JsonSetting(baseline).m_members;
    const Members shown = JsonSetting(current).m_members;
    const bool keepsOthers = !result.m_members.empty();
    for (const auto &[name, member] : shown) {
        const auto old = before.find(name);
        if (!keepsOthers || old == before.end() || old->second.value != member.value)
            result.m_members.insert_or_assign(name, member);
    }
    return result.text();
}

QString JsonSetting::text() const
{
    QStringList lines;
    for (const auto &[name, member] : m_members)
        lines << QStringLiteral("    %1: %2").arg(member.name, member.value);
    return QStringLiteral("{\n%1\n}\n").arg(lines.join(QStringLiteral(",\n")));
}
