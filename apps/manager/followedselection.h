#pragma once

#include <QListWidget>

/// Makes the only selected row of @p list the current one. Assistive technology selects rows without going there.
inline void followSelection(QListWidget &list)
{
    QObject::connect(&list, &QListWidget::itemSelectionChanged, &list, [&list] {
        const QList<QListWidgetItem *> selected = list.selectedItems();
        if (selected.size() == 1)
            list.setCurrentItem(selected.first());
    });
}
