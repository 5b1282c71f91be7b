#include "importdialog.h"

#include "changetree.h"
#include "wrappedlabel.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

using State = ImportPlan::State;

constexpr int anyState = -1;
constexpr int captionColumn = 0;
constexpr int comparisonColumn = 3;
constexpr int shortestState = 18; // characters
constexpr QSize initialSize(860, 560);

struct StateWords
{
    State state;
    const char *summary; ///< with the number of rows
    const char *row;
};

// clang-format off
constexpr StateWords importStates[] = {
    {State::Changed,   QT_TRANSLATE_NOOP("ImportDialog", "изменятся: %1"),      QT_TRANSLATE_NOOP("ImportDialog", "изменится")},
    {State::Unchanged, QT_TRANSLATE_NOOP("ImportDialog", "без изменений: %1"),  QT_TRANSLATE_NOOP("ImportDialog", "без изменений")},
    {State::Invalid,   QT_TRANSLATE_NOOP("ImportDialog", "не подходят: %1"),    QT_TRANSLATE_NOOP("ImportDialog", "не подходит")},
    {State::Unknown,   QT_TRANSLATE_NOOP("ImportDialog", "нет в каталоге: %1"), QT_TRANSLATE_NOOP("ImportDialog", "нет в каталоге, здесь не меняется")},
    {State::Missing,   QT_TRANSLATE_NOOP("ImportDialog", "нет в файле: %1"),    QT_TRANSLATE_NOOP("ImportDialog", "нет в файле, не меняется")},
};
constexpr StateWords compareStates[] = {
    {State::Changed,   QT_TRANSLATE_NOOP("ImportDialog", "отличаются: %1"),     QT_TRANSLATE_NOOP("ImportDialog", "отличается")},
    {State::Unchanged, QT_TRANSLATE_NOOP("ImportDialog", "одинаковы: %1"),      QT_TRANSLATE_NOOP("ImportDialog", "одинаково")},
    {State::Invalid,   QT_TRANSLATE_NOOP("ImportDialog", "не подходят: %1"),    QT_TRANSLATE_NOOP("ImportDialog", "в файле недопустимое значение")},
    {State::Unknown,   QT_TRANSLATE_NOOP("ImportDialog", "нет в каталоге: %1"), QT_TRANSLATE_NOOP("ImportDialog", "нет в каталоге")},
    {State::Missing,   QT_TRANSLATE_NOOP("ImportDialog", "нет в файле: %1"),    QT_TRANSLATE_NOOP("ImportDialog", "нет в файле")},
};
// clang-format on

using StateTable = StateWords[5];

const StateTable &states(ImportDialog::Purpose purpose)
{
    return purpose == ImportDialog::Purpose::Import ? importStates : compareStates;
}

QString rowWords(const ImportPlan::Row &row, ImportDialog::Purpose purpose)
{
    const auto &table = states(purpose);
    const auto found = std::find_if(std::begin(table), std::end(table),
                                    [&row](const StateWords &words) { return words.state == row.state; });
    const QString words = ImportDialog::tr(found->row);
    return row.error.isEmpty() ? words : QStringLiteral("%1. %2").arg(words, row.error);
}

bool isAbout(const QTreeWidgetItem *item, const QString &words)
{
    for (int column = 0; column < item->columnCount(); ++column) {
        if (item->text(column).contains(words, Qt::CaseInsensitive))
            return true;
    }
    return ChangeTree::address(item).text().contains(words, Qt::CaseInsensitive);
}
} // namespace

ImportDialog::ImportDialog(const QVector<ImportPlan::Row> &rows, const QString &fileName, Purpose purpose,
                           QWidget *parent)
    : QDialog(parent)
    , m_rows(rows)
    , m_purpose(purpose)
    , m_tree(new ChangeTree({tr("Настройка"), tr("В базе данных"), tr("В файле"), tr("Сравнение")}, this))
    , m_words(new QLineEdit(this))
    , m_states(new QComboBox(this))
{
    const bool isImport = purpose == Purpose::Import;
    setWindowTitle(isImport ? tr("Загрузка настроек из файла") : tr("Сравнение с файлом"));
    m_tree->setObjectName(QStringLiteral("differences"));
    m_tree->setAccessibleName(tr("Отличия файла от базы данных"));

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new WrappedLabel(tr("Файл «%1»").arg(fileName) + QLatin1Char('\n') + summary(), this));
    m_edits = new WrappedLabel({}, this);
    layout->addWidget(m_edits);
    m_edits->setObjectName(QStringLiteral("edits"));
    m_edits->hide();
    layout->addWidget(createFilter());
    layout->addWidget(m_tree, 1);
    layout->addWidget(createButtons());

    for (const ImportPlan::Row &row : rows)
        addRow(row);
    connect(m_tree, &ChangeTree::itemChanged, this, &ImportDialog::showChosen);
    // What would change is what one wants to see first.
    if (count(State::Changed) > 0)
        m_states->setCurrentIndex(m_states->findData(int(State::Changed)));
    filter();
    showChosen();
    m_tree->goToFirstSetting();
    m_tree->setFocus();
    resize(initialSize);
}

