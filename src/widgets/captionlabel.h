#pragma once

#include <QLabel>

/// A caption beside an editor, which would rather have another line than be wide: several columns of editors have to
/// fit into a window. It asks for all the room that its words take.
class CaptionLabel : public QLabel
{
public:
    using QLabel::QLabel;

    /// How wide to become before the text is broken into lines, measured in letters of average width.
    void setWidest(int letters);
    /// The text may become as wide as @p editor, above or below which it stands. Borrowed.
    void setEditor(const QWidget *editor);

    QSize sizeHint() const override;

private:
    int widest() const;
    QSize roomFor(int widest) const;

    int m_widestLetters = 0;
    const QWidget *m_editor = nullptr;

    // Layouts ask again and again, and breaking a text into lines is dear: the last answer and what it was given for.
    mutable QString m_text;
    mutable QFont m_font;
    mutable int m_widest = 0;
    mutable QSize m_hint;
};
