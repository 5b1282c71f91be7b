#include "parambuilder.h"

#include "dbsc.h"

#include <vxsettings/dbparamwidget.h>
#include <vxsettings/dbsettingshelper.h>

#include <localstorage/localstorage.h>

ParamBuilder::ParamBuilder(DBGroups group, const QString &key, QWidget *rootWidget, QWidget *parent)
    : m_node(std::make_unique<DBSettingsValue>())
    , m_group(group)
    , m_key(key)
    , m_rootWidget(rootWidget)
    , m_parent(parent)
{
    qCDebug(dbsc) << "m_rootWidget" << m_rootWidget << (m_rootWidget ? m_rootWidget->metaObject()->className() : "");
    m_node->setType(DBSettingsHelper::paramType(key));
}

ParamBuilder::~ParamBuilder() = default;

std::unique_ptr<DBSettings> ParamBuilder::getSettings()
{
    return std::move(m_node);
}

DBSettingsType ParamBuilder::type() const
{
    return m_node->type();
}

DBSettingsBuilder &ParamBuilder::createWidget()
{
    if (m_editor)
        m_node->setWidget(m_editor);
    return *this;
}

DBSettingsBuilder &ParamBuilder::createTitle()
{
    if (DBParamWidget *editor = boundEditor())
        editor->setName(DBSettingsHelper::paramName(m_key));
    return *this;
}

DBSettingsBuilder &ParamBuilder::createKey()
{
    if (DBParamWidget *editor = boundEditor())
        editor->setKey(m_key);
    return *this;
}

DBSettingsBuilder &ParamBuilder::createValue()
{
    DBParamWidget *editor = boundEditor();
    if (!editor)
        return *this;
    // A setting that was never stored is an empty text, not an invalid value.
    const QString text = vantorix::LocalStorage::instance()->dbSettings().value(m_key, QStringLiteral(""));
    qCDebug(dbsc) << text;
    editor->setValue(text);
    return *this;
}

DBSettingsBuilder &ParamBuilder::createParamValues()
{
    if (DBParamWidget *editor = boundEditor())
        editor->setParamValues(DBSettingsHelper::paramValues(m_key));
    return *this;
}

DBSettingsBuilder &ParamBuilder::createParamRange()
{
    const std::pair<int, int> range = DBSettingsHelper::paramRange(m_key);
    qCDebug(dbsc) << range.first << range.second;
    if (DBParamWidget *editor = boundEditor())
        editor->setParamRange(range);
    return *this;
}

DBSettingsBuilder &ParamBuilder::setParamWidget(DBParamWidget *widget)
{
    widget->setParent(m_parent);
    m_editor = widget;
    if (widget->canChangeLabelPosition())
        widget->setLabelPosition(DBSettingsHelper::labelsPosition(m_group));
    return *this;
}

DBSettingsBuilder &ParamBuilder::setReadonly()
{
    if (m_editor)
        m_editor->setReadOnly(true);
    return *this;
}

DBSettingsBuilder &ParamBuilder::createSpecialValue()
{
    if (m_editor)
        m_editor->setSpecialValue(DBSettingsHelper::paramSpecialValue(m_key));
    return *this;
}

DBSettingsBuilder &ParamBuilder::createInvertedValue()
{
    if (DBParamWidget *editor = boundEditor())
        editor->inverted = DBSettingsHelper::isInvertedValue(m_key);
    return *this;
}

DBSettingsBuilder &ParamBuilder::createToolTip()
{
    if (m_editor)
        m_editor->setToolTip(DBSettingsHelper::toolTip(m_key));
    return *this;
}

DBParamWidget *ParamBuilder::boundEditor() const
{
    return qobject_cast<DBParamWidget *>(m_node->widget().get());
}

DBGroups ParamBuilder::group() const
{
    return m_group;
}

const QString &ParamBuilder::key() const
{
    return m_key;
}
