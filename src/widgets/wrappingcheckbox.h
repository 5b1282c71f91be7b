#pragma once

#include <QCheckBox>

/// A check box that breaks a long text into lines, each short enough for two columns of check boxes in a window.
class WrappingCheckBox : public QCheckBox
{
public:
    using QCheckBox::QCheckBox;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool hitButton(const QPoint &pos) const override;
    void paintEvent(QPaintEvent *event) override;

private:
    /// text() with line breaks in it.
    QString wrappedText() const;
    /// What the style draws.
    QStyleOptionButton wrappedOption() const;

    // The last answer and what it was given for.
    mutable QString m_text;
    mutable QFont m_font;
    mutable QString m_wrappedText;
};
