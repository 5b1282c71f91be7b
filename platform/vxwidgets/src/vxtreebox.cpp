#include "singleline.h"
#include "tintedicon.h"
#include "treeboxview.h"

#include <vxwidgets/vxtreebox.h>
#include <vxwidgets/vxtreeviewdelegate.h>

#include <QApplication>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QScreen>
#include <QScrollBar>
#include <QStylePainter>
#include <QToolTip>
#include <QWheelEvent>

namespace {

constexpr int minimumPopupWidth = 240;
constexpr int minimumPopupRows = 3;
constexpr int iconSpacing = 4;          // what styles put between the icon of a combo box and its text
constexpr int textMargin = 1;           // and on either side of the text
constexpr qreal ancestorOpacity = 0.65; // of the text colour: the chosen node stands out, the way to it can be read
} // namespace

VXTreeBox::VXTreeBox(QWidget *parent)
    : VXTreeBox(modelComesLater, parent)
{
    m_tree->setModel(model());
}

VXTreeBox::VXTreeBox(ModelComesLater, QWidget *parent)
    : QComboBox(parent)
    , m_tree(new TreeBoxView)
{
    setView(m_tree);
    m_tree->settle();
    // Any other policy measures every top-level name.
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setFocusPolicy(Qt::StrongFocus);

    connect(m_tree, &TreeBoxView::chosen, this, &VXTreeBox::chooseByUser);
    // The first connection: whoever else listens finds the box in order again.
    connect(this, qOverload<int>(&QComboBox::currentIndexChanged), this, &VXTreeBox::followCurrentIndex);
}

void VXTreeBox::setDefaultRootIndex(const QModelIndex &index)
{
    m_defaultRoot = index;
}

void VXTreeBox::setCurrentModelIndex(const QModelIndex &index)
{
    const QModelIndex node = index.sibling(index.row(), modelColumn());
    if (node == currentModelIndex())
        return;

    // The base class chooses by program only below its root index: lend it the node's parent.
    m_current = node;
    m_rootIndex = rootModelIndex();
    m_isRootLent = true;
    m_tree->holdRootIndex(true);
    setRootModelIndex(node.parent());
    setCurrentIndex(node.row());
    returnRootIndex(); // unless followCurrentIndex() did, which is not called while signals are blocked
}

QModelIndex VXTreeBox::currentModelIndex() const
{
    if (m_current.row() == currentIndex())
        return m_current;
    return model()->index(currentIndex(), modelColumn(), rootModelIndex());
}

void VXTreeBox::showPopup()
{
    if (count() == 0)
        return;

    revealCurrent();
    preparePopup();
    QWidget *popup = m_tree->parentWidget();
    popup->setGeometry(popupGeometry());
    popup->show();
    m_tree->setFocus(Qt::PopupFocusReason);

    const QModelIndex current = currentModelIndex();
    m_tree->selectionModel()->setCurrentIndex(current, QItemSelectionModel::ClearAndSelect);
    m_tree->scrollTo(current.isValid() ? current : QModelIndex(m_defaultRoot), QAbstractItemView::PositionAtCenter);
}

bool VXTreeBox::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && showPathAt(static_cast<QHelpEvent *>(event)->globalPos()))
        return true;
    return QComboBox::event(event);
}

void VXTreeBox::keyPressEvent(QKeyEvent *event)
{
    const bool isPlain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (opensPopup(*event))
        showPopup();
    else if (!isPlain || !(step(event->key()) || search(event->text())))
        event->ignore();
}

void VXTreeBox::paintEvent(QPaintEvent *)
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    if (!option.currentIcon.isNull()) {
        const QColor color = palette().color(QPalette::ButtonText);
        option.currentIcon = tintedIcon(option.currentIcon, option.iconSize, color);
    }
    option.currentText = labelText(option);

    QStylePainter painter(this);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    const QStringList branch = shownBranch(option);
    if (branch.count() > 1)
        drawBranch(painter, option, branch);
    else
        painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

void VXTreeBox::wheelEvent(QWheelEvent *event)
{
    event->ignore();
}

void VXTreeBox::followCurrentIndex(int row)
{
    if (!returnRootIndex())
        m_current = model()->index(row, modelColumn(), rootModelIndex());
}

bool VXTreeBox::returnRootIndex()
{
    if (!m_isRootLent)
        return false;
    m_isRootLent = false;
    setRootModelIndex(m_rootIndex);
    m_tree->holdRootIndex(false);
    return true;
}

void VXTreeBox::chooseByUser(const QModelIndex &index)
{
    const QPointer<VXTreeBox> self(this);
    const QPersistentModelIndex node = index;
    hidePopup();
    setCurrentModelIndex(node);
    Q_EMIT activated(currentIndex());
    if (self)
        Q_EMIT textActivated(currentText());
}

