#pragma once

#include <vxsettings/dbparamwidget.h>
#include <vxsettings/dbsettings.h>

#include <vxwidgets/vxsettingsgroupwidget.h>

#include <QGridLayout>
#include <QLabel>
#include <QSplitter>

/// What a test sees of a page that is built.
namespace inspect {

inline VXSettingsGroupWidget *frame(const DBSettings &node)
{
    return qobject_cast<VXSettingsGroupWidget *>(node.widget().get());
}

/// The frame that @p widget lies in, not counting itself.
inline const VXSettingsGroupWidget *enclosingFrame(const QWidget *widget)
{
    const QWidget *above = widget->parentWidget();
    while (above && !qobject_cast<const VXSettingsGroupWidget *>(above))
        above = above->parentWidget();
    return qobject_cast<const VXSettingsGroupWidget *>(above);
}

/// What the frame's body holds, from top to bottom; empty without a splitter in it.
inline QList<QWidget *> body(const VXSettingsGroupWidget *frame)
{
    QList<QWidget *> widgets;
    for (QSplitter *splitter : frame->findChildren<QSplitter *>()) {
        const QLayout *layout = enclosingFrame(splitter) == frame ? splitter->parentWidget()->layout() : nullptr;
        for (int i = 0; layout && i < layout->count(); ++i)
            widgets << layout->itemAt(i)->widget();
    }
    return widgets;
}

/// The grid that holds the group's editors.
inline QGridLayout *grid(const VXSettingsGroupWidget *frame)
{
    const QList<QWidget *> widgets = body(frame);
    return widgets.isEmpty() ? nullptr : qobject_cast<QGridLayout *>(widgets.first()->layout());
}

/// The cells of the frame's grid, for instance "PT_MOBILE_PORT 0,1" or "[Title of a nested frame] 2,0 1x2".
inline QStringList cells(const VXSettingsGroupWidget *frame)
{
    QStringList cells;
    QGridLayout *layout = grid(frame);
    for (int i = 0; layout && i < layout->count(); ++i) {
        int row, column, rows, columns;
        layout->getItemPosition(i, &row, &column, &rows, &columns);
        QWidget *widget = layout->itemAt(i)->widget();
        const auto *editor = qobject_cast<DBParamWidget *>(widget);
        const auto *nested = qobject_cast<VXSettingsGroupWidget *>(widget);
        QString cell = editor ? editor->key() : nested ? '[' + nested->title() + ']' : QStringLiteral("stranger");
        cell += QStringLiteral(" %1,%2").arg(row).arg(column);
        if (rows != 1 || columns != 1)
            cell += QStringLiteral(" %1x%2").arg(rows).arg(columns);
        cells << cell;
    }
    return cells;
}

/// The first editor with that key below @p page; null if there is none.
inline DBParamWidget *editor(const QWidget *page, const QString &key)
{
    for (DBParamWidget *candidate : page->findChildren<DBParamWidget *>()) {
        if (candidate->key() == key)
            return candidate;
    }
    return nullptr;
}

/// The input widget of that editor; null if there is none or it is of another class.
template <typename Input>
Input *input(const QWidget *page, const QString &key)
{
    const DBParamWidget *found = editor(page, key);
    return found ? qobject_cast<Input *>(found->centralWidget()) : nullptr;
}

/// Object names of the editor's captions that are not hidden.
inline QStringList shownCaptions(const DBParamWidget *editor)
{
    QStringList names;
    for (const QLabel *label : editor->findChildren<QLabel *>()) {
        if (!label->isHidden())
            names << label->objectName();
    }
    return names;
}
} // namespace inspect
