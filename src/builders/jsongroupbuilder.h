#pragma once

#include "groupbuilder.h"

/// Builds the nested group that edits the members of one JSON setting.
class VXSETTINGS_AUTOTEST_EXPORT JsonGroupBuilder : public GroupBuilder
{
public:
    /// @p key is the stored key of the JSON object.
    JsonGroupBuilder(DBGroups group, const QString &key, QWidget *parent, QWidget *root);

    DBSettingsBuilder &createWidget() override;
    DBSettingsBuilder &createKey() override;

private:
    QString m_key;
};
