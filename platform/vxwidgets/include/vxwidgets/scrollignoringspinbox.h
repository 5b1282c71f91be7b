#pragma once

#include <vxwidgets/vxwidgets_export.h>

#include <QSpinBox>

/// A spin box that leaves the wheel to the page around it, focused or not, and does not take the focus by it either.
class VXWIDGETS_EXPORT ScrollIgnoringSpinBox : public QSpinBox
{
    Q_OBJECT

public:
    /// As a QSpinBox begins: 0 in the range 0 to 99. @p parent owns it.
    explicit ScrollIgnoringSpinBox(QWidget *parent = nullptr);

protected:
    /// Ignores the event, so that it goes on to the widget around the box.
    void wheelEvent(QWheelEvent *event) override;
};
