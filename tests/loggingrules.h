#pragma once

#include <QLoggingCategory>

#include <utility>

/// Logging rules, as a host sets them, for its lifetime; the rules before come back with the end.
///
///     LoggingRules quiet("gui.lib.dbsettings.debug=false");
class LoggingRules
{
public:
    explicit LoggingRules(const QString &rules)
        : m_previous(std::exchange(s_current, rules))
    {
        QLoggingCategory::setFilterRules(s_current);
    }
    ~LoggingRules()
    {
        s_current = m_previous;
        QLoggingCategory::setFilterRules(s_current);
    }
    Q_DISABLE_COPY(LoggingRules)

private:
    inline static QString s_current;
    QString m_previous;
};
