#pragma once

#include <vxsettings/dbparamwidget.h>

#include <QLabel>

/// The icon of a mark, in a colour that suits the palette it is painted with.
class EditorMark : public QLabel
{
public:
    static constexpr int extent = 16; ///< width and height, in device-independent pixels

    explicit EditorMark(QWidget *parent);

    void setMark(DBParamWidget::Mark mark, const QString &words);
    DBParamWidget::Mark mark() const { return m_mark; }
    QString words() const { return accessibleName(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    DBParamWidget::Mark m_mark = DBParamWidget::Mark::None;
};
