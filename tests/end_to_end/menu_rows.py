"""The menus of File Utils and Multi Rename, row by row.

A row is (depth, number, text id, display word). The number is None for a submenu and 0 for a separator.
"""

DISPLAY = 0x400000
SEPARATOR = (2, 0, 0, 0)

FILE_UTILS = [
    (0, None, 0x07D4006D, 0),
    (1, None, 0x07D1006D, 0),  # Rename
    (2, 30000, 0x0834006D, 0x49004A),
    (2, 30030, 0x0852006D, DISPLAY),
    (2, 30031, 0x0853006D, DISPLAY),
    SEPARATOR,
    (2, 30001, 0x0835006D, 0x4D004A),
    (2, 30040, 0x085C006D, DISPLAY),
    (2, 30041, 0x085D006D, DISPLAY),
    SEPARATOR,
    (2, 30002, 0x0836006D, DISPLAY),
    SEPARATOR,
    (2, 30003, 0x0837006D, DISPLAY),
    (2, 30008, 0x083C006D, DISPLAY),
    (2, 30011, 0x083F006D, DISPLAY),
    (2, 30005, 0x0839006D, DISPLAY),
    (2, 30006, 0x083A006D, DISPLAY),
    (2, 30012, 0x0840006D, DISPLAY),
    (2, 30004, 0x0838006D, DISPLAY),
    (2, 30007, 0x083B006D, DISPLAY),
    SEPARATOR,
    (2, 30050, 0x0866006D, DISPLAY),
    SEPARATOR,
    (2, 30010, 0x083E006D, DISPLAY),
    (2, 30020, 0x0848006D, DISPLAY),
    (2, 30060, 0x0870006D, DISPLAY),
    (1, None, 0x07D2006D, 0),  # Text and XML
    (2, 30101, 0x0899006D, DISPLAY),
    (2, 30102, 0x089A006D, 0x49004B),
    (2, 30103, 0x089B006D, DISPLAY),
    (2, 30110, 0x089C006D, DISPLAY),
    (2, 30200, 0x08A2006D, DISPLAY),
    (2, 30201, 0x08A3006D, DISPLAY),
    (2, 30150, 0x08AC006D, DISPLAY),
    (2, 30151, 0x08AD006D, DISPLAY),
    (1, None, 0x07D3006D, 0),  # Base64
    (2, 30210, 0x08C0006D, DISPLAY),
    (2, 30211, 0x08C1006D, DISPLAY),
    (1, None, 0x08FC006D, 0),  # File security
    (2, 30300, 0x08FD006D, DISPLAY),
    (2, 30310, 0x0906006D, DISPLAY),
    (2, 30311, 0x0907006D, DISPLAY),
    (1, None, 0x0960006D, 0),  # Links
    (2, 30350, 0x0961006D, DISPLAY),
]

MULTI_RENAME = [
    (0, None, 0x07D6006D, 0),
    (1, 31000, 0x000A0063, DISPLAY),
]

# The menu of the other module, which has a text without an id, and the branch in it.
BRANCH = [
    (1, None, 0, 0),
    (2, None, 0x0A28006D, 0),
]

