#include "settingspage.h"

#include <vxsettings/dbparamwidget.h>
#include <vxsettings/dbsettingsgroup.h>
#include <vxsettings/dbsettingsgroupfactory.h>
#include <vxsettings/dbsettingshelper.h>

using vantorix::OBJECT_PARAMETERS;

SettingsPage::SettingsPage(DBGroups group, QWidget *parent)
    : m_group(group)
    , m_tree(DBSettingsGroupFactory::create(group, parent, nullptr))
{
    // A stored text that its editor cannot show, such as an unknown choice, could not be reverted to.
    accept();
    for (DBParamWidget *editor : widget()->findChildren<DBParamWidget *>()) {
        switchDependents(editor->key());
        follow(editor);
    }
}

SettingsPage::~SettingsPage()
{
    // Dying editors may still speak.
    disconnect();
    m_tree.reset();
}

DBGroups SettingsPage::group() const
{
    return m_group;
}

QWidget *SettingsPage::widget() const
{
    return m_tree ? m_tree->widget().get() : nullptr;
}

OBJECT_PARAMETERS SettingsPage::changes() const
{
    OBJECT_PARAMETERS changed;
    if (!widget())
        return changed;
    const OBJECT_PARAMETERS shown = m_tree->parameters();
    for (auto value = shown.begin(); value != shown.end(); ++value) {
        if (value.value() != m_baseline.value(value.key()))
            changed.insert(value.key(), value.value());
    }
    return changed;
}

OBJECT_PARAMETERS SettingsPage::baseline() const
{
    return m_baseline;
}

void SettingsPage::accept()
{
    if (!widget())
        return;
    m_tree->updateDefaultValue();
    m_baseline = m_tree->parameters();
    Q_EMIT edited();
}

void SettingsPage::revert()
{
    m_tree->setDefaultValue();
    // Not every editor says so when it is reverted.
    Q_EMIT edited();
}

void SettingsPage::follow(DBParamWidget *editor)
{
    connect(editor, &DBParamWidget::paramChanged, this, [this](const QString &key) {
        switchDependents(key);
        Q_EMIT edited();
    });
}

void SettingsPage::switchDependents(const QString &key)
{
    if (!widget())
        return;
    const QVariant value = tree()->paramValue(key);
    for (const QString &child : DBSettingsHelper::paramChilds(key))
        tree()->setParamEnabled(child, DBSettingsHelper::paramChildIsEnabled(key, value, child));
}

DBSettingsGroup *SettingsPage::tree() const
{
    return m_tree->toGroup();
}
