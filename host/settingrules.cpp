#include "settingrules.h"

#include <vxsettings/dbkeys.h>

#include <qtcompat.h>

#include <QVariant>

using namespace db::database;
using vantorix::OBJECT_PARAMETERS;

namespace {

/// A parameter: a stored key, and the member if it holds a JSON object.
struct Place
{
    const QString *key;
    const QString *member = nullptr;

    SettingAddress address() const { return {*key, member ? *member : QString()}; }
};

struct Rule
{
    Place lower;
    Place upper;
    const QString *limitation = nullptr; ///< the member of the same JSON object that switches the rule on
};

// Uncovered from here: both run in the compiler.
constexpr Rule members(const QString &key, const QString &lower, const QString &upper)
{
    return {{&key, &lower}, {&key, &upper}};
}

constexpr Rule palms(const QString &limitation, const QString &lower, const QString &upper)
{
    return {{&PALM_TEMPLATES_AMOUNT_SETTINGS, &lower}, {&PALM_TEMPLATES_AMOUNT_SETTINGS, &upper}, &limitation};
}
// Uncovered to here

// clang-format off
constexpr Rule rules[] = {
    members(PIN_STRENGTH,      json::MIN_LEN, json::MAX_LEN),
    members(PASSWORD_STRENGTH, json::MIN_LEN, json::MAX_LEN),
    {{&PASSWORD_NOTIFY}, {&PASSWORD_EXPIRED}},
    palms(json::ENABLE_CONTACT_PALM_AMOUNT_LIMITATIONS,     json::CONTACT_LEFT_PALM_MIN_AMOUNT,      json::CONTACT_LEFT_PALM_MAX_AMOUNT),
    palms(json::ENABLE_CONTACT_PALM_AMOUNT_LIMITATIONS,     json::CONTACT_RIGHT_PALM_MIN_AMOUNT,     json::CONTACT_RIGHT_PALM_MAX_AMOUNT),
    palms(json::ENABLE_NON_CONTACT_PALM_AMOUNT_LIMITATIONS, json::NON_CONTACT_LEFT_PALM_MIN_AMOUNT,  json::NON_CONTACT_LEFT_PALM_MAX_AMOUNT),
    palms(json::ENABLE_NON_CONTACT_PALM_AMOUNT_LIMITATIONS, json::NON_CONTACT_RIGHT_PALM_MIN_AMOUNT, json::NON_CONTACT_RIGHT_PALM_MAX_AMOUNT),
};
// clang-format on

std::optional<qlonglong> numberIn(const OBJECT_PARAMETERS &settings, const SettingAddress &address)
{
    bool isNumber = false;
    const qlonglong number = qtcompat::numberText(address.valueIn(settings).value_or(QString())).toLongLong(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

bool isOn(const Rule &rule, const OBJECT_PARAMETERS &settings)
{
    if (!rule.limitation)
        return true;
    const auto flag = SettingAddress{*rule.lower.key, *rule.limitation}.valueIn(settings);
    return flag && QVariant(*flag).toBool();
}
} // namespace

QVector<SettingRules::Violation> SettingRules::violations(const OBJECT_PARAMETERS &settings)
{
    QVector<Violation> violations;
    for (const Rule &rule : rules) {
        const SettingAddress lower = rule.lower.address();
        const SettingAddress upper = rule.upper.address();
        const auto lowerNumber = numberIn(settings, lower);
        const auto upperNumber = numberIn(settings, upper);
        if (!lowerNumber || !upperNumber || *lowerNumber <= *upperNumber || !isOn(rule, settings))
            continue;
        violations.append(
            {lower, upper,
             tr("«%1» (%2) больше, чем «%3» (%4). Уменьшите первое или увеличьте второе.")
                 .arg(lower.caption(), QString::number(*lowerNumber), upper.caption(), QString::number(*upperNumber))});
    }
    return violations;
}
