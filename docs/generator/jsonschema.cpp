#include "jsonschema.h"

#include "integerpattern.h"

#include <vxsettings/dbsettingshelper.h>

#include <QJsonArray>
#include <QJsonDocument>

namespace {

QJsonObject flag()
{
    return {{QStringLiteral("enum"), QJsonArray{QStringLiteral("true"), QStringLiteral("false"), QStringLiteral("1"),
                                                QStringLiteral("0"), true, false, 1, 0}}};
}

QJsonObject number(const QString &name)
{
    const auto [minimum, maximum] = DBSettingsHelper::paramRange(name);
    const QJsonObject text{{QStringLiteral("type"), QStringLiteral("string")},
                           {QStringLiteral("pattern"), IntegerPattern::between(minimum, maximum)}};
    const QJsonObject integer{{QStringLiteral("type"), QStringLiteral("integer")},
                              {QStringLiteral("minimum"), minimum},
                              {QStringLiteral("maximum"), maximum}};
    return {{QStringLiteral("anyOf"), QJsonArray{text, integer}}};
}
} // namespace

QString JsonSchema::text(const QString &key) const
{
    const DBGroups group = DBSettingsHelper::jsonGroup(key);
    QJsonObject members;
    for (const QString &name : DBSettingsHelper::groupParams(group))
        members.insert(name, member(name));
    const QJsonObject schema{
        {QStringLiteral("$schema"), QStringLiteral("https://json-schema.org/draft/2020-12/schema")},
        {QStringLiteral("$comment"),
         QStringLiteral("Made by scripts/update-reference.sh. What is stored is a string for each member. Numbers and "
                        "booleans are read as well. Other members are kept; a missing one is read as false or as the "
                        "lowest number.")},
        {QStringLiteral("title"), key},
        {QStringLiteral("description"), m_languages.both([group] { return DBSettingsHelper::groupName(group); })},
        {QStringLiteral("type"), QStringLiteral("object")},
        {QStringLiteral("properties"), members},
    };
    return QString::fromUtf8(QJsonDocument(schema).toJson());
}

QJsonObject JsonSchema::member(const QString &name) const
{
    const bool isNumber = DBSettingsHelper::paramType(name) == DBSettingsType::SpinBox;
    Q_ASSERT(isNumber || DBSettingsHelper::paramType(name) == DBSettingsType::CheckBox);
    QJsonObject schema = isNumber ? number(name) : flag();
    schema.insert(QStringLiteral("description"),
                  m_languages.both([&name] { return DBSettingsHelper::paramName(name); }));
    return schema;
}
