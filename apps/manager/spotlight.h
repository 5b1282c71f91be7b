#pragma once

#include <QTimer>
#include <QWidget>

/// A frame in the colour of the selection that draws the eye to a widget for a moment, then goes away by itself. The
/// mouse goes through it.
class Spotlight : public QWidget
{
    Q_OBJECT

public:
    /// Draws the eye to @p target, and to nothing else in its window.
    static void pointAt(QWidget *target);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    explicit Spotlight(QWidget *target);

    QTimer m_end;
};
