#include "pageaccesswords.h"

#include <host/pageaccess.h>
#include <host/settingspages.h>

#include <vxsettings/dbsettingshelper.h>

namespace {

QStringList lockedTitles(const PageAccess &access)
{
    QStringList titles;
    for (const SettingsPageName &page : settingsPages) {
        if (!access.mayEdit(page.group))
            titles.append(DBSettingsHelper::groupName(page.group));
    }
    return titles;
}

QStringList pageTitles(const QStringList &keys)
{
    QStringList titles;
    for (const QString &key : keys) {
        if (key != PageAccess::KEY)
            titles.append(DBSettingsHelper::groupName(SettingAddress{key}.group()));
    }
    titles.removeDuplicates();
    return titles;
}
} // namespace

QString PageAccessWords::caption(const SettingAddress &address)
{
    if (address.member.isEmpty())
        return tr("Доступ операторов к страницам");
    const auto page = PageAccess::pageOf(address);
    return tr("Доступ операторов: %1").arg(page ? DBSettingsHelper::groupName(*page) : address.member);
}

QString PageAccessWords::value(const SettingAddress &address, const QString &text)
{
    if (!address.member.isEmpty() && !text.isNull())
        return text == QLatin1String("true") ? tr("можно изменять") : tr("закрыто");
    const PageAccess access = text.isNull() ? PageAccess() : PageAccess(text);
    if (!access.isReadable())
        return tr("не читается, закрыты все страницы");
    const QStringList locked = lockedTitles(access);
    return locked.isEmpty() ? tr("можно изменять всё") : tr("закрыты: %1").arg(quoted(locked));
}

QString PageAccessWords::refusal(const QStringList &keys)
{
    QStringList sentences;
    const QStringList pages = pageTitles(keys);
    if (!pages.isEmpty())
        sentences << tr("Операторам нельзя изменять страницы: %1.").arg(quoted(pages))
                  << tr("Администратор открывает их в окне «Доступ операторов» программы vxsettings-manager или "
                        "сохраняет командой vxsettingsctl с параметром --as-administrator.");
    if (keys.contains(PageAccess::KEY))
        sentences << tr("Доступ операторов меняет администратор: в окне «Доступ операторов» программы "
                        "vxsettings-manager или командой vxsettingsctl с параметром --as-administrator.");
    return sentences.join(QLatin1Char(' '));
}

QString PageAccessWords::lockReason(const PageAccess &access)
{
    if (!access.isReadable())
        return tr("Записанный доступ операторов не читается, поэтому закрыты все страницы. Исправить его может "
                  "администратор.");
    return tr("Администратор закрыл эту страницу для операторов: изменить её нельзя.");
}

QString PageAccessWords::quoted(const QStringList &titles)
{
    QStringList quoted;
    for (const QString &title : titles)
        quoted.append(tr("«%1»").arg(title));
    return quoted.join(QStringLiteral(", "));
}
