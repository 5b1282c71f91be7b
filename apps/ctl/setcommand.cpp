#include "setcommand.h"

#include "session.h"
#include "settingchanges.h"
#include "standardinput.h"
#include "texttable.h"
#include "valuewords.h"

#include <host/settingaddress.h>

#include <QPair>

namespace {

using Assignments = QVector<QPair<SettingAddress, QString>>;

/// Whether both say what is stored in one place.
bool areRivals(const SettingAddress &left, const SettingAddress &right)
{
    return left.key == right.key && (left.member.isEmpty() || right.member.isEmpty() || left.member == right.member);
}

/// What is wrong with the arguments; null if nothing. Where a value may be, it is not told.
QString argumentError(const QStringList &arguments)
{
    QVector<SettingAddress> addresses;
    for (const QString &argument : arguments) {
        const int end = argument.indexOf(QLatin1Char('='));
        if (end <= 0)
            return SetCommand::tr("Аргумент %1 — не КЛЮЧ=ЗНАЧЕНИЕ.").arg(addresses.size() + 1);
        const auto address = SettingAddress::fromText(argument.left(end));
        const QString name = TextTable::visible(address.text());
        if (ValueWords::isSecret(address))
            return SetCommand::tr(
                       "«%1» — пароль или токен. В командной строке его увидели бы другие пользователи, и он "
                       "остался бы в истории команд. Задайте его так: vxsettingsctl set --stdin %1")
                .arg(name);
        for (const SettingAddress &other : qAsConst(addresses)) {
            if (areRivals(address, other))
                return SetCommand::tr("Настройка «%1» указана несколько раз.").arg(name);
        }
        addresses.append(address);
    }
    return {};
}

Assignments assignments(const QStringList &arguments)
{
    Assignments assignments;
    for (const QString &argument : arguments) {
        const int end = argument.indexOf(QLatin1Char('='));
        assignments.append({SettingAddress::fromText(argument.left(end)), argument.mid(end + 1)});
    }
    return assignments;
}

Report assign(Session &session, const Assignments &assignments)
{
    SettingChanges changes(session);
    for (const auto &[address, words] : assignments)
        changes.assign(address, words);
    return changes.apply();
}

Report runWithInput(Session &session, const QStringList &arguments)
{
    if (arguments.size() > 1 || arguments.constFirst().contains(QLatin1Char('=')))
        return Report::failure(ExitUsage, SetCommand::tr("С параметром --stdin укажите один КЛЮЧ без значения."));
    if (auto failure = session.load())
        return *failure;
    const auto value = StandardInput::readValue();
    if (!value)
        return Report::failure(ExitInvalid, SetCommand::tr("Ничего не сохранено. Стандартный ввод не читается, длиннее "
                                                           "%1 байт или записан не в кодировке UTF-8.")
                                                .arg(StandardInput::longest));
    return assign(session, {{SettingAddress::fromText(arguments.constFirst()), *value}});
}
} // namespace

Report SetCommand::run(Session &session)
{
    const QStringList arguments = session.commandLine().arguments();
    if (session.commandLine().isSet(Option::Stdin))
        return runWithInput(session, arguments);
    const QString error = argumentError(arguments);
    if (!error.isNull())
        return Report::failure(ExitUsage, error);
    if (auto failure = session.load())
        return *failure;
    return assign(session, assignments(arguments));
}
