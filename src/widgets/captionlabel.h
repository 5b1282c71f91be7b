#pragma once

#include <QLabel>

/// A caption above or below an editor, which would rather have another line than be wide: three columns of editors have
/// to fit into a window.
class CaptionLabel : public QLabel
{
public:
    using QLabel::QLabel;

    QSize sizeHint() const override;
};
