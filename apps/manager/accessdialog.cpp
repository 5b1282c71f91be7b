#include "accessdialog.h"

#include "changestampwords.h"
#include "pagelist.h"
#include "savequestions.h"
#include "wrappedlabel.h"

#include <host/pageaccess.h>
#include <host/pageaccesswords.h>
#include <host/settingspages.h>
#include <host/settingssession.h>

#include <vxsettings/dbsettingshelper.h>
#include <vxsettings/dependentwidgetsbox.h>

#include <vxstyles/vxiconhelper.h>

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace {

constexpr QSize initialSize(760, 560);
constexpr int longestReason = 500;
const QString textStyle = QStringLiteral("color: palette(window-text); font-weight: normal;");
const QString pagesIcon = QStringLiteral("common-lock");
} // namespace

AccessDialog::AccessDialog(SettingsSession &session, QWidget *parent)
    : QDialog(parent)
    , m_session(session)
    , m_purpose(new WrappedLabel({}, this))
    , m_state(new WrappedLabel({}, this))
    , m_box(new DependentWidgetsBox(this))
    , m_reasonLabel(new QLabel(this))
    , m_reason(new QLineEdit(this))
{
    m_state->setObjectName(QStringLiteral("accessState"));
    m_reason->setMaxLength(longestReason);
    m_reasonLabel->setBuddy(m_reason);
    auto *reasonRow = new QHBoxLayout;
    reasonRow->addWidget(m_reasonLabel);
    reasonRow->addWidget(m_reason, 1);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_purpose);
    layout->addWidget(m_state);
    layout->addWidget(createBox(), 1);
    layout->addLayout(reasonRow);
    layout->addWidget(createButtons());
    connect(m_box, &DependentWidgetsBox::paramChanged, this, &AccessDialog::showState);
    connect(m_box, &DependentWidgetsBox::groupChanged, this, &AccessDialog::showState);
    connect(&m_session, &SettingsSession::storedChanged, this, &AccessDialog::followStored);
    takeStored();
    retranslate();
    m_box->findChild<QCheckBox *>()->setFocus();
    resize(initialSize);
}

QWidget *AccessDialog::createBox()
{
    auto *area = new QScrollArea(this);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidget(m_box);
    area->setMinimumWidth(m_box->minimumWidth());
    return area;
}

QWidget *AccessDialog::createButtons()
{
    auto *buttons = new QDialogButtonBox(this);
    m_take = buttons->addButton(QString(), QDialogButtonBox::ActionRole);
    m_take->setAutoDefault(false);
    m_save = buttons->addButton(QString(), QDialogButtonBox::AcceptRole);
    m_cancel = buttons->addButton(QString(), QDialogButtonBox::RejectRole);
    connect(m_take, &QPushButton::clicked, this, &AccessDialog::takeStored);
    connect(buttons, &QDialogButtonBox::accepted, this, &AccessDialog::save);
    connect(buttons, &QDialogButtonBox::rejected, this, &AccessDialog::reject);
    return buttons;
}

void AccessDialog::retranslate()
{
    setWindowTitle(tr("Доступ операторов"));
    m_purpose->setText(tr("Отмеченные страницы операторы могут изменять. Остальные им видны, но сохранить на них "
                          "ничего нельзя ни в одной программе. Это защита от случайных изменений: отметки меняет "
                          "администратор, и каждое их изменение остаётся в истории."));
    m_reasonLabel->setText(tr("&Причина:"));
    m_reason->setAccessibleName(tr("Причина"));
    m_reason->setPlaceholderText(tr("Необязательно. Останется в истории изменений"));
    m_take->setText(tr("&Взять из базы"));
    m_take->setToolTip(tr("Показать то, что записано сейчас, вместо своих отметок"));
    m_save->setText(tr("&Сохранить"));
    m_cancel->setText(tr("&Закрыть"));
    fill(m_box->getData());
    showState();
}

