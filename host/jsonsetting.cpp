#include "jsonsetting.h"

namespace {

void setTexts(JsonMembers &members, const JsonSetting::Texts &texts)
{
    for (auto text = texts.begin(); text != texts.end(); ++text)
        members.setText(text.key(), text.value());
}
} // namespace

JsonSetting::JsonSetting(const QString &stored)
    : m_state(stored.trimmed().isEmpty() ? State::Empty : State::Unreadable)
{
    if (const auto members = JsonMembers::fromText(stored)) {
        m_members = *members;
        m_state = members->areUnique() ? State::Object : State::Unreadable;
    }
}

JsonSetting::State JsonSetting::state() const
{
    return m_state;
}

QString JsonSetting::merged(const Texts &edited, const Texts &shown) const
{
    JsonMembers members = m_members;
    if (members.names().isEmpty())
        setTexts(members, shown);
    setTexts(members, edited);
    return members.text();
}
