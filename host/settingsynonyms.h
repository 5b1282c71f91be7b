#pragma once

#include <QStringList>

struct SettingAddress;

/// What people call a setting, or look for it by, that neither its caption nor its page says. Russian and English words
/// stand side by side: they are no texts of the user interface, and are found in every language.
class SettingSynonyms
{
public:
    /// Those of the parameter, of its page, and of its JSON group if it has one. Empty if the catalogue does not have
    /// the address.
    static QStringList of(const SettingAddress &address);
};
