#pragma once

#include <vxsettings/dbsettingstypes.h>

/// The groups that are pages of their own, in the order in which they are offered, and their names in files and on
/// command lines. The JSON groups come inside them.
struct SettingsPageName
{
    DBGroups group;
    const char *name;
};

constexpr SettingsPageName settingsPages[] = {
    {DBGroups::Database, "database"},
    {DBGroups::Employees, "employees"},
    {DBGroups::Users, "users"},
    {DBGroups::ScanningCommon, "scanning-common"},
    {DBGroups::FingerprintScanning, "fingerprint-scanning"},
    {DBGroups::PalmScanning, "palm-scanning"},
    {DBGroups::FaceScanning, "face-scanning"},
    {DBGroups::PassRequests, "pass-requests"},
    {DBGroups::Connection, "connection"},
    {DBGroups::StudioMobile, "studio-mobile"},
    {DBGroups::MobileId, "mobile-id"},
    {DBGroups::Integration, "integration"},
};
