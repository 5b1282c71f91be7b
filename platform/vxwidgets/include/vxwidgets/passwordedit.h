#pragma once

#include <vxwidgets/vxwidgets_export.h>

#include <QLineEdit>

/// A masked line edit with an eye at its end that reveals the text for as long as the edit can be seen and edited.
///
/// Hiding, disabling or making the edit read-only masks the text again. Undo never brings back what was typed before
/// the last change between masked and revealed. The constructor leaves the eye to the first polishing, which comes at
/// the latest when the edit is first shown. Assistive technology is told how long a masked text is, never the text: for
/// that, the first edit installs an update handler of QAccessible.
class VXWIDGETS_EXPORT PasswordEdit : public QLineEdit
{
    Q_OBJECT

public:
    /// Empty and masked; @p parent owns it.
    explicit PasswordEdit(QWidget *parent = nullptr);

protected:
    /// Makes the eye with the first polishing.
    bool event(QEvent *event) override;
    /// Masks the text when the edit is disabled or made read-only, and follows language and style.
    void changeEvent(QEvent *event) override;
    /// Masks the text.
    void hideEvent(QHideEvent *event) override;

private:
    void createRevealAction();
    void updateRevealAction();
    void followEditability();
    void setRevealed(bool revealed);

    QAction *m_reveal = nullptr; // child
};
