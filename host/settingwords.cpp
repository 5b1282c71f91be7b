#include "settingwords.h"

#include <host/pageaccess.h>
#include <host/pageaccesswords.h>
#include <host/settingaddress.h>

#include <vxsettings/dbkeys.h>
#include <vxsettings/dbsettingshelper.h>

#include <localstorage/localstorage.h>

#include <qtcompat.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

#include <algorithm>

namespace {

QString objectName(const QString &dataName, const QString &uid)
{
    for (const vantorix::ObjectRecord &object : vantorix::LocalStorage::instance()->objects(dataName)) {
        if (QString::number(object.uid) == uid)
            return object.name;
    }
    return {};
}

QString choice(const QString &key, const QString &number)
{
    const auto choices = DBSettingsHelper::paramValues(key);
    bool isNumber = false;
    const auto found = choices.find(qtcompat::numberText(number).toUInt(&isNumber));
    return isNumber && found != choices.end() ? found->second : QString();
}

QString checkBox(const QString &text)
{
    return QVariant(text).toBool() ? SettingWords::tr("да") : SettingWords::tr("нет");
}

/// "Caption: value" of each member that the catalogue knows; null if the text is no object.
QString members(const QString &key, const QString &text)
{
    const QJsonObject object = QJsonDocument::fromJson(text.toUtf8()).object();
    QStringList lines;
    for (const QString &name : DBSettingsHelper::groupParams(DBSettingsHelper::jsonGroup(key))) {
        if (object.contains(name))
            lines << QStringLiteral("%1: %2").arg(SettingWords::caption(name),
                                                  SettingWords::value(name, object[name].toVariant().toString()));
    }
    return lines.join(QStringLiteral("; "));
}

/// What a spin box shows; null if it is none or cannot show the text.
QString number(const QString &key, const QString &text)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    const auto range = DBSettingsHelper::paramRange(key);
    if (DBSettingsHelper::paramType(key) != DBSettingsType::SpinBox || !isNumber || number < range.first ||
        number > range.second)
        return {};
    const QString special = DBSettingsHelper::paramSpecialValue(key);
    return number == range.first && !special.isEmpty() ? special : QString::number(number);
}

bool isNoObject(const QString &key, const QString &text)
{
    const DBSettingsType type = DBSettingsHelper::paramType(key);
    const bool isReference =
        type == DBSettingsType::OrgstructureSelector || type == DBSettingsType::SmartCardProfileSelector;
    return isReference && (text.isEmpty() || text == QLatin1String("0"));
}

QString quoted(const QString &text)
{
    return SettingWords::tr("«%1»").arg(text);
}

/// Fit for a list.
QString inOneLine(const QString &text)
{
    constexpr int longest = 400;
    QString line = text.left(longest);
    std::replace_if(
        line.begin(), line.end(), [](QChar c) { return c.category() == QChar::Other_Control; }, QLatin1Char(' '));
    return text.size() > longest ? line + QStringLiteral("…") : line;
}

/// What the catalogue makes of the text; null if nothing.
QString meaning(const QString &key, const QString &text)
{
    switch (DBSettingsHelper::paramType(key)) {
    case DBSettingsType::ComboBox:
        return choice(key, text);
    case DBSettingsType::CheckBox:
        return checkBox(text);
    case DBSettingsType::JsonGroup:
        return members(key, text);
    case DBSettingsType::OrgstructureSelector:
        return objectName(vantorix::ORGSTRUCTURE_DATANAME, text);
    case DBSettingsType::SmartCardProfileSelector:
        return objectName(vantorix::SMARTCARD_PROFILE_DATANAME, text);
    default:
        return {};
    }
}
} // namespace

QString SettingWords::caption(const QString &key)
{
    if (DBSettingsHelper::paramType(key) == DBSettingsType::JsonGroup)
        return DBSettingsHelper::groupName(DBSettingsHelper::jsonGroup(key));
    return DBSettingsHelper::paramName(key);
}

QString SettingWords::value(const QString &key, const QString &text)
{
    if (isSecret(key))
        return text.isEmpty() ? tr("не задано") : tr("скрыто");
    const QString words = meaning(key, text);
    return words.isEmpty() ? quoted(text) : words;
}

QString SettingWords::value(const SettingAddress &address, const QString &text)
{
    if (PageAccess::isAbout(address))
        return PageAccessWords::value(address, text);
    if (text.isNull())
        return tr("не задано");
    if (!address.isKnown())
        return inOneLine(quoted(text));
    if (isSecret(address.parameter()))
        return value(address.parameter(), text);
    if (isNoObject(address.parameter(), text))
        return tr("не выбрано");
    const QString words = number(address.parameter(), text);
    return inOneLine(words.isEmpty() ? value(address.parameter(), text) : words);
}

bool SettingWords::isSecret(const QString &key)
{
    return DBSettingsHelper::paramType(key) == DBSettingsType::Password;
}
