#include "searchfield.h"

#include "searchresults.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QShortcut>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int charactersOfARow = 60;
constexpr int distance = 2;        // between the line and the results
constexpr int besideDistance = 10; // over the margin of the field
constexpr int rowSpacing = 4;

SettingsSearch::Hit unsearched(const SettingAddress &address)
{
    return {address, SettingAddress{address.key}.group(), SettingsSearch::Source::Caption, address.caption(), 0};
}
} // namespace

SearchField::SearchField(const SettingsSearch &search, QWidget *parent)
    : QWidget(parent)
    , m_search(search)
    , m_line(new QLineEdit(this))
    , m_changed{createFilterButton(QStringLiteral("changedFilter")), {}}
    , m_problematic{createFilterButton(QStringLiteral("problemFilter")), {}}
    , m_results(new SearchResults(this))
{
    m_line->setObjectName(QStringLiteral("searchLine"));
    m_line->setClearButtonEnabled(true);
    m_line->installEventFilter(this);
    setFocusProxy(m_line);
    m_results->hide();

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(rowSpacing);
    layout->addWidget(m_line);
    layout->addWidget(m_changed.button);
    layout->addWidget(m_problematic.button);

    connect(m_line, &QLineEdit::textChanged, this, &SearchField::searchAndShow);
    connect(m_results, &QListWidget::itemClicked, this, &SearchField::choose);
    connect(m_results, &QListWidget::currentRowChanged, this, &SearchField::describe);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, &SearchField::activate);
    retranslate();
}

SearchField::~SearchField()
{
    delete m_results; // unless the window has done so before
}

