#pragma once

#include <QDialog>
#include <QJsonObject>

class DependentWidgetsBox;
class QLabel;
class QLineEdit;
class QPushButton;
struct SaveResult;
class SettingsSession;

/// Which pages operators may edit: a box of flags, stored by itself with a reason for the history.
///
/// What others store meanwhile is shown at once, unless something was clicked here: then it is told, and the next save
/// replaces it. Accepted once it is stored.
class AccessDialog : public QDialog
{
    Q_OBJECT

public:
    /// @p session lives longer.
    explicit AccessDialog(SettingsSession &session, QWidget *parent = nullptr);

    void reject() override;

protected:
    void changeEvent(QEvent *event) override;

private:
    QWidget *createBox();
    QWidget *createButtons();
    void retranslate();
    void fill(const QJsonObject &flags);
    void followTheme();

    QJsonObject storedFlags() const;
    bool isEdited() const;
    void followStored();
    void takeStored();
    void showState();
    QString stateWords() const;
    void save();
    void finishSave(const SaveResult &result);

    SettingsSession &m_session;
    QJsonObject m_base;           ///< the flags that were stored when the box was filled
    qint64 m_seen = 0;            ///< revision of what is stored as far as the person has been told
    bool m_isOverlapping = false; ///< others have stored something else since the box was edited
    bool m_isSaving = false;

    QLabel *m_purpose;
    QLabel *m_state;
    DependentWidgetsBox *m_box;
    QLabel *m_reasonLabel;
    QLineEdit *m_reason;
    QPushButton *m_take = nullptr;
    QPushButton *m_save = nullptr;
    QPushButton *m_cancel = nullptr;
};
