#include "captionlabel.h"

namespace {

constexpr int leastLetters = 22; // beside an editor, however wide that is
} // namespace

void CaptionLabel::setWidest(int letters)
{
    m_widestLetters = letters;
}

void CaptionLabel::setEditor(const QWidget *editor, Place place)
{
    m_editor = editor;
    m_place = place;
}

QSize CaptionLabel::sizeHint() const
{
    ensurePolished();
    if (font() != m_font || m_letter == 0) {
        m_font = font();
        m_letter = fontMetrics().averageCharWidth();
        m_hint = {};
    }
    const int widest = this->widest();
    if (!m_hint.isValid() || widest != m_widest || text() != m_text) {
        m_text = text();
        m_widest = widest;
        m_hint = roomFor(widest);
    }
    return m_hint;
}

int CaptionLabel::heightForWidth(int width) const
{
    const QSize hint = sizeHint();
    return width >= hint.width() ? hint.height() : QLabel::heightForWidth(width);
}

int CaptionLabel::widest() const
{
    const int own = m_widestLetters * m_letter;
    const int editorWidth = m_editor ? m_editor->sizeHint().width() : 0;
    return m_place == Place::Beside ? qMax(own - editorWidth, leastLetters * m_letter) : qMax(own, editorWidth);
}

QSize CaptionLabel::roomFor(int widest) const
{
    // In the very width that the toolkit's label asks for, its text may break into one line more than it has counted: a
    // line is full a little before its letters fill it, because the last one may slant over its end.
    const int slant = 1 - qMin(0, fontMetrics().minRightBearing());
    const QSize least = minimumSizeHint(); // the width of the longest word, the height of one line
    const QSize hint = QLabel::sizeHint();
    const int width = qMax(widest, least.width());
    if (hint.height() == least.height() && hint.width() + slant <= width)
        return {hint.width() + slant, hint.height()};

    const int height = QLabel::heightForWidth(width);
    if (height > least.height())
        return {width, height};
    return {qMin(fontMetrics().horizontalAdvance(text()) + slant, width), height};
}
