#pragma once

#include <host/settingaddress.h>

#include <QCoreApplication>
#include <QJsonObject>
#include <QString>

#include <initializer_list>
#include <optional>

/// Stored values as the program prints them: never a secret, and nothing that a terminal would obey.
class ValueWords
{
    Q_DECLARE_TR_FUNCTIONS(ValueWords)

public:
    /// A value under the name that it has in JSON; nothing where none is stored.
    struct Named
    {
        QString name;
        std::optional<QString> value;
    };

    /// Whether nobody may see what is stored there, or a part of it.
    static bool isSecret(const SettingAddress &address);
    /// Null if the catalogue does not have it.
    static QString caption(const SettingAddress &address);

    /// In one line.
    static QString words(const SettingAddress &address, const std::optional<QString> &value);
    /// An object with the "key" and @p values as texts; null for what is not stored. Secrets are null too, and the
    /// object then says "hidden".
    static QJsonObject json(const SettingAddress &address, std::initializer_list<Named> values);
};
