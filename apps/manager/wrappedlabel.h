#pragma once

#include <QLabel>

/// A text as it is written, in as many lines as it needs.
class WrappedLabel : public QLabel
{
public:
    explicit WrappedLabel(const QString &text = {}, QWidget *parent = nullptr);
};
