#include "conflictdialog.h"

#include "changestampwords.h"
#include "wrappedlabel.h"

#include <host/settingwords.h>

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int initialWidth = 640;
constexpr int mostInitialHeight = 480;

QLabel *boldLabel(const QString &text, QWidget *parent)
{
    auto *label = new WrappedLabel(text, parent);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    return label;
}
} // namespace

ConflictDialog::ConflictDialog(const QVector<SettingsSession::Conflict> &conflicts, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Настройки изменены в другом месте"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new WrappedLabel(tr("Пока вы редактировали настройки, эти параметры изменил кто-то другой. "
                                          "Ничего не записано. Выберите, какое значение оставить."),
                                       this));
    layout->addWidget(createRows(conflicts), 1);
    layout->addWidget(createButtons(conflicts.count()));
    showWhetherDecided();
    m_rows.first().theirs->setFocus();
    resize(initialWidth, qMin(layout->totalHeightForWidth(initialWidth), mostInitialHeight));
}

QVector<ConflictDialog::Choice> ConflictDialog::choices() const
{
    QVector<Choice> choices;
    for (const Row &row : m_rows)
        choices.append(row.mine->isChecked() ? Choice::Mine : Choice::Theirs);
    return choices;
}

QWidget *ConflictDialog::createRows(const QVector<SettingsSession::Conflict> &conflicts)
{
    auto *area = new QScrollArea(this);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    auto *rows = new QWidget;
    auto *layout = new QVBoxLayout(rows);
    for (const SettingsSession::Conflict &conflict : conflicts)
        layout->addWidget(createRow(conflict));
    layout->addStretch(1);
    area->setWidget(rows);
    return area;
}

QWidget *ConflictDialog::createRow(const SettingsSession::Conflict &conflict)
{
    const auto value = [&conflict](const QString &text) { return SettingWords::value(conflict.address, text); };
    // A title of the box would not wrap.
    auto *box = new QGroupBox;
    box->setAccessibleName(conflict.address.caption());
    new QVBoxLayout(box);
    box->layout()->addWidget(boldLabel(conflict.address.caption(), box));
    box->layout()->addWidget(new WrappedLabel(tr("Было: %1").arg(value(conflict.base)), box));
    const Row row{
        createChoice(tr("Взять из базы данных"), value(conflict.theirs), ChangeStampWords::of(conflict.stamp), box),
        createChoice(tr("Записать моё"), value(conflict.mine), {}, box)};
    m_rows.append(row);
    return box;
}

QRadioButton *ConflictDialog::createChoice(const QString &label, const QString &value, const QString &explanation,
                                           QGroupBox *parent)
{
    auto *choice = new QRadioButton(label, parent);
    // Of many alike it must say which parameter it is about.
    choice->setAccessibleName(QStringLiteral("%1: %2").arg(parent->accessibleName(), label));
    choice->setAccessibleDescription(value + QLatin1Char(' ') + explanation);
    connect(choice, &QRadioButton::toggled, this, &ConflictDialog::showWhetherDecided);

    parent->layout()->addWidget(choice);
    for (const QString &line : {value, explanation}) {
        auto *text = new WrappedLabel(line, parent);
        text->setIndent(2 * fontMetrics().height());
        text->setVisible(!line.isEmpty());
        parent->layout()->addWidget(text);
    }
    return choice;
}

QWidget *ConflictDialog::createButtons(int conflictCount)
{
    auto *buttons = new QDialogButtonBox(this);
    const auto addAll = [&](const QString &text, Choice choice) {
        QPushButton *button = buttons->addButton(text, QDialogButtonBox::ActionRole);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, choice] { chooseAll(choice); });
    };
    if (conflictCount > 1) {
        addAll(tr("Все из &базы"), Choice::Theirs);
        addAll(tr("Все &мои"), Choice::Mine);
    }
    m_accept = buttons->addButton(tr("&Записать выбранное"), QDialogButtonBox::AcceptRole);
    m_stay = buttons->addButton(tr("&Вернуться"), QDialogButtonBox::RejectRole);
    m_stay->setToolTip(tr("Ничего не записывать и продолжить"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
}

void ConflictDialog::chooseAll(Choice choice)
{
    for (const Row &row : qAsConst(m_rows))
        (choice == Choice::Mine ? row.mine : row.theirs)->setChecked(true);
}

void ConflictDialog::showWhetherDecided()
{
    const bool isDecided = std::all_of(m_rows.begin(), m_rows.end(),
                                       [](const Row &row) { return row.theirs->isChecked() || row.mine->isChecked(); });
    m_accept->setEnabled(isDecided);
    (isDecided ? m_accept : m_stay)->setDefault(true);
}
