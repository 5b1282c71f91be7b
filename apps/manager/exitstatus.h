#pragma once

/// What the program tells the shell; --help documents the numbers.
enum ExitStatus : int {
    ExitDone = 0,
    ExitFailed = 1, ///< the self-test found something, a picture could not be written, there is no display
    ExitUsage = 2,
    ExitDatabase = 5, ///< the same number as in the other programs of this project
};
