#include "settingsdocument.h"

#include <host/durablefile.h>
#include <host/jsonmembers.h>
#include <host/settingaddress.h>
#include <host/settingwords.h>

#include <vxsettings/dbsettingshelper.h>

#include <qtcompat.h>

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using vantorix::OBJECT_PARAMETERS;

namespace {

const QString formatMember = QStringLiteral("format");
const QString versionMember = QStringLiteral("version");
const QString settingsMember = QStringLiteral("settings");
const QString formatName = QStringLiteral("vxsettings-export");
constexpr int currentVersion = 1;

bool isOfType(const QString &key, DBSettingsType type)
{
    return SettingAddress{key}.isKnown() && DBSettingsHelper::paramType(key) == type;
}

bool isSecret(const QString &key)
{
    return SettingAddress{key}.isKnown() && SettingWords::isSecret(key);
}

/// The name of a member that occurs more than once; null if there is none.
QString duplicate(const JsonMembers &members)
{
    const QStringList names = members.names();
    const auto found = std::find_if(names.begin(), names.end(),
                                    [&members](const QString &name) { return members.written(name).size() > 1; });
    return found == names.end() ? QString() : *found;
}
} // namespace

SettingsDocument::SettingsDocument(const OBJECT_PARAMETERS &settings)
    : m_settings(settings)
{}

SettingsDocument SettingsDocument::of(const OBJECT_PARAMETERS &stored, Secrets secrets)
{
    OBJECT_PARAMETERS settings;
    for (auto setting = stored.begin(); setting != stored.end(); ++setting) {
        const bool isHidden = secrets == Secrets::LeaveOut && isSecret(setting.key());
        if (!isHidden && !isOfType(setting.key(), DBSettingsType::Readonly))
            settings.insert(setting.key(), setting.value());
    }
    return SettingsDocument(settings);
}

SettingsDocument::Reading SettingsDocument::fromJson(const QByteArray &json)
{
    const auto text = qtcompat::fromUtf8(json);
    if (!text)
        return {{}, tr("Документ записан не в кодировке UTF-8.")};
    const QByteArray utf8 = text->toUtf8(); // without a byte order mark
    QJsonParseError error;
    QJsonDocument::fromJson(utf8, &error);
    if (error.error == QJsonParseError::NoError)
        return fromText(*text);
    return {{}, tr("Это не документ JSON: ошибка в строке %1.").arg(utf8.left(error.offset).count('\n') + 1)};
}

SettingsDocument::Reading SettingsDocument::read(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {{}, tr("Не удаётся прочитать файл «%1»: %2.").arg(path, file.errorString())};
    const QByteArray json = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return {{}, tr("Не удаётся прочитать файл «%1»: %2.").arg(path, file.errorString())};
    Reading reading = fromJson(json);
    if (!reading.document)
        reading.error = tr("Файл «%1» нельзя использовать. %2").arg(path, reading.error);
    return reading;
}

const OBJECT_PARAMETERS &SettingsDocument::settings() const
{
    return m_settings;
}

QByteArray SettingsDocument::toJson() const
{
    QJsonObject settings;
    for (auto setting = m_settings.begin(); setting != m_settings.end(); ++setting)
        settings.insert(setting.key(), setting.value());
    const QJsonObject document{{formatMember, formatName}, {settingsMember, settings}, {versionMember, currentVersion}};
    return QJsonDocument(document).toJson();
}

std::optional<QString> SettingsDocument::write(const QString &path) const
{
    using Readers = DurableFile::Readers;
    return DurableFile::write(path, toJson(), hasSecrets() ? Readers::OwnerOnly : Readers::AsUsual);
}

SettingsDocument::Reading SettingsDocument::fromText(const QString &text)
{
    const auto head = JsonMembers::fromText(text);
    if (!head)
        return {{}, tr("Это не выгрузка настроек: документ — не объект JSON.")};
    if (const auto problem = headProblem(*head))
        return {{}, *problem};
    const auto settings = JsonMembers::fromText(head->written(settingsMember).value(0));
    return settings ? fromSettings(*settings) : Reading{{}, tr("Поле «settings» — не объект JSON.")};
}

std::optional<QString> SettingsDocument::headProblem(const JsonMembers &head)
{
    if (head.scalar(formatMember) != formatName)
        return tr("Это не выгрузка настроек: поле «format» должно содержать «%1».").arg(formatName);
    if (head.value(versionMember) != QJsonValue(currentVersion))
        return tr("Версия выгрузки не поддерживается: поле «version» должно содержать число %1.").arg(currentVersion);
    for (const QString &name : head.names()) {
        if (name != formatMember && name != versionMember && name != settingsMember)
            return tr("Поле «%1» неизвестно: в выгрузке версии %2 его нет.").arg(name).arg(currentVersion);
    }
    if (!head.areUnique())
        return tr("Поле «%1» записано несколько раз.").arg(duplicate(head));
    return {};
}

SettingsDocument::Reading SettingsDocument::fromSettings(const JsonMembers &settings)
{
    if (!settings.areUnique())
        return {{}, tr("Настройка «%1» записана несколько раз.").arg(duplicate(settings))};
    OBJECT_PARAMETERS texts;
    for (const QString &key : settings.names()) {
        const QString text = settings.value(key).toString();
        if (!settings.value(key).isString() || !text.isValidUtf16() || !key.isValidUtf16())
            return {{}, tr("Значение настройки «%1» — не текст.").arg(key)};
        texts.insert(key, text);
    }
    return {SettingsDocument(texts), {}};
}

bool SettingsDocument::hasSecrets() const
{
    return std::any_of(m_settings.keyBegin(), m_settings.keyEnd(), isSecret);
}
