#pragma once

#include <vxsettings/dbsettingstypes.h>
#include <vxsettings/vxsettings_export.h>

#include <QString>
#include <QVariant>
#include <QWidget>

#include <map>
#include <memory>
#include <utility>

class Ui_DBParamWidget;

/// The frame of every parameter editor: a caption beside a slot for the editor's input widget.
///
/// An editor has two values: the stored one, which was last passed to setValue(), and the one that its input widget
/// shows, which value() answers. Editors reach their input widget through centralWidget(); if it is missing or of
/// another class, they do nothing.
class VXSETTINGS_EXPORT DBParamWidget : public QWidget
{
    Q_OBJECT

public:
    explicit DBParamWidget(QWidget *parent);
    ~DBParamWidget() override;

    /// The stored value is the negation of what the editor shows. Only the check box heeds it.
    bool inverted = false;

    /// Sets the caption, whatever its position.
    virtual void setName(const QString &name);
    /// Stores @p value and shows it, converted to what the input widget takes.
    virtual void setValue(const QVariant &value);
    /// What the input widget shows; the stored value of a frame without one.
    virtual QVariant value() const;
    /// Offers these choices: stored number → caption. Only the combo box has choices.
    virtual void setParamValues(const std::map<unsigned int, QString> &values);
    /// Bounds the value to {minimum, maximum}, inclusive. Only the spin box has bounds.
    virtual void setParamRange(const std::pair<int, int> &range);
    /// Whether the caption may be moved; not if the input widget carries it itself.
    virtual bool canChangeLabelPosition() const;
    /// Shows @p text instead of the lowest value. Only the spin box does.
    virtual void setSpecialValue(const QString &text);
    virtual void setReadOnly(bool readOnly);
    /// Enables or disables the input widget. On purpose not QWidget::setEnabled(): the caption stays readable.
    virtual void setEnabled(bool enabled);

    void setKey(const QString &key);
    /// The parameter's key, one of dbkeys.h; empty until setKey().
    QString key() const;
    bool isReadOnly() const;
    bool isEnabled() const;
    /// Puts @p editor into the slot; the frame owns it from then on.
    void setCentralWidget(QWidget *editor);
    /// The input widget; null before setCentralWidget().
    QWidget *centralWidget() const;
    /// Shows the caption there and nowhere else. A value outside the enumeration changes nothing.
    void setLabelPosition(LabelPosition position);

Q_SIGNALS:
    /// The value was changed in a way that is to be saved.
    void commitData();
    /// The value changed, by the user or by program. @p dbName is the parameter's key.
    void paramChanged(const QString &dbName, const QVariant &value);

public Q_SLOTS:
    /// Shows the stored value again.
    virtual void setDefaultValue();

protected:
    /// The value last passed to setValue().
    QVariant storedValue() const;

    bool event(QEvent *event) override;

private:
    void keepCaptionsWhole();

    std::unique_ptr<Ui_DBParamWidget> m_ui;
    QVariant m_storedValue;
    QString m_key;
    bool m_enabled = true;
    bool m_readOnly = false;
};
