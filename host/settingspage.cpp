#include "settingspage.h"

#include <vxsettings/dbparamwidget.h>
#include <vxsettings/dbsettingsgroup.h>
#include <vxsettings/dbsettingsgroupfactory.h>
#include <vxsettings/dbsettingshelper.h>

#include <QLineEdit>
#include <QScopedValueRollback>

#include <algorithm>

QString SettingsPage::Parameter::shown() const
{
    return editor->value().toString();
}

SettingsPage::SettingsPage(DBGroups group, QWidget *parent)
    : m_group(group)
    , m_tree(DBSettingsGroupFactory::create(group, parent, nullptr))
{
    addParameters(*tree(), {});
    for (const Parameter &parameter : m_parameters) {
        switchDependents(parameter.address.parameter());
        listen(parameter);
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

void SettingsPage::retranslate()
{
    if (widget())
        tree()->retranslate();
}

QVector<SettingAddress> SettingsPage::addresses() const
{
    QVector<SettingAddress> addresses;
    if (!widget())
        return addresses;
    for (const Parameter &parameter : m_parameters)
        addresses.append(parameter.address);
    return addresses;
}

QVector<SettingAddress> SettingsPage::addresses(const QString &key) const
{
    QVector<SettingAddress> addresses = this->addresses();
    const auto isOther = [&key](const SettingAddress &address) { return address.key != key; };
    addresses.erase(std::remove_if(addresses.begin(), addresses.end(), isOther), addresses.end());
    return addresses;
}

DBParamWidget *SettingsPage::editor(const SettingAddress &address) const
{
    const Parameter *parameter = find(address);
    return parameter ? parameter->editor.data() : nullptr;
}

QString SettingsPage::shown(const SettingAddress &address) const
{
    const Parameter *parameter = find(address);
    return parameter ? parameter->shown() : QString();
}

QString SettingsPage::baseline(const SettingAddress &address) const
{
    const Parameter *parameter = find(address);
    return parameter ? parameter->baseline : QString();
}

bool SettingsPage::isChanged(const SettingAddress &address) const
{
    const Parameter *parameter = find(address);
    return parameter && parameter->isChanged();
}

QVector<SettingAddress> SettingsPage::changed() const
{
    QVector<SettingAddress> changed;
    for (const SettingAddress &address : addresses()) {
        if (isChanged(address))
            changed.append(address);
    }
    return changed;
}

bool SettingsPage::edit(const SettingAddress &address, const QString &text)
{
    Parameter *parameter = find(address);
    if (!parameter)
        return false;
    parameter->isInsistedOn = false;
    show(*parameter, text);
    return parameter->shown() == text;
}

void SettingsPage::insist(const SettingAddress &address)
{
    if (Parameter *parameter = find(address))
        parameter->isInsistedOn = true;
}

bool SettingsPage::isInsistedOn(const SettingAddress &address) const
{
    const Parameter *parameter = find(address);
    return parameter && parameter->isInsistedOn;
}

QVector<SettingAddress> SettingsPage::insistedOn() const
{
    QVector<SettingAddress> addresses;
    for (const Parameter &parameter : m_parameters) {
        if (parameter.isInsistedOn && widget())
            addresses.append(parameter.address);
    }
    return addresses;
}

void SettingsPage::revert(const SettingAddress &address)
{
    if (Parameter *parameter = find(address))
        showBaseline(*parameter);
}

void SettingsPage::accept(const SettingAddress &address, const QString &text)
{
    Parameter *parameter = find(address);
    if (!parameter)
        return;
    parameter->baseline = text;
    parameter->isInsistedOn = false;
}

void SettingsPage::follow(const SettingAddress &address, const QString &text)
{
    Parameter *parameter = find(address);
    if (!parameter)
        return;
    const bool isChanged = parameter->isChanged();
    parameter->baseline = text;
    if (!isChanged)
        showBaseline(*parameter);
}

void SettingsPage::addParameters(DBSettingsGroup &group, const QString &jsonKey)
{
    for (const auto &node : group.settings()) {
        if (node->isGroup()) {
            addParameters(*node->toGroup(), node->parameters().keys().constFirst());
            continue;
        }
        auto *editor = qobject_cast<DBParamWidget *>(node->widget().get());
        const SettingAddress address =
            jsonKey.isEmpty() ? SettingAddress{editor->key()} : SettingAddress{jsonKey, editor->key()};
        m_parameters.push_back({address, editor, editor->value().toString()});
    }
}

void SettingsPage::listen(const Parameter &parameter)
{
    const auto takeEdit = [this, address = parameter.address] {
        switchDependents(address.parameter());
        Parameter *touched = find(address);
        if (!m_isTyping || !touched)
            return;
        touched->isInsistedOn = false;
        Q_EMIT edited(address);
    };
    // Assistive technology puts a text in without typing it, and then only the line itself tells.
    if (auto *line = qobject_cast<QLineEdit *>(parameter.editor->centralWidget()))
        connect(line, &QLineEdit::textChanged, this, takeEdit);
    else
        connect(parameter.editor, &DBParamWidget::paramChanged, this, takeEdit);
}

void SettingsPage::show(Parameter &parameter, const QString &text)
{
    const QScopedValueRollback<bool> quiet(m_isTyping, false);
    parameter.editor->setValue(text);
}

void SettingsPage::showBaseline(Parameter &parameter)
{
    parameter.isInsistedOn = false;
    if (!parameter.isChanged())
        return;
    show(parameter, parameter.baseline);
    // An object that is gone by now cannot be chosen again.
    parameter.baseline = parameter.shown();
}

void SettingsPage::switchDependents(const QString &parameter)
{
    if (!widget())
        return;
    const QVariant value = tree()->paramValue(parameter);
    for (const QString &child : DBSettingsHelper::paramChilds(parameter))
        tree()->setParamEnabled(child, DBSettingsHelper::paramChildIsEnabled(parameter, value, child));
}

DBSettingsGroup *SettingsPage::tree() const
{
    return m_tree->toGroup();
}

const SettingsPage::Parameter *SettingsPage::find(const SettingAddress &address) const
{
    const auto found = std::find_if(m_parameters.begin(), m_parameters.end(),
                                    [&address](const Parameter &parameter) { return parameter.address == address; });
    return found != m_parameters.end() && found->editor && widget() ? &*found : nullptr;
}

SettingsPage::Parameter *SettingsPage::find(const SettingAddress &address)
{
    return const_cast<Parameter *>(qAsConst(*this).find(address));
}
