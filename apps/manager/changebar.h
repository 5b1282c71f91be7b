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

    /// @p count is the number of settings that differ from what is stored, @p conflictCount of those among them that
    /// others have changed too.
    void setChangeCount(int count, int conflictCount);
    /// While a save is under way: what it is doing; null when it has ended. Meanwhile there is nothing to do but to
    /// cancel it.
    void setProgress(const QString &progress);
    /// Makes the buttons follow @p widget in the tab order.
    void followInTabOrder(QWidget *widget);

Q_SIGNALS:
    void saveRequested();
    void revertRequested();
    void cancelRequested();

protected:
    void changeEvent(QEvent *event) override;

private:
    void retranslate();
    void showState();
    void passFocusBack() const;

    QLabel *m_label;
    QPushButton *m_cancel;
    QPushButton *m_revert;
    QPushButton *m_save;
    QString m_progress;
    int m_count = 0;
    int m_conflictCount = 0;
};
