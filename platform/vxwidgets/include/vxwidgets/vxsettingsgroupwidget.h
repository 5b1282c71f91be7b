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
    /// Empty; @p parent, which may be null, owns it.
    explicit VXSettingsGroupWidget(QWidget *parent);

    /// Whether the user can fold the body. Without the button only collapse() and expand() do.
    void setShowHideButton(bool shown);
    /// Whether there is a button; false at first.
    bool isShowHideButton() const;

    /// Whether a line follows the title.
    void setShowLineHorizontal(bool shown);
    /// Whether there is a line; true at first.
    bool isShowLineHorizontal() const;

    /// Space around header and body, in device-independent pixels.
    void setContentMargins(const QMargins &margins);
    /// In device-independent pixels; 0 on all sides at first.
    QMargins contentMargins() const;

    /// Plain text; an empty one takes the title away.
    void setTitle(const QString &title);
    /// The title as it was set; empty at first.
    QString title() const;

    /// The header uses the icon's shape only and draws it in the colour of the title.
    void setIcon(const QIcon &icon);
    /// The icon as it was set.
    QIcon icon() const;

    /// Hides the body and gives its space back; what is added meanwhile stays hidden with it.
    void collapse();
    /// Shows the body.
    void expand();
    /// Whether the body is not hidden; true at first.
    bool isExpanded() const;

    /// Adds @p widget at the end of the body, which becomes its parent.
    void addWidget(QWidget *widget);

private:
    void setExpanded(bool expanded);
    void updateHeader();

    SettingsGroupHeader *m_header; // child
    QWidget *m_body;               // child
};
