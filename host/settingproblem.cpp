#include "settingproblem.h"

#include <iterator>

namespace {

using Kind = SettingProblem::Kind;

enum class Weight { Error, Notice };

struct Description
{
    Kind kind;
    const char *name;
    const char *words;
    Weight weight = Weight::Error;
};

// clang-format off
constexpr Description descriptions[] = {
    {Kind::None,              nullptr,                nullptr, Weight::Notice},
    {Kind::NotANumber,        "not-a-number",         QT_TRANSLATE_NOOP("SettingProblem", "Это не целое число.")},
    {Kind::OutOfRange,        "out-of-range",         QT_TRANSLATE_NOOP("SettingProblem", "Число вне допустимых границ.")},
    {Kind::UnknownChoice,     "unknown-choice",       QT_TRANSLATE_NOOP("SettingProblem", "Такого варианта нет.")},
    {Kind::NotAFlag,          "not-a-flag",           QT_TRANSLATE_NOOP("SettingProblem", "Это не «да» и не «нет».")},
    {Kind::NotALine,          "not-a-line",           QT_TRANSLATE_NOOP("SettingProblem", "В тексте есть перевод строки, другой управляющий или недопустимый знак.")},
    {Kind::TooLong,           "too-long",             QT_TRANSLATE_NOOP("SettingProblem", "Текст слишком длинный.")},
    {Kind::ObjectGone,        "object-gone",          QT_TRANSLATE_NOOP("SettingProblem", "Объекта с таким номером нет.")},
    {Kind::ObjectOfOtherType, "object-of-other-type", QT_TRANSLATE_NOOP("SettingProblem", "Объект с таким номером есть, но здесь его выбрать нельзя: он другого вида.")},
    {Kind::ObjectNotGranted,  "object-not-granted",   QT_TRANSLATE_NOOP("SettingProblem", "Объект с таким номером есть, но оператору он не виден."), Weight::Notice},
    {Kind::NotAJsonObject,    "not-a-json-object",    QT_TRANSLATE_NOOP("SettingProblem", "Текст не читается как объект JSON.")},
    {Kind::DuplicateMember,   "duplicate-member",     QT_TRANSLATE_NOOP("SettingProblem", "Поле записано несколько раз; действует одно из значений.")},
    {Kind::NotAScalar,        "not-a-scalar",         QT_TRANSLATE_NOOP("SettingProblem", "Значение поля — не текст, не число и не true или false.")},
    {Kind::UnknownMember,     "unknown-member",       QT_TRANSLATE_NOOP("SettingProblem", "Такого поля нет в каталоге; при сохранении оно остаётся как есть."), Weight::Notice},
    {Kind::UnknownKey,        "unknown-key",          QT_TRANSLATE_NOOP("SettingProblem", "Такой настройки нет в каталоге; она остаётся как есть."), Weight::Notice},
    {Kind::BrokenRule,        "broken-rule",          nullptr},
};
// clang-format on
static_assert(std::size(descriptions) == size_t(Kind::BrokenRule) + 1, "a kind has no description");

const Description &description(Kind kind)
{
    return descriptions[size_t(kind)];
}
} // namespace

QString SettingProblem::words(Kind kind)
{
    const char *words = description(kind).words;
    return words ? tr(words) : QString();
}

QString SettingProblem::name(Kind kind)
{
    return QString::fromLatin1(description(kind).name);
}

bool SettingProblem::isNotice(Kind kind)
{
    return description(kind).weight == Weight::Notice;
}
