#pragma once

#include <QObject>

class QDBusVariant;

/// Whether the person wants the whole desktop dark, as desktops tell every program that asks their portal; light where
/// there is no portal.
class DesktopAppearance : public QObject
{
    Q_OBJECT

public:
    /// Asks at once, and is told of every change later on; answers by signal.
    explicit DesktopAppearance(QObject *parent = nullptr);

Q_SIGNALS:
    void told(bool prefersDark);

private Q_SLOTS:
    void takeChange(const QString &space, const QString &name, const QDBusVariant &value);

private:
    void ask();
};
