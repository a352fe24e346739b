#pragma once

#include <QPointer>

class QLabel;
class QWidget;
class SampleBus;

// What the sample puts into the tray menu: a status row, a row that opens the
// sample page, and two tiles of the goods shelf at the menu's top. The status
// row is brought up to date each time the menu is about to open.
class SampleTrayContributions
{
public:
    explicit SampleTrayContributions(SampleBus& bus);
    ~SampleTrayContributions();

    void mount();
    void unmount();
    // "EPLUGIN_ID_ALL_PLUGIN_CMD_TRAY_POP_SHOW": the menu is about to open.
    void trayMenuOpening();

private:
    void mountRows();
    void mountGoods();
    void updateStatusText();

    SampleBus& m_bus;
    QPointer<QLabel> m_pStatusRow;
    QPointer<QWidget> m_pActionRow;
    QPointer<QWidget> m_pGoodsA;
    QPointer<QWidget> m_pGoodsB;
    int m_nTrayShows = 0;
};
