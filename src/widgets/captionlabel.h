#pragma once

#include <QLabel>

/// A caption beside an editor, which would rather have another line than be wide: several columns of editors have to
/// fit into a window. It asks for all the room that its words take.
class CaptionLabel : public QLabel
{
public:
    using QLabel::QLabel;

    enum class Place { AboveOrBelow, Beside };

    /// How wide to become before the text is broken into lines, measured in letters of average width; beside an editor
    /// together with it.
    void setWidest(int letters);
    /// Where the editor is, which is borrowed. A text above or below one may become as wide as that.
    void setEditor(const QWidget *editor, Place place);

    QSize sizeHint() const override;
    /// A label keeps its width in a wider column, and does not become less high there.
    int heightForWidth(int width) const override;

private:
    int widest() const;
    QSize roomFor(int widest) const;

    int m_widestLetters = 0;
    const QWidget *m_editor = nullptr;
    Place m_place = Place::Beside;

    // Layouts ask again and again, and breaking a text into lines is dear: the last answer and what it was given for.
    mutable QFont m_font;
    mutable int m_letter = 0; ///< its average width
    mutable QString m_text;
    mutable int m_widest = 0;
    mutable QSize m_hint;
};
