#pragma once

#include "testdatabase.h"

#include <host/settingsstore.h>

#include <thread>
#include <vector>

/// What eight programs are told that open @p database at the same time; null for those that could.
inline std::vector<QString> openAtOnce(const TestDatabase &database)
{
    std::vector<QString> errors(8);
    std::vector<std::thread> programs;
    for (QString &text : errors) {
        programs.emplace_back([&text, &database] {
            if (auto error = SettingsStore().open(DatabaseLocation::ofFile(database.path())))
                text = error->text();
        });
    }
    for (std::thread &program : programs)
        program.join();
    return errors;
}
