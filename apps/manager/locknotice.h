#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

/// The line above a page that operators may not edit: why, and a button that leads to where that is decided.
class LockNotice : public QFrame
{
    Q_OBJECT

public:
    explicit LockNotice(QWidget *parent = nullptr);

    /// @p reason: a sentence or more.
    void setReason(const QString &reason);

Q_SIGNALS:
    /// Somebody wants to see which pages operators may edit.
    void accessRequested();

protected:
    void changeEvent(QEvent *event) override;

private:
    void retranslate();
    void paintLock();

    QLabel *m_lock;
    QLabel *m_reason;
    QPushButton *m_access;
};
