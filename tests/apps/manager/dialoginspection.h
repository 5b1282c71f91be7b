#pragma once

#include "doublingtranslator.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QSet>
#include <QTest>
#include <QTreeView>

/// What holds for every dialog.
namespace dialoginspection {

/// The input widgets without an accessible name, or that the Tab key does not reach.
inline QStringList inaccessibleWidgets(QDialog &dialog)
{
    QSet<const QWidget *> reached;
    for (QWidget *widget = dialog.nextInFocusChain(); widget != &dialog; widget = widget->nextInFocusChain()) {
        if (widget->focusPolicy() & Qt::TabFocus)
            reached.insert(widget);
    }
    QStringList inaccessible;
    for (const QWidget *widget : dialog.findChildren<QWidget *>()) {
        const bool isButton = qobject_cast<const QAbstractButton *>(widget) && widget->focusPolicy() != Qt::NoFocus;
        const bool isInput = qobject_cast<const QLineEdit *>(widget) || qobject_cast<const QComboBox *>(widget) ||
                             qobject_cast<const QTreeView *>(widget);
        const auto *button = qobject_cast<const QAbstractButton *>(widget);
        const QString name = button && button->accessibleName().isEmpty() ? button->text() : widget->accessibleName();
        const bool isOfComboBox = qobject_cast<const QComboBox *>(widget->window()) ||
                                  widget->window() != static_cast<const QWidget *>(&dialog);
        if ((isButton || isInput) && !isOfComboBox && (name.isEmpty() || !reached.contains(widget)))
            inaccessible << QStringLiteral("%1 %2").arg(widget->metaObject()->className(), widget->objectName());
    }
    return inaccessible;
}

/// The letters that more than one button or label would answer to.
inline QStringList clashingMnemonics(const QDialog &dialog)
{
    QSet<QString> seen;
    QStringList clashing;
    for (const QAbstractButton *button : dialog.findChildren<QAbstractButton *>()) {
        const QString mnemonic = QKeySequence::mnemonic(button->text()).toString();
        if (!mnemonic.isEmpty() && seen.contains(mnemonic))
            clashing << mnemonic;
        seen.insert(mnemonic);
    }
    return clashing;
}

/// Whether the dialog can be as small as the smallest window, which has 1024×700.
inline bool fitsSmallestWindow(const QDialog &dialog)
{
    const QSize minimum = dialog.minimumSizeHint().expandedTo(dialog.minimumSize());
    return minimum.width() <= 1024 && minimum.height() <= 700;
}
} // namespace dialoginspection
