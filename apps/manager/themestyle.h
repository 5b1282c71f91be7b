#pragma once

#include <QProxyStyle>

/// The toolkit's own look with outlines that stand out from the window in light and dark, and a focus that cannot be
/// overlooked.
class ThemeStyle : public QProxyStyle
{
public:
    ThemeStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    QRect subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget = nullptr) const override;
};
