#pragma once

#include <vxsettings/dbparamwidget.h>

#include <QComboBox>
#include <QLineEdit>
#include <QSpinBox>
#include <QTest>

/// What a user does with the editors of a shown page.
namespace editors {

/// The first editor of that key below @p page; null if there is none.
inline DBParamWidget *find(const QWidget *page, const QString &key)
{
    for (DBParamWidget *editor : page->findChildren<DBParamWidget *>()) {
        if (editor->key() == key)
            return editor;
    }
    return nullptr;
}

/// The input widget of an editor.
template <typename Input>
Input *input(const QWidget *page, const QString &key)
{
    const DBParamWidget *editor = find(page, key);
    return editor ? qobject_cast<Input *>(editor->centralWidget()) : nullptr;
}

/// Replaces what a line edit or a spin box shows.
inline void retype(QWidget *input, const QString &text)
{
    QTest::keyClick(input, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(input, text);
}

inline void click(QWidget *checkBox)
{
    QTest::mouseClick(checkBox, Qt::LeftButton, {}, {8, checkBox->height() / 2});
}

/// Chooses the next entry of a combo box.
inline void chooseNext(QComboBox *comboBox)
{
    QTest::keyClick(comboBox, Qt::Key_Down);
}
} // namespace editors
