#pragma once

#include <vxwidgets/vxwidgets_export.h>

#include <QSpinBox>

/// A spin box that leaves the wheel to the page around it, focused or not, and does not take the focus by it either.
class VXWIDGETS_EXPORT ScrollIgnoringSpinBox : public QSpinBox
{
    Q_OBJECT

public:
    explicit ScrollIgnoringSpinBox(QWidget *parent = nullptr);

protected:
    void wheelEvent(QWheelEvent *event) override;
};
