#pragma once

#include "wholelabel.h"

/// A caption above or below an editor, which would rather have another line than be wide: three columns of editors have
/// to fit into a window.
class CaptionLabel : public WholeLabel
{
public:
    using WholeLabel::WholeLabel;

protected:
    QSize roomFor(const QSize &hint) const override;
};
