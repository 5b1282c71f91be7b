#include "changebar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

ChangeBar::ChangeBar(QWidget *parent)
    : QWidget(parent)
    , m_label(new QLabel(this))
    , m_revert(new QPushButton(tr("&Отменить"), this))
    , m_save(new QPushButton(tr("&Сохранить"), this))
{
    m_label->setObjectName(QStringLiteral("changeLabel"));
    m_revert->setObjectName(QStringLiteral("revertButton"));
    m_revert->setToolTip(tr("Вернуть сохранённые значения на всех страницах"));
    m_save->setObjectName(QStringLiteral("saveButton"));
    m_save->setToolTip(tr("Записать изменения всех страниц в базу данных (Ctrl+S)"));

    auto *layout = new QHBoxLayout(this);
    layout->addWidget(m_label, 1);
    layout->addWidget(m_revert);
    layout->addWidget(m_save);
    connect(m_revert, &QPushButton::clicked, this, &ChangeBar::revertRequested);
    connect(m_save, &QPushButton::clicked, this, &ChangeBar::saveRequested);
    setChangeCount(0);
}

void ChangeBar::setChangeCount(int count)
{
    m_label->setText(count == 0 ? tr("Несохранённых изменений нет") : tr("Изменено настроек: %1").arg(count));
    m_revert->setEnabled(count > 0);
    m_save->setEnabled(count > 0);
}

void ChangeBar::followInTabOrder(QWidget *widget)
{
    setTabOrder(widget, m_revert);
    setTabOrder(m_revert, m_save);
}
