#pragma once

#include <vxsettings/dbparamwidget.h>

/// An editor without an input widget that shows what a builder does to it.
class ProbeEditor : public DBParamWidget
{
public:
    explicit ProbeEditor(bool captionMovable = true)
        : DBParamWidget(nullptr)
        , m_captionMovable(captionMovable)
    {
        inverted = true; // no builder sets it, so that clearing it is seen
    }

    void setName(const QString &text) override
    {
        m_calls << "setName";
        name = text;
    }
    void setValue(const QVariant &value) override
    {
        m_calls << "setValue";
        DBParamWidget::setValue(value);
    }
    void setParamValues(const std::map<unsigned int, QString> &values) override
    {
        m_calls << "setParamValues";
        choices = values;
    }
    void setParamRange(const std::pair<int, int> &bounds) override
    {
        m_calls << "setParamRange";
        range = bounds;
    }
    bool canChangeLabelPosition() const override { return m_captionMovable; }
    void setSpecialValue(const QString &text) override
    {
        m_calls << "setSpecialValue";
        specialValue = text;
    }
    void setReadOnly(bool readOnly) override
    {
        m_calls << "setReadOnly";
        DBParamWidget::setReadOnly(readOnly);
    }

    /// Everything that was done so far: calls in their order, then what is no virtual call.
    QStringList traces() const
    {
        QStringList traces = m_calls;
        if (!key().isEmpty())
            traces << "key";
        if (!toolTip().isEmpty())
            traces << "toolTip";
        if (!inverted)
            traces << "inverted";
        return traces;
    }

    QString name = "untouched";
    QString specialValue = "untouched";
    std::map<unsigned int, QString> choices = {{99, "untouched"}};
    std::pair<int, int> range = {-1, -1};

private:
    QStringList m_calls;
    bool m_captionMovable;
};
