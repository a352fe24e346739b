#pragma once

#include <QObject>
#include <QPointer>
#include <QSystemTrayIcon>

#include <string>

class MenuWidget;
class MonitorButtonReleasePosThread;
class TrayWidgetPrivate;

// The client's icon in the desktop's system tray and the tray menu it opens.
// One per process.
class TrayWidget : public QObject
{
    Q_OBJECT
    friend class TrayWidgetPrivate;

public:
    enum eDisplayProtocol { EDISPLAY_UNKNOWN = 0, EDISPLAY_X11 = 1, EDISPLAY_WAYLAND = 2 };

    static TrayWidget* singleInstance();
    static void UninitInstance(bool now);
    static void setPtr(void* p);

    // Creates the menu window if it is missing and hides it.
    void init();
    // Creates the tray icon on the first call; shows it again if it was hidden.
    void showTrayIcon();
    // Put a widget into / take it out of the tray menu under `index`.
    void registMenu(QWidget* w, int index);
    void unRegistMenu(QWidget* w, int index);

    MenuWidget* menu() const;
    QSystemTrayIcon* trayIcon() const;
    int displayProtocol() const;
    // The Wayland pointer monitor, null unless it was started; once started
    // it outlives the tray.
    MonitorButtonReleasePosThread* waylandMonitor() const;
    // Lower-cased distribution name found by the probe ("" when unknown).
    std::string osName() const;

signals:
    void sig_updateProtectDays(int days);

public slots:
    void slot_iconActivated(QSystemTrayIcon::ActivationReason reason);

protected:
    TrayWidget();
    ~TrayWidget() override;

private:
    void initSystemTrayIcon();
    void updateDisplayProtocol();
    void startWaylandMonitor();
    void leftClick();
    void rightClick();
    bool osNameContains(char const* needle) const;

    QSystemTrayIcon* m_pTrayIcon = nullptr;
    MenuWidget* m_pMenu = nullptr;
    int m_nDisplayProtocol = EDISPLAY_UNKNOWN;
    TrayWidgetPrivate* d_ptr = nullptr;
};
