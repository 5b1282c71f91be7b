#pragma once

#include <vxsettings/dbparamwidget.h>
#include <vxsettings/dbsettingsgroup.h>
#include <vxsettings/dbsettingsvalue.h>

/// Pieces of hand-made settings trees.
namespace testtree {

/// A bare frame, which holds whatever value it is given.
inline DBParamWidget *newEditor(QWidget *parent, const QString &key, const QVariant &value = {})
{
    auto *editor = new DBParamWidget(parent);
    editor->setKey(key);
    editor->setValue(value);
    return editor;
}

/// Appends a leaf that owns @p widget.
inline DBSettingsValue *addLeaf(DBSettingsGroup &group, QWidget *widget)
{
    auto leaf = std::make_unique<DBSettingsValue>();
    leaf->setWidget(widget);
    auto *node = leaf.get();
    group.settings().push_back(std::move(leaf));
    return node;
}

/// Appends a JSON group that owns @p frame.
inline JsonGroup *addJsonGroup(DBSettingsGroup &group, const QString &key, QWidget *frame)
{
    auto child = std::make_unique<JsonGroup>();
    child->setKey(key);
    child->setWidget(frame);
    auto *node = child.get();
    group.settings().push_back(std::move(child));
    return node;
}
} // namespace testtree
