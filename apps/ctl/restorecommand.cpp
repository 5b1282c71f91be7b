#include "restorecommand.h"

#include "session.h"
#include "settingchanges.h"
#include "texttable.h"
#include "valuewords.h"

namespace {

/// "KEY@REVISION".
struct RevisionAddress
{
    SettingAddress address;
    qint64 revision = 0; ///< 0 if the text is none

    static RevisionAddress fromText(const QString &text)
    {
        const int end = text.lastIndexOf(QLatin1Char('@'));
        return {SettingAddress::fromText(text.left(end)), end < 0 ? 0 : text.mid(end + 1).toLongLong()};
    }
    bool isValid() const { return !address.key.isEmpty() && address.member.isEmpty() && revision > 0; }
};

QString notRemembered(const SettingAddress &address, qint64 revision)
{
    const QString name = TextTable::visible(address.text());
    if (ValueWords::isSecret(address))
        return RestoreCommand::tr("«%1» — пароль или токен. Прежние значения паролей и токенов не хранятся.").arg(name);
    return RestoreCommand::tr("У настройки «%1» нет ревизии %2, или её значение не сохранилось. Посмотрите: "
                              "vxsettingsctl history %1")
        .arg(name)
        .arg(revision);
}
} // namespace

Report RestoreCommand::run(Session &session)
{
    const QString argument = session.commandLine().arguments().constFirst();
    const auto wanted = RevisionAddress::fromText(argument);
    if (!wanted.isValid())
        return Report::failure(ExitUsage, tr("«%1» — не КЛЮЧ@РЕВИЗИЯ. Настройка восстанавливается целиком, ревизия — "
                                             "число из команды history.")
                                              .arg(TextTable::visible(argument)));
    if (auto failure = session.load())
        return *failure;
    QString text;
    if (auto failure = session.readTextAt(wanted.address.key, wanted.revision, text))
        return *failure;
    if (text.isNull())
        return Report::failure(ExitDiffers, notRemembered(wanted.address, wanted.revision));

    SettingChanges changes(session);
    changes.assign(wanted.address, text);
    return changes.apply();
}
