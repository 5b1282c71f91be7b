#pragma once

#include <vector>

/// @file
/// What groups and parameters are, in numbers that are stable.

/// A settings group: one titled block of a settings page.
///
/// The numbers are stable; 9 and 13 are unassigned and stay so. From 14 upward a group edits the members of one JSON
/// object that is stored under a single key, and is shown inside another group.
enum class DBGroups : int {
    Database = 0,
    Employees = 1,
    Users = 2,
    ScanningCommon = 3,
    FingerprintScanning = 4,
    PalmScanning = 5,
    FaceScanning = 6,
    PassRequests = 7,
    Connection = 8,
    StudioMobile = 10,
    MobileId = 11,
    Integration = 12,
    PinStrength = 14,
    PasswordStrength = 15,
    PalmTemplatesAmount = 16,
};

/// The editor kind of a parameter. 5 is what a group node answers as its type, 8 is reserved; no parameter has either.
enum class DBSettingsType : int {
    Unknown = 0,
    CheckBox = 1,
    ComboBox = 2,
    LineEdit = 3,
    SpinBox = 4,
    JsonGroup = 6,
    Readonly = 7,
    Password = 9,
    OrgstructureSelector = 10,
    SmartCardProfileSelector = 11,
};

/// Where an editor shows its caption.
enum class LabelPosition : int {
    None = 0,
    Left = 1,
    Top = 2,
    Right = 3,
    Bottom = 4,
};

/// How the parameters of a group are placed on its grid: row by row, @c columnCount editors a row.
struct LayoutConcrete
{
    int columnCount = 1;                  ///< at least 1
    std::vector<LayoutConcrete> children; ///< nested layouts; the catalogue has none
};
