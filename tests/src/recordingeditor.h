#pragma once

#include <vxsettings/dbparamwidget.h>

#include <QStringList>

/// An editor that writes down what a settings tree does to it, and does it.
class RecordingEditor : public DBParamWidget
{
public:
    RecordingEditor(QWidget *parent, const QString &key, QStringList &calls)
        : DBParamWidget(parent)
        , m_calls(calls)
    {
        setKey(key);
    }

    void setValue(const QVariant &value) override
    {
        m_calls << key() + ".setValue " + (value.isValid() ? value.toString() : QStringLiteral("invalid"));
        DBParamWidget::setValue(value);
    }
    void setEnabled(bool enabled) override
    {
        m_calls << key() + (enabled ? ".enable" : ".disable");
        DBParamWidget::setEnabled(enabled);
    }
    void setDefaultValue() override
    {
        m_calls << key() + ".setDefaultValue";
        DBParamWidget::setDefaultValue();
    }

private:
    QStringList &m_calls;
};
