#include "searchresults.h"

#include "followedselection.h"

#include <vxsettings/dbsettingshelper.h>

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

namespace {

constexpr int placeRole = Qt::UserRole;
constexpr int verticalMargin = 5;
constexpr int horizontalMargin = 8;

/// A caption, and below it in a paler colour where it is.
class ResultDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const override
    {
        return {0, 2 * option.fontMetrics.lineSpacing() + 2 * verticalMargin};
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &givenOption, const QModelIndex &index) const override
    {
        QStyleOptionViewItem option = givenOption;
        initStyleOption(&option, index);
        option.text.clear();
        option.widget->style()->drawControl(QStyle::CE_ItemViewItem, &option, painter, option.widget);

        const bool isSelected = option.state & QStyle::State_Selected;
        QColor color = option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
        const QRect lines = option.rect.adjusted(horizontalMargin, verticalMargin, -horizontalMargin, -verticalMargin);
        drawLine(painter, option, lines, color, index.data().toString());
        color.setAlphaF(isSelected ? 0.85 : 0.65);
        drawLine(painter, option, lines.translated(0, option.fontMetrics.lineSpacing()), color,
                 index.data(placeRole).toString());
    }

private:
    static void drawLine(QPainter *painter, const QStyleOptionViewItem &option, const QRect &lines, const QColor &color,
                         const QString &text)
    {
        painter->setPen(color);
        painter->setFont(option.font);
        painter->drawText(lines, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
                          option.fontMetrics.elidedText(text, Qt::ElideRight, lines.width()));
    }
};

/// The page, and what was found unless the caption says it.
QString place(const SettingsSearch::Hit &hit)
{
    const QString page = DBSettingsHelper::groupName(hit.page);
    const bool isTold = hit.text == page || hit.address.caption().contains(hit.text);
    return isTold ? page : QStringLiteral("%1 · %2").arg(page, hit.text);
}
} // namespace

SearchResults::SearchResults(QWidget *parent)
    : QListWidget(parent)
{
    setObjectName(QStringLiteral("searchResults"));
    setFocusPolicy(Qt::NoFocus);
    setFrameShape(QFrame::Box);
    setFrameShadow(QFrame::Plain);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setItemDelegate(new ResultDelegate(this));
    setUniformItemSizes(true);
    setAutoFillBackground(true);
    followSelection(*this);
}

void SearchResults::setHits(const QVector<SettingsSearch::Hit> &hits)
{
    const QSignalBlocker blocker(this); // not a word before all rows are there
    setAccessibleName(tr("Результаты поиска"));
    m_hits = hits;
    clear();
    for (const SettingsSearch::Hit &hit : hits) {
        auto *item = new QListWidgetItem(hit.address.caption(), this);
        item->setData(placeRole, place(hit));
        item->setData(Qt::AccessibleTextRole, QStringLiteral("%1, %2").arg(item->text(), place(hit)));
        item->setToolTip(item->data(Qt::AccessibleTextRole).toString());
    }
    if (hits.isEmpty())
        (new QListWidgetItem(tr("Ничего не найдено"), this))->setFlags(Qt::NoItemFlags);
    else
        setCurrentRow(0);
}

int SearchResults::hitCount() const
{
    return m_hits.size();
}

const SettingAddress &SearchResults::currentAddress() const
{
    return m_hits.at(currentRow()).address;
}

QString SearchResults::currentText() const
{
    return m_hits.isEmpty() ? item(0)->text() : currentItem()->data(Qt::AccessibleTextRole).toString();
}

int SearchResults::contentWidth() const
{
    int widest = 0;
    for (int row = 0; row < count(); ++row) {
        for (const int role : {int(Qt::DisplayRole), placeRole})
            widest = qMax(widest, fontMetrics().horizontalAdvance(item(row)->data(role).toString()));
    }
    return widest + 2 * horizontalMargin + verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
}

int SearchResults::contentHeight() const
{
    return count() * sizeHintForRow(0) + 2 * frameWidth();
}

void SearchResults::move(int key)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    keyPressEvent(&event);
}
