#pragma once

#include <QPointer>

class AuthMgritem;
class QWidget;
class SampleAssetPage;
class SampleBus;
class SampleNavigatePage;

// What the sample puts around the main window's pages: two pages of its own in
// the navigation (one of them hosting the asset strip), a mark in the navigation's bottom bar, a widget on each side
// of the title bar, and two authentication items behind the title bar's status
// icon. All of it is mounted as soon as the frame exists.
class SampleMainWindowContributions
{
public:
    explicit SampleMainWindowContributions(SampleBus& bus);
    ~SampleMainWindowContributions();

    void mount();
    void unmount();

    // The object name the sample page answers to (FrameLinkProxy::gotoPageByObjName).
    static QString pageName();
    // Brings the main window up on the sample page (menu entries use it).
    static void openPage();

private:
    void mountPages();
    void mountBottomBarWidget();
    void mountTitleBarWidgets();
    void mountAuthItems();
    static AuthMgritem* createAuthItem(int id, int status, QString const& objectName, QString const& text);

    SampleBus& m_bus;
    QPointer<SampleNavigatePage> m_pPage;
    QPointer<SampleAssetPage> m_pAssetPage;
    QPointer<QWidget> m_pBottomBarWidget;
    QPointer<QWidget> m_pTitleLeft;
    QPointer<QWidget> m_pTitleRight;
    QPointer<AuthMgritem> m_pAuthGood;
    QPointer<AuthMgritem> m_pAuthFailed;
};
