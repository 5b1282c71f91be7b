#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

/// A line above a page: what is special about it, and a button for what can be done.
class PageNotice : public QFrame
{
    Q_OBJECT

public:
    /// @p icon is a name of the icon theme.
    explicit PageNotice(const QString &icon, QWidget *parent = nullptr);

    /// Shows @p text, a sentence or more, and @p action on the button; hides the line if the text is null.
    void tell(const QString &text, const QString &action);

Q_SIGNALS:
    void actionRequested();

protected:
    void changeEvent(QEvent *event) override;

private:
    void paintIcon();

    QString m_iconName;
    QLabel *m_icon;
    QLabel *m_text;
    QPushButton *m_action;
};
