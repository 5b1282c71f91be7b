#include "editormark.h"

#include "signalcolor.h"

#include <vxstyles/vxiconhelper.h>

#include <QIcon>
#include <QPainter>

using Mark = DBParamWidget::Mark;

namespace {

constexpr qreal dotDiameter = 8;

SignalColor colorOf(Mark mark)
{
    switch (mark) {
    case Mark::Changed:
        return changedColor;
    case Mark::Problem:
        return problemColor;
    case Mark::Conflict:
        return conflictColor;
    case Mark::None:
    case Mark::Note:
        break;
    }
    return noteColor;
}

/// Null for a mark that is no icon of the theme.
QString iconNameOf(Mark mark)
{
    switch (mark) {
    case Mark::Problem:
        return QStringLiteral("common-warning");
    case Mark::Conflict:
        return QStringLiteral("action-history");
    case Mark::Note:
        return QStringLiteral("common-info");
    case Mark::None:
    case Mark::Changed:
        break;
    }
    return {};
}
} // namespace

EditorMark::EditorMark(QWidget *parent)
    : QLabel(parent)
{
    setObjectName(QStringLiteral("mark"));
    resize(extent, extent);
}

void EditorMark::setMark(Mark mark, const QString &words)
{
    m_mark = mark;
    setAccessibleName(words);
    // As rich text, so that a long tool tip is wrapped.
    setToolTip(words.isEmpty() ? QString() : QStringLiteral("<span>%1</span>").arg(words.toHtmlEscaped()));
    update();
}

void EditorMark::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QColor color = colorOf(m_mark).in(palette());
    const QString icon = iconNameOf(m_mark);
    if (!icon.isNull()) {
        painter.drawPixmap(rect(), VXIconHelper::pixmap(QIcon::fromTheme(icon), size(), color));
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(QRectF(rect()).center(), dotDiameter / 2, dotDiameter / 2);
}
