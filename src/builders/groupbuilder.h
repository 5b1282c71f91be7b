#pragma once

#include "dbsettingsbuilder.h"

#include <vxsettings/dbsettingsgroup.h>

/// Builds a group: a collapsible frame with a grid of editors, one per parameter of the group.
class VXSETTINGS_AUTOTEST_EXPORT GroupBuilder : public DBSettingsBuilder
{
public:
    /// The frame becomes a child of @p root, or of @p parent if @p root is null.
    GroupBuilder(DBGroups group, QWidget *parent, QWidget *root);
    ~GroupBuilder() override;

    std::unique_ptr<DBSettings> getSettings() override;
    DBSettingsType type() const override;
    DBSettingsBuilder &createWidget() override;
    DBSettingsBuilder &createIcon() override;
    DBSettingsBuilder &createTitle() override;

protected:
    DBSettingsGroup *node() const;
    void setNode(std::unique_ptr<DBSettingsGroup> node);

private:
    QWidget *rootWidget() const;
    QWidget *createContent(QWidget *frame);

    DBGroups m_group;
    QWidget *m_parent;
    QWidget *m_root;
    std::unique_ptr<DBSettingsGroup> m_node;
};
