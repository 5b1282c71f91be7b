#pragma once

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTextEdit>
#include <QTimer>

/// Waits for modal dialogs, reads each, and clicks a button of it.
class ModalAnswer
{
public:
    /// @p buttons are the texts of the buttons to click without their mnemonics, one a dialog; a null text closes the
    /// dialog as Escape does.
    explicit ModalAnswer(const QStringList &buttons)
        : m_clicks(buttons)
    {
        m_timer.setInterval(1);
        QObject::connect(&m_timer, &QTimer::timeout, [this] { answer(); });
        m_timer.start();
    }
    explicit ModalAnswer(const QString &button)
        : ModalAnswer(QStringList{button})
    {}
    Q_DISABLE_COPY(ModalAnswer)

    /// Whether every button was clicked.
    bool wasGiven() const { return m_clicks.isEmpty(); }
    /// Everything that the dialogs said, a text a line.
    QString text() const { return m_text; }
    QStringList buttons() const { return m_buttons; }
    QString defaultButton() const { return m_defaultButton; }

private:
    static QString plain(const QString &text) { return QString(text).remove('&'); }

    void answer()
    {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (m_clicks.isEmpty() || !dialog || !dialog->isVisible())
            return;
        read(dialog);
        const QString wanted = m_clicks.takeFirst();
        if (wanted.isNull()) {
            QTest::keyClick(dialog, Qt::Key_Escape);
            return;
        }
        for (QAbstractButton *button : dialog->findChildren<QAbstractButton *>()) {
            if (plain(button->text()) == wanted) {
                QTest::mouseClick(button, Qt::LeftButton, {}, {8, button->height() / 2});
                return;
            }
        }
        dialog->reject();
        QFAIL(qPrintable("no such button: " + wanted));
    }

    void read(const QDialog *dialog)
    {
        for (const QLabel *label : dialog->findChildren<QLabel *>())
            m_text += label->text() + '\n';
        for (const QTextEdit *text : dialog->findChildren<QTextEdit *>())
            m_text += text->toPlainText() + '\n';
        for (const QPushButton *button : dialog->findChildren<QPushButton *>()) {
            m_buttons << plain(button->text());
            if (button->isDefault())
                m_defaultButton = plain(button->text());
        }
    }

    QTimer m_timer;
    QStringList m_clicks;
    QString m_text;
    QStringList m_buttons;
    QString m_defaultButton;
};
