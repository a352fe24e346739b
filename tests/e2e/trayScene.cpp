#include "trayScene.h"

#include <QtTest>

namespace {

int const kShowTimeoutMs = 15000;
QString const kClientClass = QStringLiteral("quorix-gui");
// The tray menu has a fixed width, unlike any other window of the client;
// its title is the application's, like theirs.
int const kMenuWidth = 270;

} // namespace

QStringList TrayScene::missingPrograms(QStringList const& extra)
{
    return XDesktop::missingPrograms(QStringList{QStringLiteral("Xvfb"), QStringLiteral("trayer"),
                                                 QStringLiteral("xdotool"), QStringLiteral("xwininfo")} +
                                     extra);
}

TrayScene::TrayScene()
    : m_host(new HostUnderTest)
{
}

XDesktop& TrayScene::desktop()
{
    return m_desktop;
}

HostUnderTest& TrayScene::host()
{
    return *m_host;
}

bool TrayScene::isUp() const
{
    return m_desktop.isUp();
}

QProcessEnvironment TrayScene::environment(QString const& busAddress) const
{
    return HostUnderTest::environment(m_desktop.display(), busAddress);
}

bool TrayScene::startClient(QProcessEnvironment const& env)
{
    m_host.reset(new HostUnderTest);
    m_icon = XWindow();
    if (!m_host->start(env))
        return false;
    return QTest::qWaitFor(
        [this]() {
            for (XWindow const& w : m_desktop.windows(kClientClass)) {
                if (w.inTray && m_desktop.viewable(kClientClass).contains(w.id)) {
                    m_icon = w;
                    return true;
                }
            }
            return false;
        },
        kShowTimeoutMs);
}

XWindow TrayScene::icon() const
{
    return m_icon;
}

QPoint TrayScene::iconCentre() const
{
    return m_icon.geometry.center();
}

XWindow TrayScene::menu() const
{
    QList<quint32> const mapped = m_desktop.viewable(kClientClass);
    for (XWindow const& w : m_desktop.windows(kClientClass)) {
        if (w.topLevel && w.geometry.width() == kMenuWidth && mapped.contains(w.id))
            return w;
    }
    return XWindow();
}

bool TrayScene::waitMenu(XWindow& menu) const
{
    return QTest::qWaitFor(
        [&]() {
            menu = this->menu();
            return menu.id != 0;
        },
        kShowTimeoutMs);
}

bool TrayScene::closeMenu() const
{
    XWindow const open = menu();
    if (open.id == 0)
        return true;
    m_desktop.moveTo(open.geometry.center());
    m_desktop.moveTo(QPoint(0, 0));
    return QTest::qWaitFor([this]() { return menu().id == 0; }, kShowTimeoutMs);
}

QList<XWindow> TrayScene::otherWindows() const
{
    QList<XWindow> others;
    QList<quint32> const mapped = m_desktop.viewable(kClientClass);
    for (XWindow const& w : m_desktop.windows(kClientClass)) {
        if (w.topLevel && w.geometry.width() != kMenuWidth && mapped.contains(w.id))
            others << w;
    }
    return others;
}

QList<int> TrayScene::screenGaps(XWindow const& menu) const
{
    QSize const screen = m_desktop.screenSize();
    QRect const r = menu.geometry;
    return {r.left(), r.top(), screen.width() - r.x() - r.width(), screen.height() - r.y() - r.height()};
}
