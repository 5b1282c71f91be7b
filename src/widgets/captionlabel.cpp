#include "captionlabel.h"

namespace {

constexpr int widestInCharacters = 26;
} // namespace

QSize CaptionLabel::sizeHint() const
{
    const QSize hint = QLabel::sizeHint();
    const int widest = qMax(widestInCharacters * fontMetrics().averageCharWidth(), minimumSizeHint().width());
    return hint.width() <= widest ? hint : QSize(widest, heightForWidth(widest));
}
