#include <vxsettings/dependentwidgetsbox.h>

#include "ui_dependentwidgetsbox.h"

#include <vxstyles/vxiconhelper.h>

#include <qtcompat.h>

#include <QEvent>
#include <QIcon>
#include <QJsonObject>
#include <QSignalBlocker>

#include <algorithm>
#include <vector>

using dependent_widget::GroupInfo;

namespace {

// The widgets remember what their texts were translated from; nothing else does.
constexpr char contextProperty[] = "translationContext";
constexpr char sourceProperty[] = "sourceText";

QString translated(const QString &context, const QString &text)
{
    return QCoreApplication::translate(context.toUtf8().constData(), text.toUtf8().constData());
}
} // namespace

DependentWidgetsBox::DependentWidgetsBox(QWidget *parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui_DependentWidgetsBox>())
{
    m_ui->setupUi(this);
    m_ui->cbGroup->setCheckState(Qt::Unchecked);
    connect(m_ui->cbGroup, &QCheckBox::clicked, this, &DependentWidgetsBox::onGroupCheckBoxClicked);
}

DependentWidgetsBox::~DependentWidgetsBox() = default;

void DependentWidgetsBox::setDescription(const QString &description)
{
    m_ui->cbGroup->setText(description);
    nameGroupCheckBox();
}

void DependentWidgetsBox::setData(const QString &context, const GroupInfo &info, const QJsonObject &flags)
{
    m_ui->frame->setProperty(contextProperty, context);
    m_ui->lbName->setProperty(sourceProperty, info.name);
    m_ui->lbName->setText(translated(context, info.name));
    nameGroupCheckBox();
    m_ui->lbIcon->setPixmap(VXIconHelper::pixmap(QIcon::fromTheme(info.icon), dependent_widget::ICON_SIZE, Qt::black));
    auto *column = qobject_cast<QVBoxLayout *>(m_ui->frame->layout());
    clearData(column);

    std::vector<std::pair<int, QCheckBox *>> boxes;
    int checkedCount = 0;
    for (auto flag = flags.begin(); flag != flags.end(); ++flag) {
        const auto param = info.params.find(flag.key());
        if (flag.key() == dependent_widget::CHECKED_KEY || param == info.params.end())
            continue;
        const auto &[text, position] = *param;
        auto *box = new QCheckBox(translated(context, text));
        box->setObjectName(flag.key());
        box->setProperty(sourceProperty, text);
        box->setStyleSheet(dependent_widget::BUTTON_STYLESHEET);
        box->setChecked(flag->toBool());
        connect(box, &QCheckBox::clicked, this, &DependentWidgetsBox::onInnerCheckBoxClicked);
        boxes.emplace_back(position, box);
        checkedCount += box->isChecked();
    }
    std::stable_sort(boxes.begin(), boxes.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    QWidget *previous = m_ui->cbGroup;
    for (const auto &[position, box] : boxes) {
        column->insertWidget(qMin(position, column->count()), box);
        // New boxes would come after all else that is in the window.
        setTabOrder(previous, box);
        previous = box;
    }
    setGroupCheckBoxState(int(boxes.size()), checkedCount);
}

QJsonObject DependentWidgetsBox::getData() const
{
    QJsonObject flags{{dependent_widget::CHECKED_KEY, m_ui->cbGroup->isChecked()}};
    for (const QCheckBox *box : innerCheckBoxes())
        flags.insert(box->objectName(), box->isChecked());
    return flags;
}

void DependentWidgetsBox::setGroupCheckBoxState(int total, int checked)
{
    const QSignalBlocker blocker(m_ui->cbGroup);
    if (checked == 0)
        m_ui->cbGroup->setCheckState(Qt::Unchecked);
    else
        m_ui->cbGroup->setCheckState(checked == total ? Qt::Checked : Qt::PartiallyChecked);
}

void DependentWidgetsBox::clearData(QLayout *layout)
{
    // The items themselves are left alone: whoever made a nested layout may still hold it.
    while (QLayoutItem *item = layout->takeAt(0)) {
        if (QLayout *nested = item->layout())
            clearData(nested);
        else
            delete item->widget();
    }
    const QSignalBlocker blocker(m_ui->cbGroup);
    m_ui->cbGroup->setCheckState(Qt::Unchecked);
}

void DependentWidgetsBox::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void DependentWidgetsBox::retranslate()
{
    const QString context = m_ui->frame->property(contextProperty).toString();
    const QVariant title = m_ui->lbName->property(sourceProperty);
    m_ui->lbName->setText(title.isValid() ? translated(context, title.toString()) : tr("Название группы"));
    for (QCheckBox *box : innerCheckBoxes())
        box->setText(translated(context, box->property(sourceProperty).toString()));
    nameGroupCheckBox();
}

void DependentWidgetsBox::nameGroupCheckBox()
{
    const QString name = m_ui->cbGroup->text() + QLatin1Char(' ') + m_ui->lbName->text();
    m_ui->cbGroup->setAccessibleName(name.trimmed());
}

void DependentWidgetsBox::onInnerCheckBoxClicked(bool checked)
{
    const QList<QCheckBox *> boxes = innerCheckBoxes();
    const auto isChecked = [](const QCheckBox *box) { return box->isChecked(); };
    setGroupCheckBoxState(boxes.count(), int(std::count_if(boxes.begin(), boxes.end(), isChecked)));
    if (const QObject *clicked = sender())
        Q_EMIT paramChanged(clicked->objectName(), checked);
}

void DependentWidgetsBox::onGroupCheckBoxClicked(bool checked)
{
    for (QCheckBox *box : innerCheckBoxes()) {
        const QSignalBlocker blocker(box);
        box->setChecked(checked);
    }
    Q_EMIT groupChanged(checked);
    const QSignalBlocker blocker(m_ui->cbGroup);
    m_ui->cbGroup->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
}

QList<QCheckBox *> DependentWidgetsBox::innerCheckBoxes() const
{
    return qtcompat::findChildren<QCheckBox>(m_ui->frame);
}
