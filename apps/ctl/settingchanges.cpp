#include "settingchanges.h"

#include "session.h"
#include "storeddifference.h"

#include <host/pageaccess.h>
#include <host/pageaccesswords.h>
#include <host/settingrules.h>
#include <host/settingvalue.h>

#include <QJsonObject>

using vantorix::OBJECT_PARAMETERS;

SettingChanges::SettingChanges(Session &session)
    : m_session(session)
    , m_wanted(session.settings())
{}

void SettingChanges::assign(const SettingAddress &address, const QString &words)
{
    const SettingValue::Judgement judgement = SettingValue::judge(address, words, m_session.objects());
    if (!judgement.stored)
        return refuse(judgement.error);
    // What is there already stays as it is written.
    if (address.valueIn(m_wanted) == judgement.stored)
        return;
    if (const auto text = address.textWith(*judgement.stored, m_wanted.value(address.key)))
        put(address.key, *text);
    else
        refuse(unreadableError(address));
}

void SettingChanges::put(const QString &key, const QString &text)
{
    // A null text would be stored as no text at all.
    m_wanted.insert(key, text.isNull() ? QStringLiteral("") : text);
}

void SettingChanges::refuse(const QString &error)
{
    m_errors.append(error);
}

QString SettingChanges::unreadableError(const SettingAddress &address)
{
    if (PageAccess::isAbout(address))
        return tr("%1: в базе данных не объект JSON, поле задать нельзя. Задайте %2 целиком.")
            .arg(address.text(), address.key);
    return tr("%1: в базе данных не объект JSON, поле задать нельзя. Исправьте: vxsettingsctl check --repair.")
        .arg(address.text());
}

Report SettingChanges::apply()
{
    refuseLocked();
    if (m_errors.isEmpty())
        refuseBrokenRules();
    if (!m_errors.isEmpty())
        return Report::failure(ExitInvalid, tr("Ничего не сохранено.\n%1").arg(m_errors.join(QLatin1Char('\n'))));
    if (m_session.commandLine().isSet(Option::DryRun))
        return report(false);

    Report done = report(true);
    const OBJECT_PARAMETERS changes = toStore();
    if (changes.isEmpty())
        return done;
    return m_session.save(changes).value_or(done);
}

void SettingChanges::refuseLocked()
{
    if (m_session.authority() == Authority::Administrator)
        return;
    const QStringList locked = PageAccess::in(m_session.settings()).locked(toStore().keys());
    if (!locked.isEmpty())
        refuse(PageAccessWords::refusal(locked));
}

void SettingChanges::refuseBrokenRules()
{
    QStringList before;
    for (const SettingRules::Violation &violation : SettingRules::violations(m_session.settings()))
        before.append(violation.message);
    for (const SettingRules::Violation &violation : SettingRules::violations(m_wanted)) {
        if (!before.contains(violation.message))
            refuse(violation.message);
    }
}

OBJECT_PARAMETERS SettingChanges::toStore() const
{
    OBJECT_PARAMETERS changes;
    const QHash<QString, QString> &stored = m_session.settings();
    for (auto wanted = m_wanted.begin(); wanted != m_wanted.end(); ++wanted) {
        if (!stored.contains(wanted.key()) || stored[wanted.key()] != *wanted)
            changes.insert(wanted.key(), *wanted);
    }
    return changes;
}

Report SettingChanges::report(bool isSaved) const
{
    const StoredDifference difference(m_session.settings(), m_wanted);
    Report report;
    report.text = difference.isEmpty() ? tr("Ничего не изменилось.\n") : difference.text();
    if (!isSaved && !difference.isEmpty())
        report.message = tr("Пробный запуск: ничего не записано.");
    report.json.setObject({{QStringLiteral("changes"), difference.json()}, {QStringLiteral("saved"), isSaved}});
    return report;
}
