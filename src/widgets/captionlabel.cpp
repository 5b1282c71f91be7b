#include "captionlabel.h"

namespace {

constexpr int leastLetters = 20; // beside an editor, however wide that is
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
    const int widest = this->widest();
    if (widest != m_widest || text() != m_text || font() != m_font) {
        m_text = text();
        m_font = font();
        m_widest = widest;
        m_hint = roomFor(widest);
    }
    return m_hint;
}

int CaptionLabel::widest() const
{
    const int letter = fontMetrics().averageCharWidth();
    const int own = m_widestLetters * letter;
    const int editorWidth = m_editor ? m_editor->sizeHint().width() : 0;
    return m_place == Place::Beside ? qMax(own - editorWidth, leastLetters * letter) : qMax(own, editorWidth);
}

QSize CaptionLabel::roomFor(int widest) const
{
    // A line is full a little before its letters fill it: the last one may slant over its end.
    const int oneLine = fontMetrics().size(0, text()).width() - qMin(0, fontMetrics().minRightBearing()) + 1;
    const int longestWord = minimumSizeHint().width();
    const int width = qMax(qMin(oneLine, widest), longestWord);
    // Not the height that the toolkit counts for its own hint, in whose very width there may be a line more.
    return {width, heightForWidth(width)};
}