void ImportDialog::setEditCount(int count)
{
    const QString words = tr("Сравнивается с тем, что сохранено. Несохранённых изменений: %1.").arg(count);
    const QString overwritten = tr("Отмеченные значения заменят их у тех же параметров; это можно отменить.");
    m_edits->setText(m_purpose == Purpose::Import ? words + QLatin1Char(' ') + overwritten : words);
    m_edits->setVisible(count > 0);
}

QWidget *ImportDialog::createFilter()
{
    auto *filterRow = new QWidget(this);
    m_words->setObjectName(QStringLiteral("filterWords"));
    m_words->setPlaceholderText(tr("Искать в списке"));
    m_words->setAccessibleName(tr("Искать в списке"));
    m_words->setClearButtonEnabled(true);
    m_states->setObjectName(QStringLiteral("filterState"));
    m_states->setAccessibleName(tr("Какие настройки показывать"));
    m_states->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_states->setMinimumContentsLength(shortestState);
    m_states->addItem(tr("все: %1").arg(m_rows.size()), anyState);
    for (const StateWords &words : states(m_purpose))
        m_states->addItem(tr(words.summary).arg(count(words.state)), int(words.state));

    auto *layout = new QHBoxLayout(filterRow);
    layout->setContentsMargins({});
    layout->addWidget(m_words, 1);
    layout->addWidget(m_states);
    if (m_purpose == Purpose::Import) {
        layout->addWidget(createCheckButton(tr("О&тметить все"), Qt::Checked));
        layout->addWidget(createCheckButton(tr("&Снять все"), Qt::Unchecked));
    }
    connect(m_words, &QLineEdit::textChanged, this, &ImportDialog::filter);
    connect(m_states, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &ImportDialog::filter);
    return filterRow;
}

QWidget *ImportDialog::createCheckButton(const QString &text, Qt::CheckState state)
{
    auto *button = new QPushButton(text, this);
    button->setToolTip(tr("Только среди тех, которые видны"));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, state] { checkVisible(state); });
    return button;
}

QWidget *ImportDialog::createButtons()
{
    auto *buttons = new QDialogButtonBox(this);
    if (m_purpose == Purpose::Import) {
        m_accept = buttons->addButton(QString(), QDialogButtonBox::AcceptRole);
        m_accept->setToolTip(tr("Поставить отмеченные значения в редакторы. Сохраняются они обычным образом"));
        m_accept->setDefault(true);
        buttons->addButton(tr("Отме&на"), QDialogButtonBox::RejectRole);
    } else {
        buttons->addButton(tr("&Закрыть"), QDialogButtonBox::RejectRole)->setDefault(true);
    }
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
}

QString ImportDialog::summary() const
{
    QStringList parts;
    for (const StateWords &words : states(m_purpose))
        parts << tr(words.summary).arg(count(words.state));
    return tr("Настройки — %1").arg(parts.join(QStringLiteral(", ")));
}

int ImportDialog::count(State state) const
{
    return int(std::count_if(m_rows.begin(), m_rows.end(),
                             [state](const ImportPlan::Row &row) { return row.state == state; }));
}

void ImportDialog::addRow(const ImportPlan::Row &row)
{
    QTreeWidgetItem *item = m_tree->addChange(m_tree->pageHeading(row.change.address), row.change);
    item->setText(comparisonColumn, rowWords(row, m_purpose));
    item->setToolTip(comparisonColumn, item->text(comparisonColumn));
    m_rowsByItem.insert(item, row);
    if (m_purpose == Purpose::Import && row.state == State::Changed) {
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(captionColumn, Qt::Checked);
    }
}

void ImportDialog::filter()
{
    const int state = m_states->currentData().toInt();
    for (QTreeWidgetItem *item : m_tree->settings()) {
        const bool isOfState = state == anyState || state == int(m_rowsByItem.value(item).state);
        item->setHidden(!isOfState || !isAbout(item, m_words->text()));
    }
    for (int row = 0; row < m_tree->topLevelItemCount(); ++row) {
        QTreeWidgetItem *heading = m_tree->topLevelItem(row);
        bool isEmpty = true;
        for (int child = 0; child < heading->childCount(); ++child)
            isEmpty = isEmpty && heading->child(child)->isHidden();
        heading->setHidden(isEmpty);
    }
}

void ImportDialog::checkVisible(Qt::CheckState state)
{
    for (QTreeWidgetItem *item : m_tree->settings()) {
        if (!item->isHidden() && item->flags().testFlag(Qt::ItemIsUserCheckable))
            item->setCheckState(captionColumn, state);
    }
}

QVector<SettingChange> ImportDialog::chosen() const
{
    QVector<SettingChange> chosen;
    for (QTreeWidgetItem *item : m_tree->settings()) {
        const ImportPlan::Row row = m_rowsByItem.value(item);
        if (row.state == State::Changed && item->checkState(captionColumn) == Qt::Checked)
            chosen.append(row.change);
    }
    return chosen;
}

void ImportDialog::showChosen()
{
    if (!m_accept)
        return;
    const int count = chosen().size();
    m_accept->setText(tr("&Взять отмеченные: %1").arg(count));
    m_accept->setEnabled(count > 0);
}
