#include <vxwidgets/userdatabutton.h>

UserDataButton::UserDataButton(const QString &text, QWidget *parent)
    : QPushButton(text, parent)
{}

QVariant UserDataButton::userData() const
{
    return m_userData;
}

void UserDataButton::setUserData(const QVariant &userData)
{
    m_userData = userData;
}
