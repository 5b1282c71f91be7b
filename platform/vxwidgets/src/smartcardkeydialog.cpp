#include <vxwidgets/smartcardkeydialog.h>

#include <vxwidgets/passwordedit.h>

#include <QDialogButtonBox>
#include <QEvent>
#include <QFontDatabase>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

namespace {

constexpr int digitsPerByte = 2;
constexpr int sectorKeyDigits = 6 * digitsPerByte;
constexpr int desKeyDigits = 8 * digitsPerByte;
constexpr int aes128KeyDigits = 16 * digitsPerByte; // as many as a two-key 3DES key has
constexpr int tripleDesKeyDigits = 24 * digitsPerByte;
constexpr int allowedDigits[] = {sectorKeyDigits, desKeyDigits, aes128KeyDigits, tripleDesKeyDigits};

constexpr int widthInCharacters = tripleDesKeyDigits + 4;
constexpr int messageLines = 2;

bool isHexDigit(QChar character)
{
    const char latin = character.toUpper().toLatin1();
    return (latin >= '0' && latin <= '9') || (latin >= 'A' && latin <= 'F');
}

/// Where @p text has the first character that is neither a digit nor white space; its length if there is none.
int firstStranger(const QString &text)
{
    const auto belongs = [](QChar character) { return isHexDigit(character) || character.isSpace(); };
    return int(std::distance(text.begin(), std::find_if_not(text.begin(), text.end(), belongs)));
}

/// The character of @p text at @p place, or its code point if it has no picture.
QString nameOfCharacter(const QString &text, int place)
{
    const char32_t character = text.mid(place, 2).toUcs4().constFirst();
    if (QChar::isPrint(character))
        return QString::fromUcs4(&character, 1);

    return QStringLiteral("U+%1").arg(character, 4, 16, QLatin1Char('0')).toUpper();
}

bool isAllowedCount(int digits)
{
    return std::find(std::begin(allowedDigits), std::end(allowedDigits), digits) != std::end(allowedDigits);
}
} // namespace

SmartCardKeyDialog::SmartCardKeyDialog(QWidget *parent)
    : QDialog(parent)
    , m_caption(new QLabel(this))
    , m_edit(new PasswordEdit(this))
    , m_message(new QLabel(this))
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setModal(true);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_edit->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_edit->setMinimumWidth(QFontMetrics(m_edit->font()).averageCharWidth() * widthInCharacters);
    m_message->setWordWrap(true);
    m_message->setAlignment(Qt::AlignTop);
    // Room for the longest message, so that the buttons stay where they are while the user types.
    m_message->setMinimumHeight(m_message->fontMetrics().lineSpacing() * messageLines);

    m_caption->setBuddy(m_edit);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_caption);
    layout->addWidget(m_edit);
    layout->addWidget(m_message, 1);
    layout->addWidget(m_buttons);

    connect(m_edit, &QLineEdit::textChanged, this, &SmartCardKeyDialog::check);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    retranslate();
}

void SmartCardKeyDialog::setKey(const QString &key)
{
    m_edit->setText(key);
}

QString SmartCardKeyDialog::key() const
{
    const QString text = m_edit->text();
    QString digits;
    std::copy_if(text.begin(), text.end(), std::back_inserter(digits), [](QChar c) { return !c.isSpace(); });
    return digits.toUpper();
}

bool SmartCardKeyDialog::event(QEvent *event)
{
    if (event->type() != QEvent::LanguageChange)
        return QDialog::event(event);
    // After the button box, which gives its buttons texts of its own.
    const bool isHandled = QDialog::event(event);
    retranslate();
    return isHandled;
}

void SmartCardKeyDialog::retranslate()
{
    setWindowTitle(tr("Ключ смарт-карты"));
    m_caption->setText(tr("&Ключ в шестнадцатеричном виде:"));
    m_buttons->button(QDialogButtonBox::Ok)->setText(tr("ОК"));
    m_buttons->button(QDialogButtonBox::Cancel)->setText(tr("Отмена"));
    check();
}

void SmartCardKeyDialog::check()
{
    const QString wrong = problem();
    const QString message = wrong.isEmpty() ? tr("Длина ключа в байтах: %1.").arg(key().size() / digitsPerByte) : wrong;
    m_message->setText(message);
    m_edit->setAccessibleDescription(message);
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(wrong.isEmpty());
}

QString SmartCardKeyDialog::problem() const
{
    const QString text = m_edit->text();
    if (const int place = firstStranger(text); place < text.size())
        return tr("Символ «%1» на месте %2 не подходит: допустимы цифры 0–9 и латинские буквы A–F.")
            .arg(nameOfCharacter(text, place), QString::number(place + 1));

    const int digits = key().size();
    if (digits == 0)
        return tr("Введите ключ: %1 цифр.").arg(allowedCountsInWords());
    if (!isAllowedCount(digits))
        return tr("Введено цифр: %1, нужно %2.").arg(QString::number(digits), allowedCountsInWords());
    return {};
}

/// "12, 16 or 48", in the user's language.
QString SmartCardKeyDialog::allowedCountsInWords()
{
    QStringList counts;
    for (const int digits : allowedDigits)
        counts << QString::number(digits);
    const QString last = counts.takeLast();
    return tr("%1 или %2", "a list of numbers and the last of them").arg(counts.join(QStringLiteral(", ")), last);
}
