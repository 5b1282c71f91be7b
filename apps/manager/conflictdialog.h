#pragma once

#include <host/settingssession.h>

#include <QDialog>

class QGroupBox;
class QPushButton;
class QRadioButton;

/// Shows what others have stored beside what was to be saved, and asks of each parameter which of the two is to stay.
///
/// Accepted only once everything is decided, and Enter goes back until then; nothing is decided beforehand.
class ConflictDialog : public QDialog
{
    Q_OBJECT

public:
    enum class Choice { Theirs, Mine };

    /// @p conflicts: at least one.
    explicit ConflictDialog(const QVector<SettingsSession::Conflict> &conflicts, QWidget *parent = nullptr);

    /// Of an accepted dialog, one for each conflict.
    QVector<Choice> choices() const;

private:
    /// The two buttons of a conflict.
    struct Row
    {
        QRadioButton *theirs;
        QRadioButton *mine;
    };

    QWidget *createRows(const QVector<SettingsSession::Conflict> &conflicts);
    QWidget *createRow(const SettingsSession::Conflict &conflict);
    QRadioButton *createChoice(const QString &label, const QString &value, const QString &explanation,
                               QGroupBox *parent);
    QWidget *createButtons(int conflictCount);
    void chooseAll(Choice choice);
    void showWhetherDecided();

    QVector<Row> m_rows;
    QPushButton *m_accept = nullptr;
    QPushButton *m_stay = nullptr;
};
