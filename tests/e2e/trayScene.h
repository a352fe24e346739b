#pragma once

#include "hostUnderTest.h"
#include "xDesktop.h"

// The client in a real system tray: an X desktop with trayer and the client
// started into it, and the few things a user does there, with a wait for what
// each one shows.
class TrayScene
{
public:
    // The programs every tray test needs, and those missing from PATH.
    static QStringList missingPrograms(QStringList const& extra = {});

    TrayScene();

    XDesktop& desktop();
    HostUnderTest& host();

    bool isUp() const;
    // The environment a client starts with on this desktop and `busAddress`.
    QProcessEnvironment environment(QString const& busAddress) const;
    // A new client, started with `env` (a running one is killed first); true
    // once its icon sits in the tray.
    bool startClient(QProcessEnvironment const& env);
    XWindow icon() const;
    QPoint iconCentre() const;

    // The tray menu while it is mapped, else a window with id 0.
    XWindow menu() const;
    bool waitMenu(XWindow& menu) const;
    // The pointer moves into the menu and out again, as a user leaves it;
    // true once the menu is gone.
    bool closeMenu() const;
    // Mapped top-level windows of the client other than the tray menu.
    QList<XWindow> otherWindows() const;

    // The gaps between the menu and the screen's left, top, right, bottom.
    QList<int> screenGaps(XWindow const& menu) const;

private:
    XDesktop m_desktop;
    QScopedPointer<HostUnderTest> m_host;
    XWindow m_icon;
};
