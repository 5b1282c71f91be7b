#pragma once

#include "importplan.h"

#include <QDialog>
#include <QHash>

class ChangeTree;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTreeWidgetItem;

/// Shows how the settings of a file differ from those that are stored, in words, and lets one choose which to take
/// over. For a mere comparison nothing can be chosen.
class ImportDialog : public QDialog
{
    Q_OBJECT

public:
    enum class Purpose { Import, Compare };

    /// @p fileName is for the person to read.
    ImportDialog(const QVector<ImportPlan::Row> &rows, const QString &fileName, Purpose purpose,
                 QWidget *parent = nullptr);

    /// Tells that @p count parameters are edited here, which the comparison does not look at; 0 tells nothing.
    void setEditCount(int count);
    /// Of an accepted dialog: what is to be taken over as edits, each of one parameter. The text is what is to be
    /// stored at the address, valid but perhaps not written as its editor would write it.
    QVector<SettingChange> chosen() const;

private:
    QWidget *createFilter();
    QWidget *createCheckButton(const QString &text, Qt::CheckState state);
    QWidget *createButtons();
    QString summary() const;
    int count(ImportPlan::State state) const;
    void addRow(const ImportPlan::Row &row);
    void filter();
    void checkVisible(Qt::CheckState state);
    void showChosen();

    QVector<ImportPlan::Row> m_rows;
    Purpose m_purpose;
    ChangeTree *m_tree;
    QLineEdit *m_words;
    QComboBox *m_states;
    QHash<QTreeWidgetItem *, ImportPlan::Row> m_rowsByItem;
    QLabel *m_edits = nullptr;
    QPushButton *m_accept = nullptr; ///< null for a comparison
};
