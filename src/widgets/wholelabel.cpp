#include "wholelabel.h"

QSize WholeLabel::sizeHint() const
{
    const QSize labelHint = QLabel::sizeHint(); // kept by the label until text or font change
    if (labelHint != m_labelHint || text() != m_text) {
        m_text = text();
        m_labelHint = labelHint;
        m_hint = roomFor(labelHint);
    }
    return m_hint;
}

QSize WholeLabel::roomFor(const QSize &hint) const
{
    QSize room = hint;
    while (heightForWidth(room.width()) > hint.height())
        room.rwidth() += 1; // the slant of a last letter: one or two pixels
    return room;
}
