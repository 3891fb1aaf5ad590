// The expected items of the control panel branch, written out independently of the module.
#pragma once

#include "frame/host/host_types.h"

struct ExpectedPanelItem {
  Velmora::SDK::u32 category;
  Velmora::SDK::u32 rowId;
  const WCHAR* name;
  const WCHAR* canonicalName;
  Velmora::SDK::TextId textId;
  bool flagA;
  bool flagC;
};

inline constexpr ExpectedPanelItem kExpectedPanelItems[] = {
    {2, 1, W("Action Center"), W("ActionCenter"), 0x0A33006D, true, true},
    {2, 2, W("Administrative Tools"), W("AdministrativeTools"), 0x0A34006D, true, false},
    {2, 4, W("Backup And Restore"), W("BackupAndRestore"), 0x0A35006D, true, true},
    {2, 6, W("BitLocker Drive Encryption"), W("BitLockerDriveEncryption"), 0x0A36006D, true, false},
    {2, 61, W("File History"), W("FileHistory"), 0x0A37006D, false, false},
    {2, 23, W("Indexing Options"), W("IndexingOptions"), 0x0A38006D, true, false},
    {2, 31, W("Notification Area Icons"), W("NotificationAreaIcons"), 0x0A39006D, true, true},
    {2, 32, W("Offline Files"), W("OfflineFiles"), 0x0A3A006D, true, false},
    {2, 36, W("Performance Information and Tools"), W("PerformanceInformationAndTools"), 0x0A3B006D, true,
     false},
    {2, 41, W("Recovery"), W("Recovery"), 0x0A3C006D, true, true},
    {2, 48, W("System"), W("System"), 0x0A3D006D, true, false},
    {2, 54, W("Windows CardSpace"), W("CardSpace"), 0x0A3E006D, true, false},
    {2, 55, W("Windows Defender"), W("WindowsDefender"), 0x0A3F006D, true, false},
    {2, 56, W("Windows Firewall"), W("WindowsFirewall"), 0x0A40006D, true, false},
    {2, 57, W("Windows Mobility Center"), W("MobilityCenter"), 0x0A41006D, true, false},
    {2, 59, W("Windows Update"), W("WindowsUpdate"), 0x0A42006D, true, false},
    {3, 22, W("HomeGroup"), W("HomeGroup"), 0x0A43006D, true, true},
    {3, 25, W("Internet Options"), W("InternetOptions"), 0x0A44006D, true, false},
    {3, 30, W("Network and Sharing Center"), W("NetworkAndSharingCenter"), 0x0A45006D, true, false},
    {3, 43, W("RemoteApp and Desktop Connections"), W("RemoteAppAndDesktopConnections"), 0x0A46006D, true,
     true},
    {4, 3, W("AutoPlay"), W("AutoPlay"), 0x0A47006D, true, false},
    {4, 13, W("Device Manager"), W("DeviceManager"), 0x0A48006D, true, false},
    {4, 14, W("Devices and Printers"), W("DevicesAndPrinters"), 0x0A49006D, true, false},
    {4, 19, W("Game Controllers"), W("GameControllers"), 0x0A4A006D, true, false},
    {4, 24, W("Infrared"), W("Infrared"), 0x0A4B006D, true, true},
    {4, 26, W("iSCSI Initiator"), W("iSCSIInitiator"), 0x0A4C006D, true, false},
    {4, 27, W("Keyboard"), W("Keyboard"), 0x0A4D006D, true, false},
    {4, 28, W("Location and Other Sensors"), W("LocationAndOtherSensors"), 0x0A4E006D, true, true},
    {4, 60, W("Location Settings"), W("LocationSettings"), 0x0A4F006D, false, false},
    {4, 29, W("Mouse"), W("Mouse"), 0x0A50006D, true, false},
    {4, 34, W("Pen and Touch"), W("PenAndTouch"), 0x0A51006D, true, false},
    {4, 38, W("Phone and Modem"), W("PhoneAndModem"), 0x0A52006D, true, true},
    {4, 39, W("Power Options"), W("PowerOptions"), 0x0A53006D, true, false},
    {4, 44, W("Scanners and Cameras"), W("ScannersAndCameras"), 0x0A54006D, true, true},
    {4, 45, W("Sound"), W("Sound"), 0x0A55006D, true, true},
    {4, 49, W("Tablet PC Settings"), W("TabletPCSettings"), 0x0A56006D, true, false},
    {4, 58, W("Windows SideShow"), W("WindowsSideShow"), 0x0A57006D, false, false},
    {5, 11, W("Default Programs"), W("DefaultPrograms"), 0x0A59006D, true, false},
    {5, 20, W("Get Programs"), W("GetPrograms"), 0x0A5A006D, true, false},
    {5, 40, W("Programs and Features"), W("ProgramsAndFeatures"), 0x0A5B006D, true, false},
    {6, 8, W("Credential Manager"), W("CredentialManager"), 0x0A5C006D, true, true},
    {6, 33, W("Parental Controls"), W("ParentalControls"), 0x0A5D006D, true, true},
    {6, 35, W("People Near Me"), W("PeopleNearMe"), 0x0A5E006D, true, true},
    {6, 53, W("User Accounts"), W("UserAccounts"), 0x0A5F006D, true, false},
    {7, 7, W("Color Management"), W("ColorManagement"), 0x0A60006D, true, false},
    {7, 15, W("Display"), W("Display"), 0x0A61006D, true, true},
    {7, 17, W("Folder Options"), W("FolderOptions"), 0x0A62006D, true, false},
    {7, 18, W("Fonts"), W("Fonts"), 0x0A63006D, true, false},
    {7, 37, W("Personalization"), W("Personalization"), 0x0A64006D, true, false},
    {8, 9, W("Date and Time"), W("DateAndTime"), 0x0A65006D, true, false},
    {8, 62, W("Language"), W("Language"), 0x0A66006D, false, false},
    {8, 42, W("Region and Language"), W("RegionAndLanguage"), 0x0A67006D, true, true},
    {9, 16, W("Ease of Access Center"), W("EaseOfAccessCenter"), 0x0A68006D, true, false},
    {9, 46, W("Speech Recognition"), W("SpeechRecognition"), 0x0A69006D, true, true},
    {9, 51, W("Text to Speech"), W("TextToSpeech"), 0x0A6A006D, true, false},
    {1, 5, W("Biometric Devices"), W("BiometricDevices"), 0x0A6B006D, true, true},
    {1, 10, W("Default Locations"), W("DefaultLocation"), 0x0A58006D, true, true},
    {1, 12, W("Desktop Gadgets"), W("DesktopGadgets"), 0x0A6C006D, true, true},
    {1, 21, W("Getting Started"), W("GettingStarted"), 0x0A6D006D, true, true},
    {1, 47, W("Sync Center"), W("SyncCenter"), 0x0A6E006D, true, false},
    {1, 50, W("Taskbar and Start Menu"), W("TaskbarAndStartMenu"), 0x0A6F006D, true, false},
    {1, 52, W("Troubleshooting"), W("Troubleshooting"), 0x0A70006D, true, true},
};

struct ExpectedPanelCategory {
  Velmora::SDK::u32 number;
  Velmora::SDK::TextId textId;
};

inline constexpr ExpectedPanelCategory kExpectedPanelCategories[] = {
    {2, 0x0A29006D}, {3, 0x0A2A006D}, {4, 0x0A2B006D}, {5, 0x0A2C006D}, {6, 0x0A2D006D},
    {7, 0x0A2E006D}, {8, 0x0A2F006D}, {9, 0x0A30006D}, {1, 0x0A31006D},
};
