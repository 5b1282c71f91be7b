#include "jsonmembers.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

/// Walks the text of an object that is known to be well-formed.
class Scanner
{
public:
    explicit Scanner(const QString &text)
        : m_text(text)
        , m_position(text.indexOf(QLatin1Char('{')) + 1)
    {}

    /// Moves behind the next member's name; null at the end of the object.
    QString readName()
    {
        while (!isOneOf("\"}"))
            ++m_position;
        if (isOneOf("}"))
            return {};
        const int start = m_position;
        skipString();
        return m_text.mid(start, m_position - start);
    }

    /// Moves behind the value that follows the name.
    QString readValue()
    {
        m_position = m_text.indexOf(QLatin1Char(':'), m_position) + 1;
        const int start = m_position;
        for (int depth = 0; depth > 0 || !isOneOf(",}");)
            depth += skipToken();
        return m_text.mid(start, m_position - start).trimmed();
    }

private:
    bool isOneOf(const char *characters) const { return QLatin1String(characters).contains(m_text.at(m_position)); }

    /// By how much it leads deeper.
    int skipToken()
    {
        if (isOneOf("\"")) {
            skipString();
            return 0;
        }
        const int step = isOneOf("{[") ? 1 : isOneOf("}]") ? -1 : 0;
        ++m_position;
        return step;
    }

    void skipString()
    {
        for (++m_position; !isOneOf("\""); ++m_position) {
            if (isOneOf("\\"))
                ++m_position;
        }
        ++m_position;
    }

    const QString &m_text;
    int m_position;
};

QJsonValue parsed(const QString &written)
{
    return QJsonDocument::fromJson('[' + written.toUtf8() + ']').array().first();
}

QString quoted(const QString &text)
{
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.mid(1, array.size() - 2));
}

/// Moves what of @p written is read as @p value behind the others.
void putLast(const QJsonValue &value, QStringList &written)
{
    std::stable_partition(written.begin(), written.end(),
                          [&value](const QString &text) { return parsed(text) != value; });
}
} // namespace

std::optional<JsonMembers> JsonMembers::fromText(const QString &text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
    if (!document.isObject())
        return {};

    JsonMembers members;
    Scanner scanner(text);
    for (QString name = scanner.readName(); !name.isNull(); name = scanner.readName()) {
        Member &member = members.m_members[parsed(name).toString()];
        member.writtenName = name;
        member.writtenValues.append(scanner.readValue());
    }
    const QJsonObject object = document.object();
    for (auto &[name, member] : members.m_members) {
        // In an object of more than 16 members the parser does not always read the last one.
        if (member.writtenValues.size() > 1)
            putLast(object.value(name), member.writtenValues);
    }
    return members;
}

bool JsonMembers::contains(const QString &name) const
{
    return m_members.count(name) > 0;
}

QStringList JsonMembers::names() const
{
    QStringList names;
    for (const auto &[name, member] : m_members)
        names.append(name);
    return names;
}

QStringList JsonMembers::written(const QString &name) const
{
    const auto found = m_members.find(name);
    return found == m_members.end() ? QStringList() : found->second.writtenValues;
}

bool JsonMembers::areUnique() const
{
    for (const auto &[name, member] : m_members) {
        if (member.writtenValues.size() > 1)
            return false;
    }
    return true;
}

QJsonValue JsonMembers::value(const QString &name) const
{
    return contains(name) ? parsed(written(name).constLast()) : QJsonValue(QJsonValue::Undefined);
}

std::optional<QString> JsonMembers::scalar(const QString &name) const
{
    const QJsonValue found = value(name);
    if (found.isString())
        return found.toString();
    if (found.isDouble() || found.isBool())
        return written(name).constLast();
    return {};
}

void JsonMembers::setText(const QString &name, const QString &text)
{
    m_members.insert_or_assign(name, Member{quoted(name), {quoted(text)}});
}

void JsonMembers::setFlag(const QString &name, bool flag)
{
    m_members.insert_or_assign(name, Member{quoted(name), {flag ? QStringLiteral("true") : QStringLiteral("false")}});
}

QString JsonMembers::text() const
{
    QString text = QStringLiteral("{\n");
    const char *separator = "";
    for (const auto &[name, member] : m_members) {
        text += QLatin1String(separator) + QStringLiteral("    ") + member.writtenName + QStringLiteral(": ") +
                member.writtenValues.last();
        separator = ",\n";
    }
    return text + QLatin1String(m_members.empty() ? "}\n" : "\n}\n");
}
