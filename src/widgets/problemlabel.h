#pragma once

#include <QLabel>

/// A warning in words, in a colour that can be read on the palette it is painted with.
class ProblemLabel : public QLabel
{
public:
    explicit ProblemLabel(QWidget *parent);

protected:
    void changeEvent(QEvent *event) override;

private:
    void followPalette();
};
