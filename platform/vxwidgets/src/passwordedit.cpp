#include <vxwidgets/passwordedit.h>

#include "accessiblesecrets.h"

#include <vxstyles/vxiconhelper.h>

#include <QAction>
#include <QEvent>
#include <QStyle>

PasswordEdit::PasswordEdit(QWidget *parent)
    : QLineEdit(parent)
{
    accessiblesecrets::guard();
    setEchoMode(Password);
}

bool PasswordEdit::event(QEvent *event)
{
    if (event->type() == QEvent::Polish && !m_reveal)
        createRevealAction();
    return QLineEdit::event(event);
}

void PasswordEdit::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (!m_reveal)
        return;

    switch (event->type()) {
    case QEvent::EnabledChange:
    case QEvent::ReadOnlyChange:
        followEditability();
        break;
    case QEvent::LanguageChange:
    case QEvent::PaletteChange:
    case QEvent::StyleChange:
        updateRevealAction();
        break;
    default:
        break;
    }
}

void PasswordEdit::hideEvent(QHideEvent *event)
{
    if (m_reveal)
        m_reveal->setChecked(false);
    QLineEdit::hideEvent(event);
}

void PasswordEdit::createRevealAction()
{
    m_reveal = new QAction(this);
    m_reveal->setCheckable(true);
    updateRevealAction();
    addAction(m_reveal, TrailingPosition);
    followEditability(); // after addAction(), whose button would not notice an action hidden before
    connect(m_reveal, &QAction::toggled, this, &PasswordEdit::setRevealed);
}

void PasswordEdit::updateRevealAction()
{
    const bool revealed = m_reveal->isChecked();
    const auto theme = QIcon::fromTheme(revealed ? QStringLiteral("action-eye-off") : QStringLiteral("action-eye"));
    const int extent = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    m_reveal->setIcon(VXIconHelper::pixmap(theme, {extent, extent}, palette().color(QPalette::Active, QPalette::Text)));
    m_reveal->setText(revealed ? tr("Скрыть пароль") : tr("Показать пароль"));
}

void PasswordEdit::followEditability()
{
    const bool editable = isEnabled() && !isReadOnly();
    if (!editable)
        m_reveal->setChecked(false);
    m_reveal->setVisible(editable);
}

void PasswordEdit::setRevealed(bool revealed)
{
    const int cursor = cursorPosition();
    const bool modified = isModified();
    setEchoMode(revealed ? Normal : Password);
    // A revealed password is still none of the input method's business.
    setInputMethodHints(inputMethodHints() | Qt::ImhSensitiveData | Qt::ImhNoPredictiveText | Qt::ImhNoAutoUppercase);
    setText(text()); // forgets what undo could bring to light
    setModified(modified);
    setCursorPosition(cursor);
    updateRevealAction();
}
