#pragma once

#include <QDialog>

class QVBoxLayout;

/// Shows a stored text that is no JSON object of unique names, and what a repair would store in its place. Accepted: to
/// be repaired.
class RepairDialog : public QDialog
{
    Q_OBJECT

public:
    /// @p caption is that of the setting, @p problem what is wrong with @p stored, a sentence; @p repaired is what its
    /// page shows.
    RepairDialog(const QString &caption, const QString &problem, const QString &stored, const QString &repaired,
                 QWidget *parent = nullptr);

private:
    void addText(QVBoxLayout &layout, const QString &label, const QString &name, const QString &text);
};
