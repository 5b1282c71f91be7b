#pragma once

#include <vxwidgets/vxwidgets_export.h>

#include <QPushButton>
#include <QVariant>

/// A push button that carries a value for whoever handles its click. The button itself does not look at it.
class VXWIDGETS_EXPORT UserDataButton : public QPushButton
{
    Q_OBJECT
    /// What the button carries.
    Q_PROPERTY(QVariant userData READ userData WRITE setUserData)

public:
    /// Shows @p text and carries nothing; @p parent owns it.
    explicit UserDataButton(const QString &text, QWidget *parent = nullptr);

    /// Invalid until something is set.
    QVariant userData() const;
    /// Carries @p userData from now on, of whatever type.
    void setUserData(const QVariant &userData);

private:
    QVariant m_userData;
};
