#include "changebar.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

ChangeBar::ChangeBar(QWidget *parent)
    : QWidget(parent)
    , m_label(new QLabel(this))
    , m_cancel(new QPushButton(this))
    , m_revert(new QPushButton(this))
    , m_save(new QPushButton(this))
{
    m_label->setObjectName(QStringLiteral("changeLabel"));
    m_cancel->setObjectName(QStringLiteral("cancelButton"));
    m_revert->setObjectName(QStringLiteral("revertButton"));
    m_save->setObjectName(QStringLiteral("saveButton"));

    auto *layout = new QHBoxLayout(this);
    layout->addWidget(m_label, 1);
    for (QPushButton *button : {m_cancel, m_revert, m_save}) {
        layout->addWidget(button);
        button->setFocusPolicy(Qt::TabFocus); // a click leaves the keyboard at the editor
    }
    connect(m_cancel, &QPushButton::clicked, this, &ChangeBar::cancelRequested);
    connect(m_revert, &QPushButton::clicked, this, &ChangeBar::revertRequested);
    connect(m_save, &QPushButton::clicked, this, &ChangeBar::saveRequested);
    retranslate();
}

void ChangeBar::setChangeCount(int count, int conflictCount)
{
    m_count = count;
    m_conflictCount = conflictCount;
    showState();
}

void ChangeBar::setProgress(const QString &progress)
{
    m_progress = progress;
    showState();
}

void ChangeBar::followInTabOrder(QWidget *widget)
{
    setTabOrder(widget, m_cancel);
    setTabOrder(m_cancel, m_revert);
    setTabOrder(m_revert, m_save);
}

void ChangeBar::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void ChangeBar::retranslate()
{
    m_cancel->setText(tr("&Прервать"));
    m_cancel->setToolTip(tr("Больше не ждать. Изменения останутся несохранёнными"));
    m_revert->setText(tr("&Отменить"));
    m_revert->setToolTip(tr("Вернуть сохранённые значения на всех страницах"));
    m_save->setText(tr("&Сохранить"));
    m_save->setToolTip(tr("Записать изменения всех страниц в базу данных (Ctrl+S)"));
    showState();
}

void ChangeBar::showState()
{
    const bool isSaving = !m_progress.isNull();
    QString text = m_count == 0 ? tr("Несохранённых изменений нет") : tr("Изменено настроек: %1").arg(m_count);
    if (m_conflictCount > 0)
        text += tr(" (в другом месте тоже: %1)").arg(m_conflictCount);
    m_label->setText(isSaving ? m_progress : text);
    const bool isWorthwhile = m_count > 0 && !isSaving;
    const QWidget *focused = window()->focusWidget();
    if (!isWorthwhile && (focused == m_revert || focused == m_save))
        passFocusBack();
    m_cancel->setVisible(isSaving);
    m_revert->setEnabled(isWorthwhile);
    m_save->setEnabled(isWorthwhile);
}

/// Otherwise the keyboard would go on to the search line at the other end of the window.
void ChangeBar::passFocusBack() const
{
    const auto takesFocus = [](const QWidget *widget) {
        return (widget->focusPolicy() & Qt::TabFocus) && widget->isVisible() && widget->isEnabled();
    };
    QWidget *before = m_cancel->previousInFocusChain();
    while (!takesFocus(before))
        before = before->previousInFocusChain();
    before->setFocus(Qt::BacktabFocusReason);
}
