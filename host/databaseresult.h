#pragma once

#include <host/databaseerror.h>

#include <optional>
#include <utility>

/// What was read from a database, or why it could not be.
template <typename Value>
struct [[nodiscard]] DatabaseResult
{
    DatabaseResult(Value read)
        : value(std::move(read))
    {}
    DatabaseResult(const DatabaseError &failure)
        : error(failure)
    {}

    static DatabaseResult failed(const DatabaseError &failure) { return failure; }

    std::optional<DatabaseError> error;
    Value value = {}; ///< empty if there is an error
};
