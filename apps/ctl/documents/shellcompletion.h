#pragma once

#include <QString>

/// The scripts that make shells complete the command line of vxsettingsctl. Each is a template of this folder, filled
/// with the program's own tables.
class ShellCompletion
{
public:
    static QString bash();
    static QString zsh();
    static QString fish();
};
