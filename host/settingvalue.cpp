#include "settingvalue.h"

#include <host/pageaccess.h>
#include <host/parameterdomain.h>
#include <host/settingspages.h>
#include <host/settingwords.h>
#include <host/storedtext.h>

#include <vxsettings/dbsettingshelper.h>

namespace {

/// Fit for a message.
QString shortened(const QString &text)
{
    constexpr int longest = 60;
    const QString line = text.left(4 * longest).simplified();
    return line.size() > longest ? line.left(longest) + QStringLiteral("…") : line;
}

QStringList pageNames()
{
    QStringList names;
    for (const SettingsPageName &page : settingsPages)
        names.append(QLatin1String(page.name));
    return names;
}
} // namespace

SettingValue::Judgement SettingValue::judge(const SettingAddress &address, const QString &words,
                                            const ObjectIndex &objects)
{
    if (PageAccess::isAbout(address))
        return judgeAccess(address, words);
    if (!address.isKnown())
        return {{}, unknownError(address)};
    if (address.isJsonObject())
        return judgeObject(address, words, objects);
    if (DBSettingsHelper::paramType(address.parameter()) == DBSettingsType::Readonly)
        return {{}, tr("%1 (%2): только для чтения. Уберите эту настройку.").arg(address.caption(), address.text())};
    return judgeParameter(address, words, objects);
}

SettingValue::Judgement SettingValue::judgeAccess(const SettingAddress &address, const QString &words)
{
    if (address.member.isEmpty()) {
        for (const SettingFinding &finding : PageAccess(words).findings()) {
            if (!SettingProblem::isNotice(finding.problem))
                return {{}, valueError(finding.address, finding.stored, finding.words)};
        }
        return {words, {}};
    }
    if (!PageAccess::pageOf(address))
        return {{}, tr("Страницы «%1» нет. Страницы: %2.").arg(address.member, pageNames().join(QStringLiteral(", ")))};
    const QString flag = ParameterDomain::storedFlag(words);
    if (flag != QLatin1String("true") && flag != QLatin1String("false"))
        return {{}, valueError(address, words, SettingProblem::words(SettingProblem::Kind::NotAFlag))};
    return {flag, {}};
}

SettingValue::Judgement SettingValue::judgeObject(const SettingAddress &address, const QString &text,
                                                  const ObjectIndex &objects)
{
    for (const SettingFinding &finding : StoredText(address.key, text, objects).findings()) {
        if (!SettingProblem::isNotice(finding.problem))
            return {{}, valueError(finding.address, finding.stored, finding.words)};
    }
    return {text, {}};
}

SettingValue::Judgement SettingValue::judgeParameter(const SettingAddress &address, const QString &words,
                                                     const ObjectIndex &objects)
{
    const ParameterDomain domain(address.parameter(), objects);
    const QString stored = domain.stored(words);
    const SettingProblem::Kind problem = domain.problem(stored);
    if (SettingProblem::isNotice(problem))
        return {stored, {}};
    const QString explanation = QStringLiteral("%1 %2").arg(SettingProblem::words(problem), domain.allowed());
    return {{}, valueError(address, words, explanation)};
}

QString SettingValue::unknownError(const SettingAddress &address)
{
    const SettingAddress whole{address.key};
    if (!whole.isKnown())
        return tr("Настройки «%1» нет. Проверьте имя: прописные и строчные буквы различаются.").arg(address.key);
    if (!whole.isJsonObject())
        return tr("У настройки «%1» нет полей. Укажите имя без «.%2».").arg(address.key, address.member);
    const QStringList known = DBSettingsHelper::groupParams(DBSettingsHelper::jsonGroup(address.key));
    return tr("У настройки «%1» нет поля «%2». Её поля: %3.")
        .arg(address.key, address.member, known.join(QStringLiteral(", ")));
}

QString SettingValue::valueError(const SettingAddress &address, const QString &words, const QString &problem)
{
    const QString name = QStringLiteral("%1 (%2)").arg(address.caption(), address.text());
    if (address.isKnown() && SettingWords::isSecret(address.parameter()))
        return QStringLiteral("%1: %2").arg(name, problem);
    return tr("%1: значение «%2» не подходит. %3").arg(name, shortened(words), problem);
}
