#pragma once

#include <QCoreApplication>
#include <QString>

#include <optional>

class SettingsSession;
struct SettingAddress;

/// Why an editor is disabled: which parameter beside it switches it on.
class DisabledHints
{
    Q_DECLARE_TR_FUNCTIONS(DisabledHints)

public:
    /// The parameter that switches the one at @p address on and off, if there is one.
    static std::optional<SettingAddress> switchOf(const SettingAddress &address);
    /// What to do about an editor of an open page; null while it is enabled.
    static QString words(const SettingsSession &session, const SettingAddress &address);
};