# Category: its text id, and its items as (number, name, text id, offered on systems of class A).
CONTROL_PANEL = [
    (0x0A29006D, [
        (6101, "Action Center", 0x0A33006D, True),
        (6102, "Administrative Tools", 0x0A34006D, True),
        (6104, "Backup And Restore", 0x0A35006D, True),
        (6106, "BitLocker Drive Encryption", 0x0A36006D, True),
        (6161, "File History", 0x0A37006D, False),
        (6123, "Indexing Options", 0x0A38006D, True),
        (6131, "Notification Area Icons", 0x0A39006D, True),
        (6132, "Offline Files", 0x0A3A006D, True),
        (6136, "Performance Information and Tools", 0x0A3B006D, True),
        (6141, "Recovery", 0x0A3C006D, True),
        (6148, "System", 0x0A3D006D, True),
        (6154, "Windows CardSpace", 0x0A3E006D, True),
        (6155, "Windows Defender", 0x0A3F006D, True),
        (6156, "Windows Firewall", 0x0A40006D, True),
        (6157, "Windows Mobility Center", 0x0A41006D, True),
        (6159, "Windows Update", 0x0A42006D, True),
    ]),
    (0x0A2A006D, [
        (6122, "HomeGroup", 0x0A43006D, True),
        (6125, "Internet Options", 0x0A44006D, True),
        (6130, "Network and Sharing Center", 0x0A45006D, True),
        (6143, "RemoteApp and Desktop Connections", 0x0A46006D, True),
    ]),
    (0x0A2B006D, [
        (6103, "AutoPlay", 0x0A47006D, True),
        (6113, "Device Manager", 0x0A48006D, True),
        (6114, "Devices and Printers", 0x0A49006D, True),
        (6119, "Game Controllers", 0x0A4A006D, True),
        (6124, "Infrared", 0x0A4B006D, True),
        (6126, "iSCSI Initiator", 0x0A4C006D, True),
        (6127, "Keyboard", 0x0A4D006D, True),
        (6128, "Location and Other Sensors", 0x0A4E006D, True),
        (6160, "Location Settings", 0x0A4F006D, False),
        (6129, "Mouse", 0x0A50006D, True),
        (6134, "Pen and Touch", 0x0A51006D, True),
        (6138, "Phone and Modem", 0x0A52006D, True),
        (6139, "Power Options", 0x0A53006D, True),
        (6144, "Scanners and Cameras", 0x0A54006D, True),
        (6145, "Sound", 0x0A55006D, True),
        (6149, "Tablet PC Settings", 0x0A56006D, True),
        (6158, "Windows SideShow", 0x0A57006D, False),
    ]),
    (0x0A2C006D, [
        (6111, "Default Programs", 0x0A59006D, True),
        (6120, "Get Programs", 0x0A5A006D, True),
        (6140, "Programs and Features", 0x0A5B006D, True),
    ]),
    (0x0A2D006D, [
        (6108, "Credential Manager", 0x0A5C006D, True),
        (6133, "Parental Controls", 0x0A5D006D, True),
        (6135, "People Near Me", 0x0A5E006D, True),
        (6153, "User Accounts", 0x0A5F006D, True),
    ]),
    (0x0A2E006D, [
        (6107, "Color Management", 0x0A60006D, True),
        (6115, "Display", 0x0A61006D, True),
        (6117, "Folder Options", 0x0A62006D, True),
        (6118, "Fonts", 0x0A63006D, True),
        (6137, "Personalization", 0x0A64006D, True),
    ]),
    (0x0A2F006D, [
        (6109, "Date and Time", 0x0A65006D, True),
        (6162, "Language", 0x0A66006D, False),
        (6142, "Region and Language", 0x0A67006D, True),
    ]),
    (0x0A30006D, [
        (6116, "Ease of Access Center", 0x0A68006D, True),
        (6146, "Speech Recognition", 0x0A69006D, True),
        (6151, "Text to Speech", 0x0A6A006D, True),
    ]),
    (0x0A31006D, [
        (6105, "Biometric Devices", 0x0A6B006D, True),
        (6110, "Default Locations", 0x0A58006D, True),
        (6112, "Desktop Gadgets", 0x0A6C006D, True),
        (6121, "Getting Started", 0x0A6D006D, True),
        (6147, "Sync Center", 0x0A6E006D, True),
        (6150, "Taskbar and Start Menu", 0x0A6F006D, True),
        (6152, "Troubleshooting", 0x0A70006D, True),
    ]),
]


def rows(control_panel=True, class_a=False):
    """Returns the rows of the whole tree."""
    result = list(FILE_UTILS)
    if control_panel:
        result += BRANCH
        for category, items in CONTROL_PANEL:
            result.append((3, None, category, 0))
            for number, _, text_id, on_class_a in items:
                if on_class_a or not class_a:
                    result.append((4, number, text_id, DISPLAY))
    return result + MULTI_RENAME
