#include "selftestsession.h"

#include "sessionwait.h"

#include <host/settingspages.h>

#include <vxsettings/dbkeys.h>
#include <vxsettings/dbparamwidget.h>
#include <vxsettings/dbsettingshelper.h>

#include <localstorage/localstorage.h>

#include <QCoreApplication>
#include <QKeyEvent>

using vantorix::LocalStorage;

namespace {

QVariantList uids(const QString &dataName)
{
    QVariantList uids;
    for (const vantorix::ObjectRecord &object : LocalStorage::instance()->objects(dataName))
        uids << object.uid;
    return uids;
}

QVariantList choices(const QString &key)
{
    QVariantList choices;
    for (const auto &choice : DBSettingsHelper::paramValues(key))
        choices << choice.first;
    return choices;
}

/// Values of which at least one is another than @p shown, if there is a choice at all.
QVariantList candidates(const QString &key, const QVariant &shown)
{
    switch (DBSettingsHelper::paramType(key)) {
    case DBSettingsType::CheckBox:
        return {!shown.toBool()};
    case DBSettingsType::ComboBox:
        return choices(key);
    case DBSettingsType::LineEdit:
    case DBSettingsType::Password:
        return {shown.toString() + QStringLiteral("-2")};
    case DBSettingsType::SpinBox:
        return {DBSettingsHelper::paramRange(key).first, DBSettingsHelper::paramRange(key).second};
    case DBSettingsType::OrgstructureSelector:
        return uids(vantorix::ORGSTRUCTURE_DATANAME);
    case DBSettingsType::SmartCardProfileSelector:
        return uids(vantorix::SMARTCARD_PROFILE_DATANAME);
    default:
        return {};
    }
}

/// False if the editor takes no other value.
bool edit(DBParamWidget *editor)
{
    const QVariant shown = editor->value();
    for (const QVariant &candidate : candidates(editor->key(), shown)) {
        editor->setValue(candidate);
        if (editor->value() != shown)
            return true;
    }
    return false;
}

/// The key under which a parameter of a page is stored: its own, or that of the JSON setting of which it is a member.
QString storedKey(DBGroups group, const QString &key)
{
    for (const QString &param : DBSettingsHelper::groupParams(group)) {
        const bool isJson = DBSettingsHelper::paramType(param) == DBSettingsType::JsonGroup;
        if (isJson && DBSettingsHelper::groupParams(DBSettingsHelper::jsonGroup(param)).contains(key))
            return param;
    }
    return key;
}
} // namespace

SelfTestSession::SelfTestSession(const QString &databasePath)
    : m_database(DatabaseLocation::ofFile(databasePath), InstallationDatabase::Missing::CreateSample)
    , m_settings(m_database)
{
    // On a copy, everything is to be tried.
    m_settings.setAuthority(Authority::Administrator);
}

std::optional<DatabaseError> SelfTestSession::open()
{
    if (auto error = SessionWait::load(m_settings))
        return error;
    for (const SettingsPageName &page : settingsPages)
        m_pages.insert(int(page.group), m_settings.openPage(page.group, &m_window));
    return {};
}

SaveResult SelfTestSession::save()
{
    SaveResult result = SessionWait::save(m_settings);
    if (result.outcome != SaveResult::Outcome::Unreadable)
        return result;
    return SessionWait::save(m_settings, SettingsSession::Unreadable::Replace);
}

SettingsSession &SelfTestSession::settings()
{
    return m_settings;
}

int SelfTestSession::pageCount() const
{
    return m_pages.count();
}

SelfTestSession::Values SelfTestSession::values() const
{
    Values values;
    for (auto page = m_pages.begin(); page != m_pages.end(); ++page) {
        for (const DBParamWidget *editor : page.value()->findChildren<DBParamWidget *>())
            values.insert({page.key(), editor->key()}, editor->value().toString());
    }
    return values;
}

QStringList SelfTestSession::editEverything()
{
    QStringList keys;
    for (auto page = m_pages.begin(); page != m_pages.end(); ++page) {
        for (DBParamWidget *editor : page.value()->findChildren<DBParamWidget *>()) {
            if (edit(editor))
                keys << storedKey(DBGroups(page.key()), editor->key());
        }
    }
    keys.removeDuplicates();
    return keys;
}

void SelfTestSession::typeInto(const QString &key, const QString &text)
{
    for (const DBParamWidget *editor : m_window.findChildren<DBParamWidget *>()) {
        if (editor->key() != key)
            continue;
        for (const QChar character : text) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, character);
            QCoreApplication::sendEvent(editor->centralWidget(), &press);
        }
    }
}