void VXTreeBox::revealCurrent()
{
    for (QModelIndex node : {QModelIndex(m_defaultRoot), currentModelIndex().parent()}) {
        for (; node.isValid(); node = node.parent())
            m_tree->expand(node);
    }
}

void VXTreeBox::preparePopup()
{
    if (itemDelegate()->metaObject() == &QStyledItemDelegate::staticMetaObject)
        setItemDelegate(new VXTreeViewDelegate(m_tree));

    // Where a style wants the popup to look like a menu, the base class replaces the scroll bars by arrows at the ends,
    // with which nobody gets through a large tree.
    m_tree->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_tree->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    const auto parts = m_tree->parentWidget()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *part : parts) {
        if (part != m_tree)
            part->setMaximumHeight(0);
    }
    m_tree->setAccessibleName(accessibleName().isEmpty() ? tr("Дерево выбора") : accessibleName());
}

QRect VXTreeBox::popupGeometry() const
{
    const QRect available = screen()->availableGeometry();
    const QRect box(mapToGlobal(QPoint(0, 0)), size());
    const int above = box.top() - available.top();
    const int below = available.bottom() - box.bottom();

    const int rowHeight = m_tree->sizeHintForIndex(firstNode()).height();
    const int frame = static_cast<QFrame *>(m_tree->parentWidget())->frameWidth();
    const int wanted = popupRowCount() * rowHeight + 2 * frame;
    const bool opensDown = wanted <= below || below >= above;
    const int height = qMax(qMin(wanted, opensDown ? below : above), minimumPopupRows * rowHeight);

    const int scrollBar = m_tree->verticalScrollBar()->sizeHint().width();
    const int contents = m_tree->sizeHintForColumn(0) + scrollBar + 2 * frame;
    const int widest = qMax(box.width(), available.width() / 2);
    const int width = qMin(qMax(qMax(box.width(), minimumPopupWidth), contents), widest);
    const int left = isRightToLeft() ? box.right() + 1 - width : box.left();
    return {qBound(available.left(), left, available.right() + 1 - width),
            opensDown ? box.bottom() + 1 : box.top() - height, width, height};
}

int VXTreeBox::popupRowCount() const
{
    int count = 0;
    for (QModelIndex node = firstNode(); node.isValid() && count < maxVisibleItems(); node = m_tree->indexBelow(node)) {
        ++count;
        if (model()->hasChildren(node) && !m_tree->isExpanded(node))
            return maxVisibleItems(); // room for the children
    }
    return count;
}

bool VXTreeBox::opensPopup(const QKeyEvent &event) const
{
    switch (event.key()) {
    case Qt::Key_F4:
        return event.modifiers() == Qt::NoModifier;
    case Qt::Key_Up:
    case Qt::Key_Down:
        return event.modifiers() & Qt::AltModifier;
    case Qt::Key_Space:
        return !isSearching();
    default:
        return false;
    }
}

bool VXTreeBox::isSearching() const
{
    return m_searchTime.isValid() && !m_searchTime.hasExpired(QApplication::keyboardInputInterval());
}

bool VXTreeBox::step(int key)
{
    revealCurrent();
    const QModelIndex current = currentModelIndex();
    QModelIndex target;
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_PageUp:
        target = choosableFrom(m_tree->indexAbove(current), &QTreeView::indexAbove);
        break;
    case Qt::Key_Down:
    case Qt::Key_PageDown:
        target = choosableFrom(current.isValid() ? m_tree->indexBelow(current) : firstNode(), &QTreeView::indexBelow);
        break;
    case Qt::Key_Home:
        target = choosableFrom(firstNode(), &QTreeView::indexBelow);
        break;
    case Qt::Key_End:
        target = choosableFrom(lastNode(), &QTreeView::indexAbove);
        break;
    default:
        return false;
    }
    if (target.isValid() && target != current)
        chooseByUser(target);
    return true;
}

bool VXTreeBox::search(const QString &typed)
{
    if (typed.isEmpty() || !typed.at(0).isPrint())
        return false;
    m_searched = isSearching() ? m_searched + typed : typed;
    m_searchTime.start();

    // One letter again and again goes from name to name; different ones narrow down where the search has got to.
    const bool isRepeated = m_searched.count(typed) * typed.size() == m_searched.size();
    const QModelIndex current = currentModelIndex();
    QModelIndex first = isRepeated && current.isValid() ? m_tree->indexBelow(current) : current;
    chooseFirstMatch(isRepeated ? typed : m_searched, first.isValid() ? first : firstNode());
    return true;
}

