#include "wrappingcheckbox.h"

#include <QStyleOptionButton>
#include <QStylePainter>

namespace {

constexpr int widestInCharacters = 46;

QString wrapped(const QString &text, const QFontMetrics &metrics)
{
    const int widest = widestInCharacters * metrics.averageCharWidth();
    if (metrics.horizontalAdvance(text) <= widest)
        return text;

    QStringList lines;
    const QStringList words = text.split(QLatin1Char(' '));
    for (const QString &word : words) {
        const QString longer = lines.isEmpty() ? word : lines.last() + QLatin1Char(' ') + word;
        if (lines.isEmpty() || metrics.horizontalAdvance(longer) > widest)
            lines << word;
        else
            lines.last() = longer;
    }
    return lines.join(QLatin1Char('\n'));
}
} // namespace

QSize WrappingCheckBox::sizeHint() const
{
    ensurePolished();
    if (wrappedText() == text())
        return QCheckBox::sizeHint();
    const QStyleOptionButton option = wrappedOption();
    const QSize contents = style()->itemTextRect(fontMetrics(), {}, Qt::TextShowMnemonic, false, option.text).size();
    return style()->sizeFromContents(QStyle::CT_CheckBox, &option, contents, this);
}

QSize WrappingCheckBox::minimumSizeHint() const
{
    return sizeHint();
}

bool WrappingCheckBox::hitButton(const QPoint &pos) const
{
    const QStyleOptionButton option = wrappedOption();
    return style()->subElementRect(QStyle::SE_CheckBoxClickRect, &option, this).contains(pos);
}

void WrappingCheckBox::paintEvent(QPaintEvent *)
{
    QStylePainter(this).drawControl(QStyle::CE_CheckBox, wrappedOption());
}

QString WrappingCheckBox::wrappedText() const
{
    if (m_text != text() || m_font != font()) {
        m_text = text();
        m_font = font();
        m_wrappedText = wrapped(m_text, fontMetrics());
    }
    return m_wrappedText;
}

QStyleOptionButton WrappingCheckBox::wrappedOption() const
{
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text = wrappedText();
    return option;
}
