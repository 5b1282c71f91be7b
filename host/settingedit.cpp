#include "settingedit.h"

#include <host/jsonmembers.h>
#include <host/parameterdomain.h>

using vantorix::OBJECT_PARAMETERS;

namespace {

QVariant editorValue(const QString &stored, const SettingAddress &address)
{
    if (address.member.isEmpty())
        return stored;
    const auto members = JsonMembers::fromText(stored);
    return members ? members->value(address.member).toVariant() : QVariant();
}
} // namespace

QString SettingEdit::valueIn(const QString &stored, const SettingAddress &address)
{
    if (address.member.isEmpty())
        return stored;
    const auto members = JsonMembers::fromText(stored);
    if (!members || !members->contains(address.member))
        return {};
    return members->scalar(address.member).value_or(members->written(address.member).last());
}

QString SettingEdit::shownIn(const QString &stored, const SettingAddress &address, const ObjectIndex &objects)
{
    return ParameterDomain(address.parameter(), objects).shown(editorValue(stored, address));
}

bool SettingEdit::isMadeIn(const QString &stored, const ObjectIndex &objects) const
{
    return shownIn(stored, address, objects) == text;
}

bool SettingEdit::clashesWith(const QString &stored, qint64 storedRevision, const ObjectIndex &objects) const
{
    const bool isChanged =
        address.member.isEmpty() ? storedRevision != revision : valueIn(stored, address) != valueIn(base, address);
    return isChanged && !isMadeIn(stored, objects);
}

OBJECT_PARAMETERS SettingEdit::texts(const QVector<SettingEdit> &edits, const OBJECT_PARAMETERS &stored,
                                     const QHash<QString, JsonSetting::Texts> &shown)
{
    OBJECT_PARAMETERS texts;
    QHash<QString, JsonSetting::Texts> members;
    for (const SettingEdit &edit : edits) {
        if (edit.address.member.isEmpty())
            texts.insert(edit.address.key, edit.text);
        else
            members[edit.address.key].insert(edit.address.member, edit.text);
    }
    for (auto setting = members.cbegin(); setting != members.cend(); ++setting) {
        const QString &key = setting.key();
        texts.insert(key, JsonSetting(stored.value(key)).merged(*setting, shown.value(key)));
    }
    return texts;
}
