#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

/// The bar below the pages: how much is changed, and what to do with it.
class ChangeBar : public QWidget
{
    Q_OBJECT

public:
    explicit ChangeBar(QWidget *parent = nullptr);

    /// @p count is the number of settings that differ from what is stored.
    void setChangeCount(int count);
    /// Makes the buttons follow @p widget in the tab order.
    void followInTabOrder(QWidget *widget);

Q_SIGNALS:
    void saveRequested();
    void revertRequested();

private:
    QLabel *m_label;
    QPushButton *m_revert;
    QPushButton *m_save;
};
