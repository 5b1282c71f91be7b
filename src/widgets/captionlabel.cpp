#include "captionlabel.h"

namespace {

constexpr int widestInCharacters = 26;
} // namespace

QSize CaptionLabel::sizeHint() const
{
    const QSize labelHint = QLabel::sizeHint(); // kept by the label until text or font change
    if (labelHint != m_labelHint || text() != m_text) {
        m_text = text();
        m_labelHint = labelHint;
        m_hint = narrowed(labelHint);
    }
    return m_hint;
}

QSize CaptionLabel::narrowed(const QSize &hint) const
{
    int widest = widestInCharacters * fontMetrics().averageCharWidth();
    if (hint.width() <= widest)
        return hint;
    widest = qMax(widest, minimumSizeHint().width()); // of the longest word
    return {widest, heightForWidth(widest)};
}
