#include "pagelist.h"

#include "followedselection.h"

#include <vxsettings/dbsettingshelper.h>

#include <vxstyles/vxiconhelper.h>

#include <QEvent>
#include <QIcon>
#include <QPainter>
#include <QStyledItemDelegate>

namespace {

constexpr QSize pictureSize(20, 20);
constexpr int rowHeight = 28;  // of a title in one line, which may be larger than this
constexpr int rowPadding = 10; // above and below a title, together
constexpr int headingHeight = 24;
constexpr int leastLetters = 20;       // of a title's room, however short titles are
constexpr int usualHits = 9;           // titles keep their lines when so many are told
constexpr int titleSlack = 4;          // lines are broken a little before they are full
constexpr int margin = 3;              // around the rows
constexpr qreal headingStrength = 0.7; // of the colour of the text
constexpr int groupRole = Qt::UserRole;
constexpr int lockedRole = Qt::UserRole + 1;
constexpr QSize lockSize(14, 14);
constexpr QPoint lockOffset(4, 3);

struct Section
{
    const char *heading;
    QVector<DBGroups> pages;
};

const QVector<Section> &sections()
{
    static const QVector<Section> sections{
        {QT_TRANSLATE_NOOP("PageList", "Общие"), {DBGroups::Database, DBGroups::PassRequests}},
        {QT_TRANSLATE_NOOP("PageList", "Люди"), {DBGroups::Employees, DBGroups::Users}},
        {QT_TRANSLATE_NOOP("PageList", "Биометрия"),
         {DBGroups::ScanningCommon, DBGroups::FingerprintScanning, DBGroups::PalmScanning, DBGroups::FaceScanning}},
        {QT_TRANSLATE_NOOP("PageList", "Мобильные приложения"),
         {DBGroups::Connection, DBGroups::StudioMobile, DBGroups::MobileId}},
        {QT_TRANSLATE_NOOP("PageList", "Внешние системы"), {DBGroups::Integration}},
    };
    return sections;
}

bool isPage(const QListWidgetItem *item)
{
    return item->data(groupRole).isValid();
}

DBGroups groupOf(const QListWidgetItem *item)
{
    return DBGroups(item->data(groupRole).toInt());
}

QString withHits(const QString &title, int count)
{
    return QStringLiteral("%1 (%2)").arg(title).arg(count);
}

/// The least width in which @p title takes no more than two lines.
int widthInTwoLines(const QString &title, const QFontMetrics &metrics)
{
    const QStringList words = title.split(QLatin1Char(' '));
    int least = metrics.horizontalAdvance(title);
    for (int first = 1; first < words.count(); ++first) {
        const int above = metrics.horizontalAdvance(words.mid(0, first).join(QLatin1Char(' ')));
        const int below = metrics.horizontalAdvance(words.mid(first).join(QLatin1Char(' ')));
        least = qMin(least, qMax(above, below));
    }
    return least;
}

QFont bold(QFont font)
{
    font.setBold(true);
    return font;
}

/// The theme's black drawing in the colours of the text beside it.
QIcon icon(DBGroups group, const QPalette &palette)
{
    const QIcon drawing = QIcon::fromTheme(DBSettingsHelper::groupIconName(group));
    QIcon icon;
    icon.addPixmap(VXIconHelper::pixmap(drawing, pictureSize, palette.color(QPalette::Text)), QIcon::Normal);
    icon.addPixmap(VXIconHelper::pixmap(drawing, pictureSize, palette.color(QPalette::HighlightedText)),
                   QIcon::Selected);
    return icon;
}

/// A page with a lock at the foot of its picture if operators may not edit it: beside the title is no room for one.
class PageDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &givenOption, const QModelIndex &index) const override
    {
        QStyledItemDelegate::paint(painter, givenOption, index);
        if (!index.data(lockedRole).toBool())
            return;
        QStyleOptionViewItem option = givenOption;
        initStyleOption(&option, index);
        QRect lock(QPoint(), lockSize);
        lock.moveBottomRight(
            option.widget->style()->subElementRect(QStyle::SE_ItemViewItemDecoration, &option).bottomRight() +
            lockOffset);
        const bool isSelected = option.state & QStyle::State_Selected;
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(option.palette.brush(isSelected ? QPalette::Highlight : QPalette::Base));
        painter->drawEllipse(QRectF(lock).adjusted(-1, -1, 1, 1));
        const QColor color = option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
        painter->drawPixmap(lock,
                            VXIconHelper::pixmap(QIcon::fromTheme(QStringLiteral("common-lock")), lockSize, color));
    }
};
} // namespace

PageList::PageList(QWidget *parent)
    : QListWidget(parent)
{
    setObjectName(QStringLiteral("pageList"));
    setIconSize(pictureSize);
    setItemDelegate(new PageDelegate(this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrap(true);
    setViewportMargins(margin, margin, margin, margin);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);

    for (const Section &section : sections()) {
        addHeading();
        for (const DBGroups group : section.pages)
            addPage(group);
    }
    retranslate();
    paint();
    choose(sections().first().pages.first());
    connect(this, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem *item) {
        if (item)
            Q_EMIT pageChosen(groupOf(item));
    });
    followSelection(*this);
}

