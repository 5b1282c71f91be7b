#include "describecommand.h"

#include "pagenames.h"
#include "parameterkind.h"
#include "session.h"
#include "texttable.h"

#include <host/pageaccess.h>
#include <host/pageaccesswords.h>
#include <host/parameterdomain.h>
#include <host/settingaddress.h>

#include <vxsettings/dbsettingshelper.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>

namespace {

/// Null where no value can be set, and for a JSON object as a whole.
QString allowed(const SettingAddress &address)
{
    const ObjectIndex noObjects({}); // what is allowed is told without naming any
    const bool isReadOnly = DBSettingsHelper::paramType(address.parameter()) == DBSettingsType::Readonly;
    return isReadOnly || address.isJsonObject() ? QString() : ParameterDomain(address.parameter(), noObjects).allowed();
}

/// Below the same key, as members are switched by members.
QStringList addresses(const SettingAddress &address, const QStringList &parameters)
{
    QStringList texts;
    for (const QString &parameter : parameters) {
        const bool isMember = address.isJsonObject() || !address.member.isEmpty();
        texts.append(isMember ? SettingAddress{address.key, parameter}.text() : parameter);
    }
    return texts;
}

QStringList dependents(const SettingAddress &address)
{
    return addresses(address, DBSettingsHelper::paramChilds(address.parameter()));
}

QStringList members(const SettingAddress &address)
{
    if (!address.isJsonObject())
        return {};
    return addresses(address, DBSettingsHelper::groupParams(DBSettingsHelper::jsonGroup(address.key)));
}

/// The tool tip without its markup.
QString toolTip(const SettingAddress &address)
{
    static const QRegularExpression lineBreak(QStringLiteral("<br\\s*/?>"));
    static const QRegularExpression tag(QStringLiteral("<[^>]*>"));
    return DBSettingsHelper::toolTip(address.parameter())
        .replace(lineBreak, QStringLiteral("\n"))
        .remove(tag)
        .trimmed();
}

QString page(const SettingAddress &address)
{
    return PageNames::name(SettingAddress{address.key}.group());
}

QJsonArray choices(const SettingAddress &address)
{
    QJsonArray choices;
    for (const auto &[number, caption] : DBSettingsHelper::paramValues(address.parameter()))
        choices.append(
            QJsonObject{{QStringLiteral("value"), QString::number(number)}, {QStringLiteral("caption"), caption}});
    return choices;
}

QJsonValue unlessEmpty(const QString &text)
{
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}

QJsonObject json(const SettingAddress &address)
{
    const bool isNumber = DBSettingsHelper::paramType(address.parameter()) == DBSettingsType::SpinBox;
    const auto [minimum, maximum] = DBSettingsHelper::paramRange(address.parameter());
    return {
        {QStringLiteral("key"), address.text()},
        {QStringLiteral("group"), page(address)},
        {QStringLiteral("caption"), address.caption()},
        {QStringLiteral("kind"), ParameterKind::name(address.parameter())},
        {QStringLiteral("minimum"), isNumber ? QJsonValue(minimum) : QJsonValue()},
        {QStringLiteral("maximum"), isNumber ? QJsonValue(maximum) : QJsonValue()},
        {QStringLiteral("specialValue"), unlessEmpty(DBSettingsHelper::paramSpecialValue(address.parameter()))},
        {QStringLiteral("choices"), choices(address)},
        {QStringLiteral("members"), QJsonArray::fromStringList(members(address))},
        {QStringLiteral("dependents"), QJsonArray::fromStringList(dependents(address))},
        {QStringLiteral("toolTip"), unlessEmpty(toolTip(address))},
    };
}

/// A line for each fact that there is.
QString text(const SettingAddress &address)
{
    TextTable facts;
    const auto add = [&facts](const QString &name, const QString &fact) {
        if (!fact.isEmpty())
            facts.addRow({name, fact});
    };
    const QString group =
        QStringLiteral("%1 (%2)").arg(page(address), DBSettingsHelper::groupName(SettingAddress{address.key}.group()));
    add(DescribeCommand::tr("Ключ:"), address.text());
    add(DescribeCommand::tr("Название:"), address.caption());
    add(DescribeCommand::tr("Группа:"), group);
    add(DescribeCommand::tr("Вид:"), ParameterKind::words(address.parameter()));
    add(DescribeCommand::tr("Значения:"), allowed(address));
    add(DescribeCommand::tr("Поля:"), members(address).join(QStringLiteral(", ")));
    add(DescribeCommand::tr("Зависимые:"), dependents(address).join(QStringLiteral(", ")));
    const QString tip = toolTip(address);
    return tip.isEmpty() ? facts.text() : facts.text() + QStringLiteral("\n%1\n").arg(tip);
}

/// Not in the catalogue, and on no page.
Report describeAccess()
{
    const SettingAddress access{PageAccess::KEY};
    QStringList flags;
    for (const QString &page : PageNames::all())
        flags.append(SettingAddress{access.key, page}.text());
    TextTable facts;
    facts.addRow({DescribeCommand::tr("Ключ:"), access.text()});
    facts.addRow({DescribeCommand::tr("Название:"), access.caption()});
    facts.addRow({DescribeCommand::tr("Вид:"), DescribeCommand::tr("объект JSON")});
    facts.addRow({DescribeCommand::tr("Значения:"),
                  DescribeCommand::tr("true — операторы могут изменять страницу, false — нет; пока ничего не записано, "
                                      "можно изменять всё. Меняется с параметром --as-administrator.")});
    facts.addRow({DescribeCommand::tr("Поля:"), flags.join(QStringLiteral(", "))});
    Report report;
    report.text = facts.text();
    report.json.setObject({{QStringLiteral("key"), access.text()},
                           {QStringLiteral("group"), QJsonValue()},
                           {QStringLiteral("caption"), access.caption()},
                           {QStringLiteral("kind"), QStringLiteral("json-object")},
                           {QStringLiteral("members"), QJsonArray::fromStringList(flags)}});
    return report;
}

Report describeAll()
{
    TextTable table({DescribeCommand::tr("КЛЮЧ"), DescribeCommand::tr("НАЗВАНИЕ"), DescribeCommand::tr("ВИД"),
                     DescribeCommand::tr("ЗНАЧЕНИЯ")});
    QJsonArray rows;
    for (const SettingAddress &address : SettingAddress::all()) {
        table.addRow({address.text(), address.caption(), ParameterKind::words(address.parameter()), allowed(address)});
        rows.append(json(address));
    }
    Report report;
    report.text = table.text();
    report.json.setArray(rows);
    return report;
}
} // namespace

Report DescribeCommand::run(Session &session)
{
    const QString name = session.commandLine().arguments().value(0);
    if (name.isNull())
        return describeAll();
    const auto address = SettingAddress::fromText(name);
    if (PageAccess::isAbout(address))
        return describeAccess();
    if (!address.isKnown())
        return Report::failure(ExitDiffers, tr("Настройки «%1» нет в каталоге.").arg(TextTable::visible(name)));
    Report report;
    report.text = text(address);
    report.json.setObject(json(address));
    return report;
}
