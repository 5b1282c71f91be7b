#include <vxsettings/dbparamwidget.h>

#include "ui_dbparamwidget.h"

#include <QEvent>

namespace {

QString centralWidgetName()
{
    return QStringLiteral("DBParamWidget_centralWidget");
}

/// Like QWidget::setVisible(), but does not polish a label that is not on the screen yet: its frame still has to be
/// moved into the page, and whatever is polished before is polished again after.
void setLabelVisible(QLabel *label, bool visible)
{
    if (!visible || label->parentWidget()->isVisible()) {
        label->setVisible(visible);
        return;
    }
    label->setAttribute(Qt::WA_WState_ExplicitShowHide);
    label->setAttribute(Qt::WA_WState_Hidden, false);
    label->updateGeometry();
}
} // namespace

DBParamWidget::DBParamWidget(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui_DBParamWidget>())
{
    // The form connects no slots by name: it has none, and looking for them was a tenth of the cost of a page.
    m_ui->setupUi(this);
    setLabelPosition(LabelPosition::Left);
}

DBParamWidget::~DBParamWidget() = default;

void DBParamWidget::setName(const QString &name)
{
    m_ui->leftLabel->setText(name);
    m_ui->topLabel->setText(name);
    m_ui->rightLabel->setText(name);
    m_ui->bottomLabel->setText(name);
}

void DBParamWidget::setValue(const QVariant &value)
{
    m_storedValue = value;
}

QVariant DBParamWidget::value() const
{
    return m_storedValue;
}

void DBParamWidget::setParamValues(const std::map<unsigned int, QString> &) {}

void DBParamWidget::setParamRange(const std::pair<int, int> &) {}

bool DBParamWidget::canChangeLabelPosition() const
{
    return true;
}

void DBParamWidget::setSpecialValue(const QString &) {}

void DBParamWidget::setReadOnly(bool readOnly)
{
    m_readOnly = readOnly;
}

void DBParamWidget::setEnabled(bool enabled)
{
    m_enabled = enabled;
}

void DBParamWidget::setDefaultValue()
{
    // A copy: the setter writes to the very member, and what it sets off may write to it again.
    setValue(storedValue());
}

void DBParamWidget::setKey(const QString &key)
{
    m_key = key;
}

QString DBParamWidget::key() const
{
    return m_key;
}

bool DBParamWidget::isReadOnly() const
{
    return m_readOnly;
}

bool DBParamWidget::isEnabled() const
{
    return m_enabled;
}

QVariant DBParamWidget::storedValue() const
{
    return m_storedValue;
}

void DBParamWidget::setCentralWidget(QWidget *editor)
{
    QWidget *slot = m_ui->centralWidget;
    editor->setParent(slot);
    editor->setObjectName(centralWidgetName());
    if (!slot->layout()) {
        auto *layout = new QVBoxLayout(slot);
        layout->setContentsMargins(0, 0, 0, 0);
    }
    slot->layout()->addWidget(editor);
}

QWidget *DBParamWidget::centralWidget() const
{
    return findChild<QWidget *>(centralWidgetName());
}

void DBParamWidget::setLabelPosition(LabelPosition position)
{
    if (position < LabelPosition::None || position > LabelPosition::Bottom)
        return;
    setLabelVisible(m_ui->leftLabel, position == LabelPosition::Left);
    setLabelVisible(m_ui->topLabel, position == LabelPosition::Top);
    setLabelVisible(m_ui->rightLabel, position == LabelPosition::Right);
    setLabelVisible(m_ui->bottomLabel, position == LabelPosition::Bottom);
}

bool DBParamWidget::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::LayoutRequest:
    case QEvent::Resize:
    case QEvent::Show: {
        const bool isHandled = QWidget::event(event);
        if (isVisible())
            keepCaptionsWhole();
        return isHandled;
    }
    default:
        return QWidget::event(event);
    }
}

void DBParamWidget::keepCaptionsWhole()
{
    // A caption keeps its preferred width in a wider column, but the layout asks for its height at the column's width,
    // where it needs fewer lines.
    for (QLabel *label : {m_ui->leftLabel, m_ui->topLabel, m_ui->rightLabel, m_ui->bottomLabel}) {
        if (label->isVisible() && label->height() < label->sizeHint().height())
            label->setMinimumHeight(label->sizeHint().height());
    }
}
