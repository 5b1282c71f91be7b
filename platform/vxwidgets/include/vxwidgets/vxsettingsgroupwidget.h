#pragma once

#include <vxwidgets/vxwidgets_export.h>

#include <QIcon>
#include <QMargins>
#include <QString>
#include <QWidget>

class SettingsGroupHeader;

/// A titled group of widgets that can be folded away.
///
/// The header shows, in reading direction, the show/hide button, the icon, the title in bold, and a line that fills the
/// rest; what is not set takes no space, and without button, icon and title there is no header at all. The body below
/// holds the added widgets one under the other. A new frame is expanded and has the line, no button and no margins.
///
/// As long as the frame is not on screen, nothing here polishes or lays out the body, so that pages are built cheaply.
/// A frame never asks for spare height, whatever its body holds, but passes on to the body what it gets.
class VXWIDGETS_EXPORT VXSettingsGroupWidget : public QWidget
{
    Q_OBJECT

public:
    explicit VXSettingsGroupWidget(QWidget *parent);

    /// Whether the user can fold the body. Without the button only collapse() and expand() do.
    void setShowHideButton(bool shown);
    bool isShowHideButton() const;

    /// Whether a line follows the title.
    void setShowLineHorizontal(bool shown);
    bool isShowLineHorizontal() const;

    /// Space around header and body, in device-independent pixels.
    void setContentMargins(const QMargins &margins);
    QMargins contentMargins() const;

    void setTitle(const QString &title);
    QString title() const;

    /// The header uses the icon's shape only and draws it in the colour of the title.
    void setIcon(const QIcon &icon);
    /// The icon as it was set.
    QIcon icon() const;

    /// Hides the body and gives its space back; what is added meanwhile stays hidden with it.
    void collapse();
    void expand();
    bool isExpanded() const;

    /// Adds @p widget at the end of the body, which becomes its parent.
    void addWidget(QWidget *widget);

private:
    void setExpanded(bool expanded);
    void updateHeader();

    SettingsGroupHeader *m_header; // child
    QWidget *m_body;               // child
};
