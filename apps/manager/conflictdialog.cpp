#include "conflictdialog.h"

#include <host/settingwords.h>

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace {

constexpr QSize initialSize(640, 360);

/// A line of a table in HTML.
QString row(const QString &label, const QString &key, const QString &text)
{
    return QStringLiteral("<tr><td>%1&nbsp;&nbsp;</td><td>%2</td></tr>")
        .arg(label.toHtmlEscaped(), SettingWords::value(key, text).toHtmlEscaped());
}
} // namespace

ConflictDialog::ConflictDialog(const QVector<SettingConflict> &conflicts, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(tr("Настройки изменены в другом месте"));
    auto *explanation = new QLabel(tr("Пока вы редактировали настройки, эти параметры изменила другая программа. "
                                      "Ничего не записано."),
                                   this);
    explanation->setWordWrap(true);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(explanation);
    layout->addWidget(createValues(conflicts));
    layout->addWidget(createButtons());
    resize(initialSize);
}

QWidget *ConflictDialog::createValues(const QVector<SettingConflict> &conflicts)
{
    QString html;
    for (const SettingConflict &conflict : conflicts) {
        html += QStringLiteral("<p><b>%1</b></p><table>").arg(SettingWords::caption(conflict.key).toHtmlEscaped()) +
                row(tr("Сейчас в базе данных:"), conflict.key, conflict.stored) +
                row(tr("У вас:"), conflict.key, conflict.wanted) + row(tr("Было:"), conflict.key, conflict.loaded) +
                QStringLiteral("</table>");
    }
    auto *values = new QTextBrowser(this);
    values->setHtml(html);
    values->setAccessibleName(tr("Различия"));
    return values;
}

QWidget *ConflictDialog::createButtons()
{
    auto *buttons = new QDialogButtonBox(this);
    const auto add = [&](const QString &text, const QString &toolTip, QDialogButtonBox::ButtonRole role,
                         Answer answer) {
        QPushButton *button = buttons->addButton(text, role);
        button->setToolTip(toolTip);
        connect(button, &QPushButton::clicked, this, [this, answer] { done(answer); });
        return button;
    };
    add(tr("&Записать мои"), tr("Заменить значения в базе данных вашими"), QDialogButtonBox::AcceptRole, Overwrite);
    add(tr("&Перечитать базу"), tr("Взять значения из базы данных. Все ваши несохранённые изменения будут потеряны"),
        QDialogButtonBox::DestructiveRole, Reload);
    QPushButton *stay =
        add(tr("&Вернуться"), tr("Ничего не записывать и продолжить"), QDialogButtonBox::RejectRole, Stay);
    stay->setDefault(true);
    stay->setFocus();
    return buttons;
}
