#include "filetools/control_panel_items.h"

namespace {

// All items except a few newer ones exist on systems of class A (flagA), and all on systems of class B. The
// text id of "Default Locations" is out of sequence, and "DefaultLocation" is singular (C-463).
// clang-format off
constexpr ControlPanelItem kItems[] = {
  // name, canonical name, usePrefix, reserved, flagC, flagA, flagB, noLaunch, rowId, category, textId
  {W("Action Center"),                     W("ActionCenter"),                   true, false, true , true , true, false,  1, 2, 0x0A33006D},
  {W("Administrative Tools"),              W("AdministrativeTools"),            true, false, false, true , true, false,  2, 2, 0x0A34006D},
  {W("Backup And Restore"),                W("BackupAndRestore"),               true, false, true , true , true, false,  4, 2, 0x0A35006D},
  {W("BitLocker Drive Encryption"),        W("BitLockerDriveEncryption"),       true, false, false, true , true, false,  6, 2, 0x0A36006D},
  {W("File History"),                      W("FileHistory"),                    true, false, false, false, true, false, 61, 2, 0x0A37006D},
  {W("Indexing Options"),                  W("IndexingOptions"),                true, false, false, true , true, false, 23, 2, 0x0A38006D},
  {W("Notification Area Icons"),           W("NotificationAreaIcons"),          true, false, true , true , true, false, 31, 2, 0x0A39006D},
  {W("Offline Files"),                     W("OfflineFiles"),                   true, false, false, true , true, false, 32, 2, 0x0A3A006D},
  {W("Performance Information and Tools"), W("PerformanceInformationAndTools"), true, false, false, true , true, false, 36, 2, 0x0A3B006D},
  {W("Recovery"),                          W("Recovery"),                       true, false, true , true , true, false, 41, 2, 0x0A3C006D},
  {W("System"),                            W("System"),                         true, false, false, true , true, false, 48, 2, 0x0A3D006D},
  {W("Windows CardSpace"),                 W("CardSpace"),                      true, false, false, true , true, false, 54, 2, 0x0A3E006D},
  {W("Windows Defender"),                  W("WindowsDefender"),                true, false, false, true , true, false, 55, 2, 0x0A3F006D},
  {W("Windows Firewall"),                  W("WindowsFirewall"),                true, false, false, true , true, false, 56, 2, 0x0A40006D},
  {W("Windows Mobility Center"),           W("MobilityCenter"),                 true, false, false, true , true, false, 57, 2, 0x0A41006D},
  {W("Windows Update"),                    W("WindowsUpdate"),                  true, false, false, true , true, false, 59, 2, 0x0A42006D},
  {W("HomeGroup"),                         W("HomeGroup"),                      true, false, true , true , true, false, 22, 3, 0x0A43006D},
  {W("Internet Options"),                  W("InternetOptions"),                true, false, false, true , true, false, 25, 3, 0x0A44006D},
  {W("Network and Sharing Center"),        W("NetworkAndSharingCenter"),        true, false, false, true , true, false, 30, 3, 0x0A45006D},
  {W("RemoteApp and Desktop Connections"), W("RemoteAppAndDesktopConnections"), true, false, true , true , true, false, 43, 3, 0x0A46006D},
  {W("AutoPlay"),                          W("AutoPlay"),                       true, false, false, true , true, false,  3, 4, 0x0A47006D},
  {W("Device Manager"),                    W("DeviceManager"),                  true, false, false, true , true, false, 13, 4, 0x0A48006D},
  {W("Devices and Printers"),              W("DevicesAndPrinters"),             true, false, false, true , true, false, 14, 4, 0x0A49006D},
  {W("Game Controllers"),                  W("GameControllers"),                true, false, false, true , true, false, 19, 4, 0x0A4A006D},
  {W("Infrared"),                          W("Infrared"),                       true, false, true , true , true, false, 24, 4, 0x0A4B006D},
  {W("iSCSI Initiator"),                   W("iSCSIInitiator"),                 true, false, false, true , true, false, 26, 4, 0x0A4C006D},
  {W("Keyboard"),                          W("Keyboard"),                       true, false, false, true , true, false, 27, 4, 0x0A4D006D},
  {W("Location and Other Sensors"),        W("LocationAndOtherSensors"),        true, false, true , true , true, false, 28, 4, 0x0A4E006D},
  {W("Location Settings"),                 W("LocationSettings"),               true, false, false, false, true, false, 60, 4, 0x0A4F006D},
  {W("Mouse"),                             W("Mouse"),                          true, false, false, true , true, false, 29, 4, 0x0A50006D},
  {W("Pen and Touch"),                     W("PenAndTouch"),                    true, false, false, true , true, false, 34, 4, 0x0A51006D},
  {W("Phone and Modem"),                   W("PhoneAndModem"),                  true, false, true , true , true, false, 38, 4, 0x0A52006D},
  {W("Power Options"),                     W("PowerOptions"),                   true, false, false, true , true, false, 39, 4, 0x0A53006D},
  {W("Scanners and Cameras"),              W("ScannersAndCameras"),             true, false, true , true , true, false, 44, 4, 0x0A54006D},
  {W("Sound"),                             W("Sound"),                          true, false, true , true , true, false, 45, 4, 0x0A55006D},
  {W("Tablet PC Settings"),                W("TabletPCSettings"),               true, false, false, true , true, false, 49, 4, 0x0A56006D},
  {W("Windows SideShow"),                  W("WindowsSideShow"),                true, false, false, false, true, false, 58, 4, 0x0A57006D},
  {W("Default Programs"),                  W("DefaultPrograms"),                true, false, false, true , true, false, 11, 5, 0x0A59006D},
  {W("Get Programs"),                      W("GetPrograms"),                    true, false, false, true , true, false, 20, 5, 0x0A5A006D},
  {W("Programs and Features"),             W("ProgramsAndFeatures"),            true, false, false, true , true, false, 40, 5, 0x0A5B006D},
  {W("Credential Manager"),                W("CredentialManager"),              true, false, true , true , true, false,  8, 6, 0x0A5C006D},
  {W("Parental Controls"),                 W("ParentalControls"),               true, false, true , true , true, false, 33, 6, 0x0A5D006D},
  {W("People Near Me"),                    W("PeopleNearMe"),                   true, false, true , true , true, false, 35, 6, 0x0A5E006D},
  {W("User Accounts"),                     W("UserAccounts"),                   true, false, false, true , true, false, 53, 6, 0x0A5F006D},
  {W("Color Management"),                  W("ColorManagement"),                true, false, false, true , true, false,  7, 7, 0x0A60006D},
  {W("Display"),                           W("Display"),                        true, false, true , true , true, false, 15, 7, 0x0A61006D},
  {W("Folder Options"),                    W("FolderOptions"),                  true, false, false, true , true, false, 17, 7, 0x0A62006D},
  {W("Fonts"),                             W("Fonts"),                          true, false, false, true , true, false, 18, 7, 0x0A63006D},
  {W("Personalization"),                   W("Personalization"),                true, false, false, true , true, false, 37, 7, 0x0A64006D},
  {W("Date and Time"),                     W("DateAndTime"),                    true, false, false, true , true, false,  9, 8, 0x0A65006D},
  {W("Language"),                          W("Language"),                       true, false, false, false, true, false, 62, 8, 0x0A66006D},
  {W("Region and Language"),               W("RegionAndLanguage"),              true, false, true , true , true, false, 42, 8, 0x0A67006D},
  {W("Ease of Access Center"),             W("EaseOfAccessCenter"),             true, false, false, true , true, false, 16, 9, 0x0A68006D},
  {W("Speech Recognition"),                W("SpeechRecognition"),              true, false, true , true , true, false, 46, 9, 0x0A69006D},
  {W("Text to Speech"),                    W("TextToSpeech"),                   true, false, false, true , true, false, 51, 9, 0x0A6A006D},
  {W("Biometric Devices"),                 W("BiometricDevices"),               true, false, true , true , true, false,  5, 1, 0x0A6B006D},
  {W("Default Locations"),                 W("DefaultLocation"),                true, false, true , true , true, false, 10, 1, 0x0A58006D},
  {W("Desktop Gadgets"),                   W("DesktopGadgets"),                 true, false, true , true , true, false, 12, 1, 0x0A6C006D},
  {W("Getting Started"),                   W("GettingStarted"),                 true, false, true , true , true, false, 21, 1, 0x0A6D006D},
  {W("Sync Center"),                       W("SyncCenter"),                     true, false, false, true , true, false, 47, 1, 0x0A6E006D},
  {W("Taskbar and Start Menu"),            W("TaskbarAndStartMenu"),            true, false, false, true , true, false, 50, 1, 0x0A6F006D},
  {W("Troubleshooting"),                   W("Troubleshooting"),                true, false, true , true , true, false, 52, 1, 0x0A70006D},
};

constexpr ControlPanelCategory kCategories[] = {
  {2, 0x0A29006D},
  {3, 0x0A2A006D},
  {4, 0x0A2B006D},
  {5, 0x0A2C006D},
  {6, 0x0A2D006D},
  {7, 0x0A2E006D},
  {8, 0x0A2F006D},
  {9, 0x0A30006D},
  {1, 0x0A31006D},
};
// clang-format on

}  // namespace

std::span<const ControlPanelItem> ControlPanelItems() { return kItems; }

std::span<const ControlPanelCategory> ControlPanelCategories() { return kCategories; }
