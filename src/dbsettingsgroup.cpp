#include <vxsettings/dbsettingsgroup.h>

#include "catalogue.h"
#include "dbsc.h"
#include "widgethandle.h"

#include <vxsettings/dbparamwidget.h>
#include <vxsettings/dbsettingshelper.h>

#include <vxwidgets/vxsettingsgroupwidget.h>

#include <qtcompat.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

using vantorix::OBJECT_PARAMETERS;

namespace {

constexpr LogPoint groupCollected{"src/dbsettingsgroup", 36,
                                  "virtual vantorix::OBJECT_PARAMETERS DBSettingsGroup::parameters() const"};
constexpr LogPoint jsonCollected{"src/dbsettingsgroup", 133,
                                 "virtual vantorix::OBJECT_PARAMETERS JsonGroup::parameters() const"};

/// The type of every group node; not one of the editor kinds.
constexpr auto groupType = DBSettingsType(5);

/// Visits the editors below @p parent in the order of the widget tree until @p visit returns true.
/// Layouts and leaves are passed by: only widgets have widgets below them, and an editor has at least its captions.
/// There is a null in the place of a child that its parent is just deleting.
template <typename Visit>
bool visitEditors(const QObject *parent, const Visit &visit)
{
    for (QObject *child : parent->children()) {
        if (!child || !child->isWidgetType() || child->children().isEmpty())
            continue;
        auto *editor = qobject_cast<DBParamWidget *>(child);
        if ((editor && visit(editor)) || visitEditors(child, visit))
            return true;
    }
    return false;
}

DBParamWidget *firstEditor(const QWidget *frame, const QString &key)
{
    DBParamWidget *found = nullptr;
    if (frame) {
        visitEditors(frame, [&](DBParamWidget *editor) {
            const bool matches = editor->key() == key;
            if (matches)
                found = editor;
            return matches;
        });
    }
    return found;
}

/// The editors are listed before anything is done to them: what that sets off may change the widget tree.
QList<DBParamWidget *> allEditors(const QWidget *frame)
{
    return frame ? qtcompat::findChildren<DBParamWidget>(frame) : QList<DBParamWidget *>();
}
} // namespace

DBSettingsGroup::DBSettingsGroup(int id)
    : m_id(id)
{}

DBSettingsGroup::~DBSettingsGroup()
{
    const std::shared_ptr<QWidget> frame = widgethandle::alive(m_widget);
    if (!frame)
        return;
    // A widget that the host still holds must not go down with this frame. Its node and `held` are no hosts.
    for (const auto &child : m_settings) {
        const std::shared_ptr<QWidget> held = child ? child->widget() : nullptr;
        if (held.use_count() > 2 && frame->isAncestorOf(held.get()))
            held->setParent(nullptr);
    }
}

OBJECT_PARAMETERS DBSettingsGroup::parameters() const
{
    OBJECT_PARAMETERS result;
    for (const auto &child : m_settings) {
        const OBJECT_PARAMETERS values = child ? child->parameters() : OBJECT_PARAMETERS();
        for (auto value = values.begin(); value != values.end(); ++value)
            result.insert(value.key(), value.value());
    }
    if (dbsc().isDebugEnabled())
        groupCollected().debug() << result;
    return result;
}

std::shared_ptr<QWidget> DBSettingsGroup::widget() const
{
    return widgethandle::alive(m_widget);
}

DBSettingsType DBSettingsGroup::type() const
{
    return groupType;
}

void DBSettingsGroup::setDefaultValue()
{
    for (const auto &child : m_settings) {
        if (child)
            child->setDefaultValue();
    }
}

void DBSettingsGroup::updateDefaultValue()
{
    for (const auto &child : m_settings) {
        if (child)
            child->updateDefaultValue();
    }
}

bool DBSettingsGroup::isGroup() const
{
    return true;
}

QStringList DBSettingsGroup::paramKeys() const
{
    QSet<QString> keys;
    for (const DBParamWidget *editor : allEditors(widget().get()))
        keys.insert(editor->key());
    return keys.values();
}

void DBSettingsGroup::setParamEnabled(const QStringList &keys, bool enabled)
{
    for (DBParamWidget *editor : allEditors(widget().get())) {
        if (keys.contains(editor->key()))
            editor->setEnabled(enabled);
    }
}

void DBSettingsGroup::setParamEnabled(const QString &key, bool enabled)
{
    if (DBParamWidget *editor = firstEditor(widget().get(), key))
        editor->setEnabled(enabled);
}

QVariant DBSettingsGroup::paramValue(const QString &key) const
{
    const DBParamWidget *editor = firstEditor(widget().get(), key);
    return editor ? editor->value() : QVariant();
}

void DBSettingsGroup::retranslate()
{
    const catalogue::Group *row =
        m_key.isEmpty() ? catalogue::findGroup(DBGroups(m_id)) : catalogue::findJsonGroup(m_key);
    if (auto *frame = qobject_cast<VXSettingsGroupWidget *>(widget().get()); frame && row)
        frame->setTitle(DBSettingsHelper::groupName(row->id));
    for (const auto &child : m_settings) {
        if (child && child->isGroup())
            child->toGroup()->retranslate();
        else if (auto *editor = child ? qobject_cast<DBParamWidget *>(child->widget().get()) : nullptr)
            editor->retranslate();
    }
}

int DBSettingsGroup::id() const
{
    return m_id;
}

std::vector<std::unique_ptr<DBSettings>> &DBSettingsGroup::settings()
{
    return m_settings;
}

void DBSettingsGroup::setKey(const QString &key)
{
    m_key = key;
}

QString DBSettingsGroup::key() const
{
    return m_key;
}

void DBSettingsGroup::setWidget(QWidget *widget)
{
    widgethandle::reset(m_widget, widget);
}

JsonGroup::JsonGroup(int id)
    : DBSettingsGroup(id)
{}

JsonGroup::~JsonGroup() = default;

OBJECT_PARAMETERS JsonGroup::parameters() const
{
    const OBJECT_PARAMETERS texts = DBSettingsGroup::parameters();
    QVariantHash members;
    for (auto text = texts.begin(); text != texts.end(); ++text)
        members.insert(text.key(), text.value());
    if (dbsc().isDebugEnabled())
        jsonCollected().debug() << members;

    const QByteArray json = QJsonDocument(QJsonObject::fromVariantHash(members)).toJson();
    return {{key(), QString::fromLocal8Bit(json)}};
}

DBSettingsType JsonGroup::type() const
{
    return DBSettingsType::JsonGroup;
}
