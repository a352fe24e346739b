#pragma once

#include <QPoint>
#include <QString>

class CWinAbout;
class CQLabel;
class CQCloseBtn;
class MyStackedWins1;
class QLabel;
class QWidget;

class CWinAboutPrivate
{
public:
    explicit CWinAboutPrivate(CWinAbout* q);
    ~CWinAboutPrivate();

    // "10.0.0.7550" -> "10.0": the text before the first "." at or after
    // position 3, or the whole text when there is none.
    static QString GetSimpleClientVersion(QString const& version);

    // Asks the bridge for the client and the virus-library versions.
    void update();

    CWinAbout* q_ptr = nullptr;
    bool m_bDragging = false;
    QPoint m_dragOffset;
    QWidget* m_pLogo = nullptr;
    CQCloseBtn* m_pBtnClose = nullptr;
    QLabel* m_pLabClientVersionSimple = nullptr;
    MyStackedWins1* m_pStackedWins = nullptr;
    QLabel* m_pLabBlackPoint_1 = nullptr;
    QLabel* m_pLabVirusDataVersionInfo = nullptr;
    QLabel* m_pLabBlackPoint_2 = nullptr;
    QLabel* m_pLabClientVersionInfo = nullptr;
    CQLabel* m_pLabCopyright = nullptr;
    QString m_virusPrefix;
    QString m_clientPrefix;
    QString m_copyright;

private:
    void InitUIWin();
    void InitUILogo();
    void InitUICloseBtn();
    void InitUIStackedWins();
    void InitUIVirusLine();
    void InitUIClientLine();
    void InitUICopyright();
    QLabel* createBullet(QString const& name, int x, int y);
    QLabel* createLine(QString const& name, int x, int y);
};
