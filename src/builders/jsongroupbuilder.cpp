#include "jsongroupbuilder.h"

#include <vxwidgets/vxsettingsgroupwidget.h>

JsonGroupBuilder::JsonGroupBuilder(DBGroups group, const QString &key, QWidget *parent, QWidget *root)
    : GroupBuilder(group, parent, root)
    , m_key(key)
{
    setNode(std::make_unique<JsonGroup>());
}

DBSettingsBuilder &JsonGroupBuilder::createWidget()
{
    GroupBuilder::createWidget();
    if (auto *frame = qobject_cast<VXSettingsGroupWidget *>(node()->widget().get())) {
        frame->setShowHideButton(true);
        frame->setShowLineHorizontal(false);
    }
    return *this;
}

DBSettingsBuilder &JsonGroupBuilder::createKey()
{
    node()->setKey(m_key);
    return *this;
}
