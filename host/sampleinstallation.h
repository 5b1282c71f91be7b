#pragma once

#include <host/installation.h>

/// What a new database is filled with: an installation as it might stand somewhere, every stored setting included.
class SampleInstallation
{
public:
    static Installation make();
};
