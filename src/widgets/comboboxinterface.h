#pragma once

#include <QAccessibleWidget>

class QComboBox;

/// The combo box of an editor for assistive technology: named by the caption, its text is the chosen entry.
///
/// Qt's own interface gives the chosen entry for the name on this platform, so that nobody hears what it is about.
/// Besides opening the list it can step to the next and to the previous entry.
class ComboBoxInterface : public QAccessibleWidget, public QAccessibleTextInterface
{
public:
    /// Puts it in use for the editors of this process. The application object has to be there: the last one counts.
    static void install();
    /// Tells who listens what is chosen now.
    static void announceChoice(QComboBox *box);

    explicit ComboBoxInterface(QComboBox *box);

    void *interface_cast(QAccessible::InterfaceType type) override;
    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;

    int childCount() const override;
    QAccessibleInterface *child(int index) const override;
    int indexOfChild(const QAccessibleInterface *child) const override;

    QStringList actionNames() const override;
    void doAction(const QString &name) override;

    QString text(int begin, int end) const override;
    int characterCount() const override;
    // The text is drawn by the style: there is neither a cursor nor a selection nor a known place of a letter.
    void selection(int, int *begin, int *end) const override { *begin = *end = 0; }
    int selectionCount() const override { return 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    QRect characterRect(int) const override { return {}; }
    int offsetAtPoint(const QPoint &) const override { return -1; }
    void scrollToSubstring(int, int) override {}
    QString attributes(int, int *begin, int *end) const override;

private:
    QComboBox *box() const;
    void pressKey(Qt::Key key);
};
