#include "problemlabel.h"

#include "signalcolor.h"

#include <QEvent>

ProblemLabel::ProblemLabel(QWidget *parent)
    : QLabel(parent)
{
    setObjectName(QStringLiteral("problemLabel"));
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(Qt::AlignTop | Qt::AlignLeading);
    followPalette();
}

void ProblemLabel::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        followPalette();
}

void ProblemLabel::followPalette()
{
    QPalette own;
    own.setColor(QPalette::WindowText, problemColor.in(palette()));
    setPalette(own);
}
