#pragma once

#include <vxwidgets/vxwidgets_export.h>

#include <QDialog>

class PasswordEdit;
class QDialogButtonBox;
class QLabel;

/// Asks for the key of a smart card.
///
/// A key has 12 (a sector key), 16 (DES), 32 (AES-128, two-key 3DES) or 48 (three-key 3DES) hexadecimal digits; white
/// space between them does not count. As long as the text is no key, a message says what is wrong with it and the user
/// cannot accept. The text is masked until the user reveals it.
class VXWIDGETS_EXPORT SmartCardKeyDialog : public QDialog
{
    Q_OBJECT

public:
    /// Without a key; modal. @p parent owns it.
    explicit SmartCardKeyDialog(QWidget *parent = nullptr);

    /// Shows @p key as it is, even if it is malformed.
    void setKey(const QString &key);
    /// The text in upper case, without white space; a key as described above once the user has accepted.
    QString key() const;

protected:
    /// Follows the language.
    bool event(QEvent *event) override;

private:
    void retranslate();
    void check();
    /// What keeps the text from being a key, in words; empty if it is one.
    QString problem() const;
    static QString allowedCountsInWords();

    QLabel *m_caption;           // child
    PasswordEdit *m_edit;        // child
    QLabel *m_message;           // child
    QDialogButtonBox *m_buttons; // child
};