void AccessDialog::fill(const QJsonObject &flags)
{
    dependent_widget::GroupInfo pages{tr("Страницы, которые могут изменять операторы"), pagesIcon, {}};
    const QVector<DBGroups> order = PageList::pages();
    for (const SettingsPageName &page : settingsPages)
        pages.params.insert(QLatin1String(page.name),
                            {DBSettingsHelper::groupName(page.group), int(order.indexOf(page.group))});
    // These texts are in the user's language already, and are set anew with it.
    m_box->setData(QStringLiteral("AccessDialog"), pages, flags);
    followTheme();
}

/// The box has a grey and a black of its own, which cannot be read on every ground.
void AccessDialog::followTheme()
{
    for (QCheckBox *box : m_box->findChildren<QCheckBox *>())
        box->setStyleSheet(textStyle);
    if (auto *title = m_box->findChild<QLabel *>(QStringLiteral("lbName")))
        title->setStyleSheet(textStyle);
    if (auto *icon = m_box->findChild<QLabel *>(QStringLiteral("lbIcon")))
        icon->setPixmap(VXIconHelper::pixmap(QIcon::fromTheme(pagesIcon), dependent_widget::ICON_SIZE,
                                             palette().color(QPalette::WindowText)));
}

void AccessDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    if (event->type() == QEvent::PaletteChange)
        followTheme();
}

QJsonObject AccessDialog::storedFlags() const
{
    return m_session.access().flags();
}

bool AccessDialog::isEdited() const
{
    return m_box->getData() != m_base;
}

void AccessDialog::followStored()
{
    const qint64 revision = m_session.stored().revisions.value(PageAccess::KEY);
    if (revision == m_seen || m_isSaving)
        return;
    if (!isEdited())
        return takeStored();
    m_seen = revision;
    m_isOverlapping = storedFlags() != m_box->getData();
    showState();
}

void AccessDialog::takeStored()
{
    m_seen = m_session.stored().revisions.value(PageAccess::KEY);
    m_isOverlapping = false;
    m_base = storedFlags();
    fill(m_base);
    showState();
}

void AccessDialog::showState()
{
    const QString words = stateWords();
    m_state->setText(words);
    m_state->setVisible(!words.isEmpty());
    m_box->setEnabled(!m_isSaving);
    m_reason->setEnabled(!m_isSaving);
    m_take->setVisible(m_isOverlapping);
    // A text that cannot be read is worth to be replaced as it is shown.
    const bool isWorthwhile = isEdited() || m_isOverlapping || !m_session.access().isReadable();
    m_save->setEnabled(isWorthwhile && !m_isSaving);
    m_save->setDefault(isWorthwhile);
    m_cancel->setDefault(!isWorthwhile);
}

QString AccessDialog::stateWords() const
{
    if (m_isSaving)
        return tr("Сохранение…");
    const QString stored = m_session.stored().settings.value(PageAccess::KEY);
    if (m_isOverlapping)
        return tr("Пока вы ставили отметки, доступ изменил кто-то другой (%1). Там записано: %2. Если сохранить, "
                  "останутся ваши отметки.")
            .arg(ChangeStampWords::of(m_session.stamp(PageAccess::KEY)),
                 PageAccessWords::value({PageAccess::KEY}, stored));
    if (!m_session.access().isReadable())
        return tr("Записанный доступ не читается, поэтому закрыты все страницы: «%1». Если сохранить, этот текст "
                  "заменят ваши отметки.")
            .arg(stored);
    return {};
}

void AccessDialog::save()
{
    m_isSaving = true;
    showState();
    const PageAccess stored = m_session.access();
    m_session.saveAccess(stored.textWith(m_box->getData()), m_seen, m_reason->text().trimmed(),
                         [self = QPointer<AccessDialog>(this)](const SaveResult &result) {
                             if (self)
                                 self->finishSave(result);
                         });
}

void AccessDialog::finishSave(const SaveResult &result)
{
    m_isSaving = false;
    if (result.isDone())
        return accept();
    followStored();
    showState();
    if (result.outcome == SaveResult::Outcome::Unknown)
        SaveQuestions::showUnknown(this, *result.error);
    else if (result.outcome == SaveResult::Outcome::Failed)
        SaveQuestions::showError(this, *result.error);
}

void AccessDialog::reject()
{
    // What becomes of the save must be told.
    if (!m_isSaving)
        QDialog::reject();
}