QVector<DBGroups> PageList::pages()
{
    QVector<DBGroups> pages;
    for (const Section &section : sections())
        pages += section.pages;
    return pages;
}

void PageList::addHeading()
{
    auto *item = new QListWidgetItem(this);
    item->setFlags(Qt::NoItemFlags);
    item->setSizeHint({0, headingHeight});
    item->setTextAlignment(Qt::AlignLeft | Qt::AlignBottom);
}

void PageList::addPage(DBGroups group)
{
    auto *item = new QListWidgetItem(this);
    item->setData(groupRole, int(group));
}

void PageList::choose(DBGroups group)
{
    setCurrentItem(itemOf(group));
}

DBGroups PageList::chosen() const
{
    return groupOf(currentItem());
}

void PageList::setChanged(DBGroups group, bool changed)
{
    if (changed)
        m_changed.insert(int(group));
    else
        m_changed.remove(int(group));
    describe(itemOf(group));
}

void PageList::setLocked(DBGroups group, bool locked)
{
    if (locked)
        m_locked.insert(int(group));
    else
        m_locked.remove(int(group));
    describe(itemOf(group));
}

void PageList::setHits(const QMap<DBGroups, int> &hits)
{
    m_hits = hits;
    for (const DBGroups group : pages())
        describe(itemOf(group));
}

QListWidgetItem *PageList::itemOf(DBGroups group) const
{
    int row = 0;
    while (!isPage(item(row)) || groupOf(item(row)) != group)
        ++row;
    return item(row);
}

void PageList::describe(QListWidgetItem *item) const
{
    const DBGroups group = groupOf(item);
    const QString title = DBSettingsHelper::groupName(group);
    item->setText(m_hits.contains(group) ? withHits(title, m_hits.value(group)) : title);

    const bool isChanged = m_changed.contains(int(group));
    QFont font = this->font();
    font.setBold(isChanged);
    item->setFont(font);
    const bool isLocked = m_locked.contains(int(group));
    item->setData(lockedRole, isLocked);
    QStringList words;
    if (isChanged)
        words << tr("Есть несохранённые изменения");
    if (isLocked)
        words << tr("Закрыта для операторов");
    item->setToolTip(words.join(QStringLiteral(". ")));
    item->setData(Qt::AccessibleDescriptionRole, item->toolTip());
    item->setSizeHint({0, heightOf(item)});
}

int PageList::heightOf(const QListWidgetItem *item) const
{
    const QRect lines = QFontMetrics(item->font()).boundingRect(0, 0, titleWidth(), 0, Qt::TextWordWrap, item->text());
    return qMax(rowHeight, lines.height() + rowPadding);
}

int PageList::titleWidth() const
{
    const QFontMetrics metrics(bold(font()));
    int width = leastLetters * metrics.averageCharWidth();
    for (const DBGroups group : pages())
        width = qMax(width, widthInTwoLines(withHits(DBSettingsHelper::groupName(group), usualHits), metrics));
    return width + titleSlack;
}

QSize PageList::sizeHint() const
{
    const int textMargin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
    const int rowWidth = pictureSize.width() + titleWidth() + 4 * textMargin;
    return {rowWidth + 2 * (frameWidth() + margin), QListWidget::sizeHint().height()};
}

void PageList::changeEvent(QEvent *event)
{
    QListWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        paint();
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

QModelIndex PageList::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    // Qt 6 stops at headings on the way.
    if (action == MovePageUp || action == MovePageDown)
        return scrolledCursor(action == MovePageUp ? -1 : 1);
    const QModelIndex target = QListWidget::moveCursor(action, modifiers);
    if (!target.isValid() || isPage(itemFromIndex(target)))
        return target;
    // A page stands below every heading; only from a page's own heading the way up is at its end.
    const bool isUpwards = action == MoveUp || action == MovePrevious;
    return target.sibling(target.row() + (isUpwards && target.row() > 0 ? -1 : 1), 0);
}

QModelIndex PageList::scrolledCursor(int direction) const
{
    const int reach = viewport()->height();
    const int start = visualRect(currentIndex()).top();
    QModelIndex farthest = currentIndex();
    for (int row = farthest.row() + direction; row >= 0 && row < count(); row += direction) {
        const QModelIndex next = model()->index(row, 0);
        if (qAbs(visualRect(next).top() - start) > reach)
            break;
        if (isPage(item(row)))
            farthest = next;
    }
    return farthest;
}

void PageList::retranslate()
{
    setAccessibleName(tr("Страницы настроек"));
    int row = 0;
    for (const Section &section : sections()) {
        item(row++)->setText(tr(section.heading));
        for (int i = 0; i < section.pages.size(); ++i)
            describe(item(row++));
    }
    updateGeometry();
}

void PageList::paint()
{
    // That of what is disabled, as headings are, is too pale to be read.
    QColor headingColor = palette().color(QPalette::Text);
    headingColor.setAlphaF(headingStrength);
    for (int row = 0; row < count(); ++row) {
        if (isPage(item(row)))
            item(row)->setIcon(icon(groupOf(item(row)), palette()));
        else
            item(row)->setForeground(headingColor);
    }
}
