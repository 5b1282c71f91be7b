#include "historydialog.h"

#include "changestampwords.h"
#include "changetree.h"
#include "wrappedlabel.h"

#include <host/settingchange.h>
#include <host/settingwords.h>

#include <vxsettings/dbsettingshelper.h>

#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr QSize initialSize(800, 520);
constexpr int restorableRole = Qt::UserRole + 1; // the text, null if there is none

bool isSecret(const QString &key)
{
    return SettingAddress{key}.isKnown() && SettingWords::isSecret(key);
}

/// Whether an editor can show it.
bool isEditable(const SettingAddress &address)
{
    return address.isKnown() && !address.isJsonObject() &&
           DBSettingsHelper::paramType(address.parameter()) != DBSettingsType::Readonly;
}

QString saveWords(const HistoryRecord &record)
{
    const QString stamp = ChangeStampWords::of(record.stamp);
    return record.reason.isEmpty() ? stamp : HistoryDialog::tr("%1. Причина: %2").arg(stamp, record.reason);
}
} // namespace

HistoryDialog::HistoryDialog(const std::optional<SettingAddress> &address, QWidget *parent)
    : QDialog(parent)
    , m_address(address)
    , m_state(new WrappedLabel(tr("История читается…"), this))
    , m_tree(new ChangeTree({tr("Настройка"), tr("Было"), tr("Стало")}, this))
{
    setWindowTitle(address ? tr("История: %1").arg(address->caption()) : tr("История изменений"));
    m_tree->setObjectName(QStringLiteral("history"));
    m_tree->setAccessibleName(tr("История изменений"));

    auto *buttons = new QDialogButtonBox(this);
    m_restore = buttons->addButton(tr("Вернуть &прежнее значение"), QDialogButtonBox::ActionRole);
    m_restore->setToolTip(tr("Поставить в редактор значение из столбца «Было». Сохраняется оно обычным образом"));
    m_restore->setAutoDefault(false);
    QPushButton *close = buttons->addButton(tr("&Закрыть"), QDialogButtonBox::RejectRole);
    close->setDefault(true);
    connect(m_restore, &QPushButton::clicked, this, &HistoryDialog::restore);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_tree, &ChangeTree::currentItemChanged, this, &HistoryDialog::showWhatCanBeRestored);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_state);
    layout->addWidget(m_tree, 1);
    layout->addWidget(buttons);
    m_tree->setFocus();
    showWhatCanBeRestored();
    resize(initialSize);
}

void HistoryDialog::setAccess(const PageAccess &access)
{
    m_access = access;
}

void HistoryDialog::setRecords(const QVector<HistoryRecord> &records)
{
    m_tree->clear();
    QTreeWidgetItem *save = nullptr;
    QString saveId;
    for (auto record = records.rbegin(); record != records.rend(); ++record) {
        if (!save || record->saveId != saveId)
            save = m_tree->addHeading(saveWords(*record));
        saveId = record->saveId;
        addRecord(save, *record);
    }
    for (int row = m_tree->topLevelItemCount() - 1; row >= 0; --row) {
        if (m_tree->topLevelItem(row)->childCount() == 0) // it has changed another member only
            delete m_tree->topLevelItem(row);
    }
    const int count = m_tree->settings().size();
    m_state->setText(count == 0 ? tr("Изменений не было") : tr("Изменений: %1").arg(count));
    m_tree->goToFirstSetting();
    showWhatCanBeRestored();
}

void HistoryDialog::setProblem(const QString &problem)
{
    m_state->setText(problem);
}

void HistoryDialog::addRecord(QTreeWidgetItem *save, const HistoryRecord &record)
{
    if (isSecret(record.key)) {
        m_tree->addSetting(save, {record.key}, {tr("скрыто"), tr("скрыто")});
        return;
    }
    for (const SettingChange &change : SettingChange::between(record.key, record.oldValue, record.newValue)) {
        if (isWanted(change.address))
            addChange(save, change);
    }
}

void HistoryDialog::addChange(QTreeWidgetItem *save, const SettingChange &change)
{
    QTreeWidgetItem *item = m_tree->addChange(save, change);
    if (isEditable(change.address) && m_access.mayEdit(SettingAddress{change.address.key}.group()))
        item->setData(0, restorableRole, change.before);
}

bool HistoryDialog::isWanted(const SettingAddress &address) const
{
    if (!m_address)
        return true;
    // A change of a whole JSON text concerns each of its members.
    const bool isPart = m_address->member.isEmpty() || address.member.isEmpty() || address.member == m_address->member;
    return address.key == m_address->key && isPart;
}

void HistoryDialog::showWhatCanBeRestored()
{
    const QTreeWidgetItem *item = m_tree->currentItem();
    m_restore->setEnabled(item && !item->data(0, restorableRole).toString().isNull());
}

void HistoryDialog::restore()
{
    const QTreeWidgetItem *item = m_tree->currentItem();
    // The editor lies behind this dialog.
    m_state->setText(tr("В редакторе «%1» снова %2. Осталось сохранить.").arg(item->text(0), item->text(1)));
    Q_EMIT restoreRequested(ChangeTree::address(item), item->data(0, restorableRole).toString());
}
