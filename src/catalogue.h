#pragma once

#include <vxsettings/dbsettingstypes.h>

#include <QString>

#include <cstddef>
#include <utility>

/// The catalogue's rows: constant data that is laid out before the program runs. Texts are Russian source texts of the
/// translation context "QObject"; whoever shows them translates them.
namespace catalogue {

/// A view of a static array.
template <typename T>
struct View
{
    const T *first = nullptr;
    std::size_t count = 0;

    constexpr View() = default;
    template <std::size_t N>
    constexpr View(const T (&array)[N])
        : first(array)
        , count(N)
    {}
    constexpr const T *begin() const { return first; }
    constexpr const T *end() const { return first + count; }
};

/// One entry of a combo box.
struct Choice
{
    unsigned int value; ///< what is stored
    const char *caption;
};

/// One parameter.
struct Parameter
{
    const QString *key;
    DBSettingsType type;
    const char *caption = nullptr;
    std::pair<int, int> range = {0, 0}; ///< inclusive
    const char *specialValue = nullptr;
    View<Choice> choices = {};
    const char *toolTip = nullptr;
};

/// One group: a page, or the members of one JSON object.
struct Group
{
    DBGroups id;
    const char *title;
    const char *icon; ///< null for a JSON group
    LabelPosition labels;
    int columnCount;
    View<Parameter> parameters;         ///< in display order
    const QString *jsonParam = nullptr; ///< stored key of the JSON object, for a JSON group
};

/// When the dependents of a parameter are enabled, by the parameter's value.
enum class EnabledWhen { One, True, False };

/// A parameter that switches others on and off.
struct Dependency
{
    const QString *parent;
    EnabledWhen rule;
    View<const QString *> children;
};

/// The row of a parameter, group or switch; null if there is none.
const Parameter *findParameter(const QString &key);
const Group *findGroup(DBGroups id);
const Group *findJsonGroup(const QString &jsonParam);
const Dependency *findDependency(const QString &parent);
} // namespace catalogue
