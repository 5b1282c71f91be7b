#pragma once

#include <host/saveresult.h>

#include <QDialog>

/// Shows what others have stored beside what was to be saved, and asks which of them to keep.
class ConflictDialog : public QDialog
{
    Q_OBJECT

public:
    enum Answer {
        Stay = Rejected, ///< back to the pages, nothing is written
        Overwrite,       ///< write the user's values over those of the others
        Reload,          ///< take the others' values, drop every edit
    };

    explicit ConflictDialog(const QVector<SettingConflict> &conflicts, QWidget *parent = nullptr);

private:
    QWidget *createValues(const QVector<SettingConflict> &conflicts);
    QWidget *createButtons();
};