QToolButton *SearchField::createFilterButton(const QString &name)
{
    auto *button = new QToolButton(this);
    button->setObjectName(name);
    button->setCheckable(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    connect(button, &QToolButton::clicked, this, [this] {
        m_line->setFocus();
        retranslate();
        searchAndShow();
    });
    return button;
}

void SearchField::setChanged(const QVector<SettingAddress> &changed)
{
    setAddresses(m_changed, changed);
}

void SearchField::setProblematic(const QVector<SettingAddress> &problematic)
{
    setAddresses(m_problematic, problematic);
}

void SearchField::setAddresses(Filter &filter, const QVector<SettingAddress> &addresses)
{
    if (filter.addresses == addresses)
        return;
    filter.addresses = addresses;
    retranslate();
    if (filter.button->isChecked())
        search();
}

void SearchField::activate()
{
    m_line->setFocus(Qt::ShortcutFocusReason);
    m_line->selectAll();
}

bool SearchField::isSearching() const
{
    return !m_line->text().trimmed().isEmpty() || isFiltering();
}

bool SearchField::isFiltering() const
{
    return m_changed.button->isChecked() || m_problematic.button->isChecked();
}

bool SearchField::isLetThrough(const SettingAddress &address) const
{
    const auto lets = [&address](const Filter &filter) {
        return filter.button->isChecked() && filter.addresses.contains(address);
    };
    return !isFiltering() || lets(m_changed) || lets(m_problematic);
}

QVector<SettingsSearch::Hit> SearchField::hits() const
{
    QVector<SettingsSearch::Hit> hits;
    if (m_line->text().trimmed().isEmpty() && isFiltering()) {
        for (const SettingAddress &address : SettingAddress::all())
            hits.append(unsearched(address));
    } else {
        hits = m_search.find(m_line->text());
    }
    const auto isHidden = [this](const SettingsSearch::Hit &hit) { return !isLetThrough(hit.address); };
    hits.erase(std::remove_if(hits.begin(), hits.end(), isHidden), hits.end());
    return hits;
}

void SearchField::searchAndShow()
{
    search();
    showResults();
}

void SearchField::search()
{
    const QVector<SettingsSearch::Hit> found = hits();
    m_results->setHits(found);
    describe();

    QMap<DBGroups, int> pages;
    for (const SettingsSearch::Hit &hit : found)
        ++pages[hit.page];
    Q_EMIT resultsChanged(pages);
}

void SearchField::showResults()
{
    if (!isSearching() || !m_line->hasFocus()) {
        hideResults();
        return;
    }
    if (m_results->parentWidget() != window()) {
        m_results->setParent(window());
        window()->installEventFilter(this);
    }
    placeResults();
    m_results->show();
    m_results->raise();
}

void SearchField::hideResults()
{
    m_results->hide();
}

void SearchField::placeResults()
{
    const QRect room = window()->rect();
    const QPoint below = mapTo(window(), QPoint(0, height() + distance));
    const int whole = qMin(m_results->contentWidth(), room.width() - below.x());
    const int wanted = std::max({width(), charactersOfARow * fontMetrics().averageCharWidth(), whole});
    const int resultWidth = qMin(wanted, room.width());
    // Beside the field, and the page list below it, the numbers of hits can still be seen there.
    const QPoint beside = mapTo(window(), QPoint(width() + besideDistance, 0));
    const QPoint place = beside.x() + resultWidth <= room.width() ? beside : below;
    const int left = qBound(0, place.x(), room.width() - resultWidth);
    const int resultHeight = qMin(m_results->contentHeight(), room.height() - place.y() - distance);
    m_results->setGeometry(left, place.y(), resultWidth, resultHeight);
}

void SearchField::describe()
{
    m_line->setAccessibleDescription(
        isSearching() ? tr("Найдено: %1. %2").arg(m_results->hitCount()).arg(m_results->currentText()) : QString());
}

void SearchField::choose()
{
    if (m_results->hitCount() == 0)
        return;
    hideResults();
    Q_EMIT resultChosen(SettingAddress(m_results->currentAddress()));
}

bool SearchField::handleKey(int key)
{
    switch (key) {
    case Qt::Key_Down:
    case Qt::Key_Up:
    case Qt::Key_PageDown:
    case Qt::Key_PageUp:
        if (m_results->isVisible())
            m_results->move(key);
        else
            showResults();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        choose();
        return true;
    case Qt::Key_Escape: {
        const bool isShown = m_results->isVisible();
        const bool isTyped = !m_line->text().isEmpty();
        m_line->clear();
        hideResults();
        return isShown || isTyped;
    }
    default:
        return false;
    }
}

bool SearchField::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_line) {
        if (event->type() == QEvent::Resize && m_results && m_results->isVisible())
            placeResults();
        return QWidget::eventFilter(watched, event);
    }
    switch (event->type()) {
    case QEvent::KeyPress:
        return handleKey(static_cast<QKeyEvent *>(event)->key()) || QWidget::eventFilter(watched, event);
    case QEvent::FocusIn:
        // Only after the event the line has the focus.
        QMetaObject::invokeMethod(this, &SearchField::showResults, Qt::QueuedConnection);
        break;
    case QEvent::FocusOut:
        if (static_cast<QFocusEvent *>(event)->reason() != Qt::PopupFocusReason)
            hideResults();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void SearchField::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        search();
    }
}

void SearchField::retranslate()
{
    m_line->setPlaceholderText(
        tr("Поиск настроек (%1)").arg(QKeySequence(QKeySequence::Find).toString(QKeySequence::NativeText)));
    m_line->setAccessibleName(tr("Поиск настроек"));
    m_line->findChild<QToolButton *>()->setAccessibleName(tr("Очистить"));
    m_line->setToolTip(
        tr("По названиям, вариантам, подсказкам, ключам и близким по смыслу словам, на русском и английском языках"));

    m_changed.button->setText(tr("Изменённые (%1)").arg(m_changed.addresses.size()));
    m_changed.button->setToolTip(tr("Показывать только настройки с несохранёнными изменениями"));
    m_problematic.button->setText(tr("С ошибками (%1)").arg(m_problematic.addresses.size()));
    m_problematic.button->setToolTip(tr("Показывать только настройки, с которыми что-то не так"));
    for (const Filter &filter : {m_changed, m_problematic})
        filter.button->setEnabled(!filter.addresses.isEmpty() || filter.button->isChecked());
}
