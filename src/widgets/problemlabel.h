#pragma once

#include <QLabel>

/// A line of warning in as many lines as the width leaves it; it never asks for more width.
class ProblemLabel : public QLabel
{
public:
    explicit ProblemLabel(QWidget *parent);

protected:
    void changeEvent(QEvent *event) override;

private:
    void followPalette();
};
