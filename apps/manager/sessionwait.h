#pragma once

#include <host/settingssession.h>

#include <optional>

/// Waits for a session where there is no window to be kept alive meanwhile.
class SessionWait
{
public:
    [[nodiscard]] static std::optional<DatabaseError> load(SettingsSession &session);
    static SaveResult save(SettingsSession &session,
                           SettingsSession::Unreadable unreadable = SettingsSession::Unreadable::Keep);
};
