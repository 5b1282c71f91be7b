#include "completiontables.h"

#include "commandtable.h"
#include "valuewords.h"

#include <host/pageaccess.h>
#include <host/settingaddress.h>
#include <host/settingspages.h>

#include <vxsettings/dbsettingshelper.h>

using Addresses = QVector<SettingAddress>;

namespace {

bool isReadOnly(const SettingAddress &address)
{
    return DBSettingsHelper::paramType(address.parameter()) == DBSettingsType::Readonly;
}

/// One value each: no JSON object as a whole, which nobody types.
bool isSettable(const SettingAddress &address)
{
    return !address.isJsonObject() && !isReadOnly(address);
}

template <typename Condition>
Addresses addressesThat(Condition condition)
{
    Addresses matching;
    for (const SettingAddress &address : SettingAddress::all()) {
        if (condition(address))
            matching.append(address);
    }
    return matching;
}

Addresses settable()
{
    return addressesThat(isSettable);
}

Addresses settableInTheOpen()
{
    return addressesThat(
        [](const SettingAddress &address) { return isSettable(address) && !ValueWords::isSecret(address); });
}

Addresses keys()
{
    return addressesThat([](const SettingAddress &address) { return address.member.isEmpty(); });
}

Addresses restorable()
{
    return addressesThat([](const SettingAddress &address) {
        return address.member.isEmpty() && !isReadOnly(address) && !ValueWords::isSecret(address);
    });
}

/// What operators may edit: not in the catalogue, but a flag for each page.
Addresses accessFlags()
{
    Addresses flags;
    for (const SettingsPageName &page : settingsPages)
        flags.append({PageAccess::KEY, QString::fromLatin1(page.name)});
    return flags;
}

bool isFlag(const SettingAddress &address)
{
    return PageAccess::isAbout(address) || DBSettingsHelper::paramType(address.parameter()) == DBSettingsType::CheckBox;
}

QVector<CompletionTable::Word> choices(const SettingAddress &address)
{
    if (isFlag(address))
        return {{QStringLiteral("1"), CommandTable::tr("да")}, {QStringLiteral("0"), CommandTable::tr("нет")}};
    QVector<CompletionTable::Word> choices;
    for (const auto &[number, caption] : DBSettingsHelper::paramValues(address.parameter()))
        choices.append({QString::number(number), caption});
    return choices;
}
} // namespace

QVector<CompletionTable> CompletionTables::all()
{
    const Addresses access{{PageAccess::KEY}};
    QVector<CompletionTable> tables{
        commands(),
        options(QStringLiteral("options"), commonOptions),
        pages(),
        addresses(kindName(WordKind::Key), keys() + access),
        addresses(kindName(WordKind::Address), SettingAddress::all() + access + accessFlags()),
        addresses(kindName(WordKind::Assignment), settableInTheOpen() + accessFlags(), QStringLiteral("=")),
        addresses(kindName(WordKind::Revision), restorable() + access, QStringLiteral("@")),
        addresses(QStringLiteral("stdin"), settable()),
    };
    for (const Command &command : CommandTable::commands())
        tables.append(
            options(QStringLiteral("options ") + QLatin1String(command.name), commonOptions | command.options));
    return tables + values();
}

QString CompletionTables::kindName(WordKind kind)
{
    constexpr const char *names[] = {"text", "page", "key", "address", "assignment", "revision", "file"};
    return QString::fromLatin1(names[int(kind)]);
}

CompletionTable CompletionTables::commands()
{
    CompletionTable table{QStringLiteral("commands"), {}};
    for (const Command &command : CommandTable::commands())
        table.words.append({QString::fromLatin1(command.name), CommandTable::tr(command.summary)});
    return table;
}

CompletionTable CompletionTables::options(const QString &name, Options options)
{
    CompletionTable table{name, {}};
    for (const OptionDescription &row : CommandTable::options()) {
        if (options.testFlag(row.option))
            table.words.append({QStringLiteral("--") + QLatin1String(row.name), CommandTable::tr(row.text)});
    }
    return table;
}

CompletionTable CompletionTables::pages()
{
    CompletionTable table{kindName(WordKind::Page), {}};
    for (const SettingsPageName &page : settingsPages)
        table.words.append({QString::fromLatin1(page.name), DBSettingsHelper::groupName(page.group)});
    return table;
}

CompletionTable CompletionTables::addresses(const QString &name, const Addresses &addresses, const QString &end)
{
    CompletionTable table{name, {}};
    for (const SettingAddress &address : addresses)
        table.words.append({address.text() + end, address.caption()});
    return table;
}

QVector<CompletionTable> CompletionTables::values()
{
    QVector<CompletionTable> tables;
    for (const SettingAddress &address : settableInTheOpen() + accessFlags()) {
        const auto words = choices(address);
        if (!words.isEmpty())
            tables.append({QStringLiteral("values ") + address.text(), words});
    }
    return tables;
}
