#include "captionlabel.h"

namespace {

constexpr int widestInCharacters = 26;
} // namespace

QSize CaptionLabel::roomFor(const QSize &hint) const
{
    int widest = widestInCharacters * fontMetrics().averageCharWidth();
    if (hint.width() <= widest)
        return WholeLabel::roomFor(hint);
    widest = qMax(widest, minimumSizeHint().width()); // of the longest word
    return {widest, heightForWidth(widest)};
}
