#pragma once

#include <vxsettings/dbsettingstypes.h>
#include <vxsettings/vxsettings_export.h>

#include <QString>
#include <QVariant>
#include <QWidget>

#include <map>
#include <memory>
#include <utility>

class EditorMark;
class ProblemLabel;
class Ui_DBParamWidget;

/// The frame of every parameter editor: a caption beside a slot for the editor's input widget.
///
/// An editor has two values: the stored one, which was last passed to setValue(), and the one that its input widget
/// shows, which value() answers. Editors reach their input widget through centralWidget(); if it is missing or of
/// another class, they do nothing.
///
/// From the moment it is first shown, the input widget bears the caption as its accessible name; its accessible
/// description is the tool tip, the words of the mark and the problem. The frame hands the focus on to the input
/// widget.
///
/// In a form, the dynamic property "parameter" names a parameter of the catalogue, which gives the editor its key,
/// caption, choices, range, special value and tool tip. Any other text changes nothing.
class VXSETTINGS_EXPORT DBParamWidget : public QWidget
{
    Q_OBJECT

public:
    /// An empty frame without key, caption and value; @p parent, which may be null, owns it.
    explicit DBParamWidget(QWidget *parent);
    ~DBParamWidget() override;

    /// What a mark beside the editor tells at a glance.
    enum class Mark {
        None,
        Changed,  ///< the value is not the stored one
        Problem,  ///< the value breaks a rule
        Conflict, ///< somebody else has stored another value
        Note,     ///< there is something to know, for instance why the editor is disabled
    };

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
    /// Keeps the user from changing the value. The editors of lines, passwords and numbers do so, the others only
    /// remember it.
    virtual void setReadOnly(bool readOnly);
    /// Enables or disables the input widget. On purpose not QWidget::setEnabled(): the caption stays readable.
    virtual void setEnabled(bool enabled);

    /// Names the parameter that is edited.
    void setKey(const QString &key);
    /// The parameter's key, one of dbkeys.h; empty until setKey().
    QString key() const;
    /// What was set last; false at first.
    bool isReadOnly() const;
    /// What was set last; true at first, and whether or not a widget around the editor is disabled.
    bool isEnabled() const;
    /// Puts @p editor into the slot; the frame owns it from then on.
    void setCentralWidget(QWidget *editor);
    /// The input widget; null before setCentralWidget().
    QWidget *centralWidget() const;
    /// Shows the caption there and nowhere else. A value outside the enumeration changes nothing.
    void setLabelPosition(LabelPosition position);

    /// Shows an icon at the beginning of the row, in the margin that every row has, and @p words as its tool tip: plain
    /// text in the user's language. Nothing moves. An editor has one mark; Mark::None takes it away.
    void setMark(Mark mark, const QString &words = {});
    /// The kind of the mark that is shown.
    Mark mark() const;
    /// Shows @p text, plain and in the user's language, below the editor, in as many lines as it needs; an empty text
    /// takes it away.
    void setProblem(const QString &text);
    /// The text that setProblem() shows; empty if there is none.
    QString problem() const;

Q_SIGNALS:
    /// The value was changed in a way that is to be saved.
    void commitData();
    /// The value changed, by the user or by program. @p dbName is the parameter's key.
    void paramChanged(const QString &dbName, const QVariant &value);

public Q_SLOTS:
    /// Shows the stored value again.
    virtual void setDefaultValue();

public:
    /// Shows caption, choices, special value and tool tip as the catalogue has them in the language installed now,
    /// without a signal or a change of value. An editor whose key is not in the catalogue keeps its texts.
    virtual void retranslate();

protected:
    /// The value last passed to setValue().
    QVariant storedValue() const;

    /// Follows the layout with what stands around the input widget, and describes that to assistive technology.
    bool event(QEvent *event) override;

private:
    void followParameterProperty();
    void placeMark();
    void placeProblem();
    /// Tells assistive technology what stands around the input widget, once somebody can see it.
    void describeInput();
    /// Makes the shown caption, whose text is @p name, the input widget's buddy. A text with '&' stays without: it
    /// would lose that, and take the letter after it for a mnemonic.
    void linkCaptions(const QString &name);
    QString description() const;

    std::unique_ptr<Ui_DBParamWidget> m_ui;
    QVariant m_storedValue;
    QString m_key;
    bool m_enabled = true;
    bool m_readOnly = false;
    EditorMark *m_mark = nullptr;      // child
    ProblemLabel *m_problem = nullptr; // child
};
