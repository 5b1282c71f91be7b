#include "reviewdialog.h"

#include "changetree.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int longestReason = 500;

QWidget *createTree(QVector<SettingChange> changes, QWidget *parent)
{
    SettingChange::sort(changes);
    auto *tree =
        new ChangeTree({ReviewDialog::tr("Настройка"), ReviewDialog::tr("Сейчас"), ReviewDialog::tr("Станет")}, parent);
    tree->setObjectName(QStringLiteral("changes"));
    tree->setAccessibleName(ReviewDialog::tr("Изменения"));
    for (const SettingChange &change : changes)
        tree->addChange(tree->pageHeading(change.address), change);
    tree->goToFirstSetting();
    return tree;
}
} // namespace

ReviewDialog::ReviewDialog(const QVector<SettingChange> &changes, QWidget *parent)
    : QDialog(parent)
    , m_reason(new QLineEdit(this))
{
    setWindowTitle(tr("Изменения перед сохранением"));
    m_reason->setMaxLength(longestReason);
    m_reason->setPlaceholderText(tr("Необязательно. Останется в истории изменений"));
    auto *reasonLabel = new QLabel(tr("&Причина:"), this);
    reasonLabel->setBuddy(m_reason);
    m_reason->setAccessibleName(tr("Причина"));

    auto *buttons = new QDialogButtonBox(this);
    buttons->addButton(tr("&Сохранить"), QDialogButtonBox::AcceptRole)->setDefault(true);
    buttons->addButton(tr("&Вернуться"), QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("Изменений: %1").arg(changes.size()), this));
    layout->addWidget(createTree(changes, this), 1);
    auto *reasonRow = new QHBoxLayout;
    reasonRow->addWidget(reasonLabel);
    reasonRow->addWidget(m_reason, 1);
    layout->addLayout(reasonRow);
    layout->addWidget(buttons);
    m_reason->setFocus();
    resize(sizeHint());
}

QString ReviewDialog::reason() const
{
    return m_reason->text().trimmed();
}
