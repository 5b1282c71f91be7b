#pragma once

#include <QLabel>

/// A caption above or below an editor, which would rather have another line than be wide: three columns of editors have
/// to fit into a window.
class CaptionLabel : public QLabel
{
public:
    using QLabel::QLabel;

    QSize sizeHint() const override;

private:
    QSize narrowed(const QSize &hint) const;

    // Layouts ask again and again, and breaking a text into lines is dear: the last answer and what it was given for.
    mutable QString m_text;
    mutable QSize m_labelHint;
    mutable QSize m_hint;
};
