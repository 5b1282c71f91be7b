#include "themestyle.h"

#include <QPainter>
#include <QStyleOption>

namespace {

constexpr qreal outlineStrength = 0.5; // of the colour of the text
constexpr qreal disabledStrength = 0.2;
constexpr qreal roundness = 2;
constexpr qreal focusWidth = 2;

QColor mixed(const QColor &above, const QColor &below, qreal strength)
{
    const auto part = [strength](int a, int b) { return int(a * strength + b * (1 - strength)); };
    return QColor(part(above.red(), below.red()), part(above.green(), below.green()), part(above.blue(), below.blue()));
}

/// The toolkit's outlines are a darker window, which is next to nothing in the dark.
QColor outlineColor(const QStyleOption &option)
{
    const QPalette &palette = option.palette;
    const bool isEnabled = option.state & QStyle::State_Enabled;
    if (isEnabled && (option.state & QStyle::State_HasFocus))
        return palette.color(QPalette::Highlight);
    return mixed(palette.color(QPalette::Active, QPalette::WindowText), palette.color(QPalette::Window),
                 isEnabled ? outlineStrength : disabledStrength);
}

void drawOutline(QPainter *painter, const QRectF &rect, const QPen &pen)
{
    const qreal inside = pen.widthF() / 2;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(pen);
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(rect.adjusted(inside, inside, -inside, -inside), roundness, roundness);
    painter->restore();
}

void drawFocus(QPainter *painter, const QStyleOption &option)
{
    const auto *focus = qstyleoption_cast<const QStyleOptionFocusRect *>(&option);
    if (!focus || !(focus->state & QStyle::State_KeyboardFocusChange))
        return;
    const QColor highlight = option.palette.color(QPalette::Highlight);
    // Within what is chosen, which is as visible itself, a thin line of another colour will do.
    const bool isOnHighlight = focus->backgroundColor == highlight;
    drawOutline(painter, option.rect,
                isOnHighlight ? QPen(option.palette.color(QPalette::HighlightedText), 1) : QPen(highlight, focusWidth));
}
} // namespace

ThemeStyle::ThemeStyle()
    : QProxyStyle(QStringLiteral("fusion"))
{}

void ThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                               const QWidget *widget) const
{
    if (element == PE_FrameFocusRect) {
        drawFocus(painter, *option);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_IndicatorCheckBox || element == PE_FrameLineEdit)
        drawOutline(painter, option->rect, outlineColor(*option));
}

QRect ThemeStyle::subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget) const
{
    // The keyboard is at a row with its picture, not at its words.
    return element == SE_ItemViewItemFocusRect ? option->rect : QProxyStyle::subElementRect(element, option, widget);
}

void ThemeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                                    const QWidget *widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    const auto *spinBox = qstyleoption_cast<const QStyleOptionSpinBox *>(option);
    if (control == CC_SpinBox && spinBox && spinBox->frame)
        drawOutline(painter, option->rect.adjusted(0, 1, 0, -1), outlineColor(*option));
}