void VXTreeBox::chooseFirstMatch(const QString &begin, const QModelIndex &first)
{
    QModelIndex node = first;
    while (node.isValid()) {
        if (TreeBoxView::isChoosable(node) && node.data().toString().startsWith(begin, Qt::CaseInsensitive)) {
            if (node != currentModelIndex())
                chooseByUser(node);
            return;
        }
        const QModelIndex below = m_tree->indexBelow(node);
        node = below.isValid() ? below : firstNode();
        if (node == first)
            return;
    }
}

QModelIndex VXTreeBox::firstNode() const
{
    return model()->index(0, modelColumn(), rootModelIndex());
}

QModelIndex VXTreeBox::lastNode() const
{
    QModelIndex node = rootModelIndex();
    do {
        node = model()->index(model()->rowCount(node) - 1, modelColumn(), node);
    } while (m_tree->isExpanded(node) && model()->hasChildren(node));
    return node;
}

QModelIndex VXTreeBox::choosableFrom(QModelIndex index, Neighbour next) const
{
    while (index.isValid() && !TreeBoxView::isChoosable(index))
        index = (m_tree->*next)(index);
    return index;
}

QStringList VXTreeBox::shownBranch(const QStyleOptionComboBox &option) const
{
    const int lines = labelRect(option).height() / branchLineHeight(option);
    QStringList names;
    for (QModelIndex node = currentModelIndex(); node.isValid() && names.count() < lines; node = node.parent())
        names.prepend(singleLine(node.data().toString()));
    return names;
}

void VXTreeBox::drawBranch(QStylePainter &painter, const QStyleOptionComboBox &option, const QStringList &branch) const
{
    const int height = branchLineHeight(option);
    const int indentation = fontMetrics().averageCharWidth() * 2;
    QRect line = labelRect(option).adjusted(iconSpacing, 0, 0, 0);
    line.setTop(line.center().y() - height * branch.count() / 2);
    line.setHeight(height);

    QPalette ancestors = palette();
    QColor faint = palette().color(QPalette::ButtonText);
    faint.setAlphaF(ancestorOpacity);
    ancestors.setColor(QPalette::ButtonText, faint);
    for (int i = 0; i < branch.count() - 1; ++i) {
        drawLine(painter, line, ancestors, branch.at(i));
        line.adjust(indentation, height, 0, height);
    }
    if (!option.currentIcon.isNull()) {
        const QRect icon(line.left(), line.top(), option.iconSize.width(), height);
        const QIcon::Mode mode = isEnabled() ? QIcon::Normal : QIcon::Disabled;
        option.currentIcon.paint(&painter, QStyle::visualRect(layoutDirection(), rect(), icon), Qt::AlignCenter, mode);
        line.setLeft(icon.right() + 1 + iconSpacing);
    }
    drawLine(painter, line, palette(), branch.last());
}

void VXTreeBox::drawLine(QStylePainter &painter, const QRect &line, const QPalette &colors, const QString &text) const
{
    const QString elided = fontMetrics().elidedText(text, Qt::ElideRight, line.width());
    painter.drawItemText(QStyle::visualRect(layoutDirection(), rect(), line),
                         int(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft)) | Qt::AlignVCenter, colors,
                         isEnabled(), elided, QPalette::ButtonText);
}

int VXTreeBox::branchLineHeight(const QStyleOptionComboBox &option) const
{
    return qMax(option.iconSize.height(), fontMetrics().height()) + 2 * textMargin;
}

QRect VXTreeBox::labelRect(const QStyleOptionComboBox &option) const
{
    return style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
}

QString VXTreeBox::labelText(const QStyleOptionComboBox &option) const
{
    const QRect label = labelRect(option);
    const int icon = option.currentIcon.isNull() ? 0 : option.iconSize.width() + iconSpacing;
    return fontMetrics().elidedText(singleLine(currentText()), Qt::ElideRight, label.width() - icon - 2 * textMargin);
}

bool VXTreeBox::showPathAt(const QPoint &globalPos)
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    if (labelText(option) == currentText())
        return false;

    constexpr int longestPath = 1000;
    QString path = singleLine(currentText());
    for (QModelIndex node = currentModelIndex().parent(); node.isValid(); node = node.parent()) {
        const bool isTooLong = path.size() > longestPath;
        path.prepend((isTooLong ? QStringLiteral("…") : singleLine(node.data().toString())) + QStringLiteral(" › "));
        if (isTooLong)
            break;
    }
    QToolTip::showText(globalPos, QStringLiteral("<span>%1</span>").arg(path.toHtmlEscaped()), this);
    return true;
}
