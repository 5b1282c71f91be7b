#pragma once

#include <host/settingchange.h>

#include <QDialog>

class QLineEdit;

/// Shows what a save would change, old and new in words, and takes a reason for the history. Accepted: to be saved.
class ReviewDialog : public QDialog
{
    Q_OBJECT

public:
    explicit ReviewDialog(const QVector<SettingChange> &changes, QWidget *parent = nullptr);

    /// Empty if none was given.
    QString reason() const;

private:
    QLineEdit *m_reason;
};
