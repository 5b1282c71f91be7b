#include <vxsettings/dbcomboboxwidget.h>

#include "comboboxinterface.h"

#include <vxsettings/dbsettingshelper.h>

#include <qtcompat.h>

#include <QComboBox>
#include <QEvent>

DBComboBoxWidget::DBComboBoxWidget(QWidget *parent)
    : DBParamWidget(parent)
{
    ComboBoxInterface::install();
    auto *comboBox = new QComboBox(this);
    comboBox->installEventFilter(this);
    comboBox->setFocusPolicy(Qt::StrongFocus); // the default, WheelFocus, pulls the focus here while the page scrolls
    connect(comboBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this, comboBox](int index) {
        ComboBoxInterface::announceChoice(comboBox);
        Q_EMIT paramChanged(key(), comboBox->itemData(index));
    });
    setCentralWidget(comboBox);
}

void DBComboBoxWidget::setValue(const QVariant &value)
{
    auto *comboBox = qobject_cast<QComboBox *>(centralWidget());
    if (!comboBox)
        return;
    DBParamWidget::setValue(value);
    const int wanted = qtcompat::numberText(value).toInt();
    for (int index = 0; index < comboBox->count(); ++index) {
        if (comboBox->itemData(index).toInt() == wanted) {
            comboBox->setCurrentIndex(index);
            return;
        }
    }
}

QVariant DBComboBoxWidget::value() const
{
    const auto *comboBox = qobject_cast<QComboBox *>(centralWidget());
    return comboBox ? comboBox->currentData() : QVariant();
}

void DBComboBoxWidget::setParamValues(const std::map<unsigned int, QString> &values)
{
    auto *comboBox = qobject_cast<QComboBox *>(centralWidget());
    if (!comboBox)
        return;
    disconnect(comboBox, SIGNAL(currentIndexChanged(int)), this, SIGNAL(commitData()));
    comboBox->clear();
    for (const auto &[number, caption] : values)
        comboBox->addItem(caption, number);
    setDefaultValue();
    // On purpose beside the connection that setDefaultValue() has made: until the next revert every change commits
    // twice.
    connect(comboBox, SIGNAL(currentIndexChanged(int)), this, SIGNAL(commitData()));
}

void DBComboBoxWidget::setEnabled(bool enabled)
{
    DBParamWidget::setEnabled(enabled);
    if (auto *comboBox = qobject_cast<QComboBox *>(centralWidget()))
        comboBox->setEnabled(enabled);
}

void DBComboBoxWidget::setDefaultValue()
{
    auto *comboBox = qobject_cast<QComboBox *>(centralWidget());
    if (!comboBox)
        return;
    // Showing the stored value again is no edit to be saved.
    disconnect(comboBox, SIGNAL(currentIndexChanged(int)), this, SIGNAL(commitData()));
    setValue(storedValue());
    connect(comboBox, SIGNAL(currentIndexChanged(int)), this, SIGNAL(commitData()));
}

void DBComboBoxWidget::retranslate()
{
    DBParamWidget::retranslate();
    auto *comboBox = qobject_cast<QComboBox *>(centralWidget());
    if (!comboBox)
        return;
    const std::map<unsigned int, QString> captions = DBSettingsHelper::paramValues(key());
    for (int index = 0; index < comboBox->count(); ++index) {
        const auto caption = captions.find(comboBox->itemData(index).toUInt());
        if (caption != captions.end())
            comboBox->setItemText(index, caption->second);
    }
}

bool DBComboBoxWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Wheel && watched == centralWidget()) {
        event->ignore(); // the page scrolls instead
        return true;
    }
    return DBParamWidget::eventFilter(watched, event);
}
