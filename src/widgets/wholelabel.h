#pragma once

#include <QLabel>

/// A label that is given the room that its words take. In the very width that the toolkit's own asks for, its text may
/// break into one line more than it has counted.
class WholeLabel : public QLabel
{
public:
    using QLabel::QLabel;

    QSize sizeHint() const override;

protected:
    /// What to ask for where the toolkit's label would ask for @p hint; never less than the text takes.
    virtual QSize roomFor(const QSize &hint) const;

private:
    // Layouts ask again and again, and breaking a text into lines is dear: the last answer and what it was given for.
    mutable QString m_text;
    mutable QSize m_labelHint;
    mutable QSize m_hint;
};
