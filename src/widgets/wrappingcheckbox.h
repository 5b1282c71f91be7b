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
    /// What the style draws: text() with line breaks in it.
    QStyleOptionButton wrappedOption() const;
};
