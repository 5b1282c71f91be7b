#pragma once

/// Fills vantorix::LocalStorage with realistic texts for all settings, 200 departments and five smart-card profiles.
void fillSampleStorage();
