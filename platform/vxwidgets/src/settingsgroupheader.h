#pragma once

#include <QIcon>
#include <QString>
#include <QWidget>

#include <array>

class QToolButton;

/// The head of a settings group: show/hide button, icon, title and line in one row.
///
/// Everything but the button is painted, and measured when the layout asks: setting it up costs next to nothing.
class SettingsGroupHeader : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsGroupHeader(QWidget *parent);

    void setTitle(const QString &title);
    QString title() const { return m_title; }

    /// Drawn in the palette's WindowText colour.
    void setIcon(const QIcon &icon);
    QIcon icon() const { return m_icon; }

    void setLineShown(bool shown);
    bool isLineShown() const { return m_lineShown; }

    void setButtonShown(bool shown);
    bool isButtonShown() const { return m_button; }

    /// Which way the button points; the header folds nothing itself.
    void setExpanded(bool expanded);
    bool isExpanded() const { return m_expanded; }

    /// Nothing to show: a line alone does not make a header.
    bool isEmpty() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// The user pressed the button.
    void toggleRequested();

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    enum Part { Button, Icon, Title, Line, PartCount };

    /// Empty for a part that is not there; the line takes what the others leave.
    std::array<QSize, Line> partSizes() const;
    std::array<QRect, PartCount> partRects() const;
    QColor lineColor() const;
    QFont titleFont() const;
    void updateButton();
    void placeButton();

    QString m_title;
    QIcon m_icon;
    QToolButton *m_button = nullptr; // child
    bool m_lineShown = true;
    bool m_expanded = true;
};
