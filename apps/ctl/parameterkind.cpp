#include "parameterkind.h"

#include <vxsettings/dbsettingshelper.h>

#include <algorithm>

namespace {

struct Kind
{
    DBSettingsType type;
    const char *name;
    const char *words;
};

// clang-format off
constexpr Kind kinds[] = {
    {DBSettingsType::CheckBox,                 "flag",               QT_TRANSLATE_NOOP("ParameterKind", "да или нет")},
    {DBSettingsType::ComboBox,                 "choice",             QT_TRANSLATE_NOOP("ParameterKind", "выбор")},
    {DBSettingsType::LineEdit,                 "text",               QT_TRANSLATE_NOOP("ParameterKind", "строка")},
    {DBSettingsType::SpinBox,                  "number",             QT_TRANSLATE_NOOP("ParameterKind", "число")},
    {DBSettingsType::JsonGroup,                "json-object",        QT_TRANSLATE_NOOP("ParameterKind", "объект JSON")},
    {DBSettingsType::Readonly,                 "read-only",          QT_TRANSLATE_NOOP("ParameterKind", "только для чтения")},
    {DBSettingsType::Password,                 "secret",             QT_TRANSLATE_NOOP("ParameterKind", "пароль или токен")},
    {DBSettingsType::OrgstructureSelector,     "department",         QT_TRANSLATE_NOOP("ParameterKind", "подразделение")},
    {DBSettingsType::SmartCardProfileSelector, "smart-card-profile", QT_TRANSLATE_NOOP("ParameterKind", "профиль смарткарт")},
};
// clang-format on

const Kind &kindOf(const QString &parameter)
{
    const DBSettingsType type = DBSettingsHelper::paramType(parameter);
    const auto found =
        std::find_if(std::begin(kinds), std::end(kinds), [type](const Kind &kind) { return kind.type == type; });
    Q_ASSERT(found != std::end(kinds));
    return *found;
}
} // namespace

QString ParameterKind::name(const QString &parameter)
{
    return QString::fromLatin1(kindOf(parameter).name);
}

QString ParameterKind::words(const QString &parameter)
{
    return tr(kindOf(parameter).words);
}
