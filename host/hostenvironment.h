#pragma once

/// What every program of a host sets up before it touches the settings library.
class HostEnvironment
{
public:
    /// Makes UTF-8 the local encoding, through which the texts of JSON settings pass, and keeps the library's debug
    /// messages, which tell stored passwords, out of every log. QT_LOGGING_RULES can ask for them.
    static void prepare();
};
