#pragma once

#include <QIcon>
#include <QString>

// What the desktop shows for the client: the product's name and icon in the
// taskbar, Alt+Tab and the window list, grouped under the desktop entry
// "quorix-gui.desktop" (installed from packaging/).
class ClientIdentity
{
public:
    // The desktop entry's name without ".desktop"; also the icon's name.
    static QString desktopFileName();
    // The brand's product name, else "Quorix终端安全管理系统".
    static QString productName();
    // The icon theme's "quorix-gui" (an installed client, or a theme that
    // draws its own), else the one built into the host in every hicolor size,
    // each size decoded when it is first drawn.
    static QIcon icon();

    // For the whole application, before any window is shown: the desktop
    // entry, the window icon every window inherits, and the product as the
    // display name, so that window titles read "关于 — <product>".
    static void apply();

private:
    ClientIdentity() = delete;
};
