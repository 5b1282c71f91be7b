#pragma once

#include <vxwidgets/vxwidgets_export.h>

#include <QPushButton>
#include <QVariant>

/// A push button that carries a value for whoever handles its click. The button itself does not look at it.
class VXWIDGETS_EXPORT UserDataButton : public QPushButton
{
    Q_OBJECT
    Q_PROPERTY(QVariant userData READ userData WRITE setUserData)

public:
    explicit UserDataButton(const QString &text, QWidget *parent = nullptr);

    /// Invalid until something is set.
    QVariant userData() const;
    void setUserData(const QVariant &userData);

private:
    QVariant m_userData;
};
