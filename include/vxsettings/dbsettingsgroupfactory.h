#pragma once

#include <vxsettings/dbsettings.h>

/// Builds settings pages.
class VXSETTINGS_EXPORT DBSettingsGroupFactory
{
public:
    /// Builds @p group with one editor per parameter, each filled from vantorix::LocalStorage.
    ///
    /// The frame becomes a child of @p root, or of @p parent if @p root is null. The caller owns the result, a
    /// DBSettingsGroup; it is never null. A number that is no group yields an empty frame.
    static std::unique_ptr<DBSettings> create(DBGroups group, QWidget *parent, QWidget *root);
};
