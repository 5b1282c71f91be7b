#pragma once

#include <QObject>

/// Shift+F10 opens the context menu in all windows of the application, as the menu key does, which many keyboards do
/// not have.
class ContextMenuKey : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override;
};
