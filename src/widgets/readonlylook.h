#pragma once

#include <QPalette>

/// How input widgets show that their text can be read and copied, but not changed.
namespace readonlylook {

/// Sets @p input read-only, or not, and lets the page show through where it cannot be typed, in any palette.
template <typename Input>
void setReadOnly(Input *input, bool readOnly)
{
    QPalette palette;
    if (readOnly)
        palette.setColor(QPalette::Base, Qt::transparent);
    input->setPalette(palette);
    input->setReadOnly(readOnly);
}
} // namespace readonlylook
