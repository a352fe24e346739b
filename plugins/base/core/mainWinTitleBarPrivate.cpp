#include "mainWinTitleBar_p.h"

#include "clogdebug.h"
#include "cqcloudbrainlabel.h"
#include "cqlogotitle.h"
#include "cqtitlebuttons.h"
#include "dravoguiconfig.h"

#include <QHBoxLayout>
#include <QMutexLocker>

namespace {

char const* const kModule = "plugins/base/core/mainWinTitleBar";
char const* const kAreaStyle = "CQFrame{background:transparent;}";
int const kBarHeight = 46;
int const kButtonSide = 22;

} // namespace

MainWinTitleBarPrivate::MainWinTitleBarPrivate(MainWinTitleBar* q)
    : q_ptr(q)
{
}

MainWinTitleBarPrivate::~MainWinTitleBarPrivate() = default;

void MainWinTitleBarPrivate::InitUI()
{
    q_ptr->setWindowFlags(q_ptr->windowFlags() | Qt::FramelessWindowHint);
    q_ptr->setObjectName(QStringLiteral("MainWinTitleBar"));
    q_ptr->resize(1000, kBarHeight);

    m_pLogoTitleBackground = new CQFrame(q_ptr);
    m_pLogoTitleBackground->setObjectName(QStringLiteral("m_pLogoTitleBackground"));
    m_pLogoTitleBackground->setFixedSize(145, kBarHeight);
    m_pLogoTitleBackground->move(1, 1);

    InitUIArea();
    InitUILogo();
    InitUIControls();
}

void MainWinTitleBarPrivate::InitUIArea()
{
    m_pLeftArea = new CQFrame(q_ptr);
    m_pLeftArea->setObjectName(QStringLiteral("m_pLeftArea"));
    m_pLeftArea->setStyleSheet(QString::fromLatin1(kAreaStyle));
    m_pLeftArea->setFixedSize(410, kBarHeight);
    m_pLeftArea->move(180, 0);

    m_pRightArea = new CQFrame(q_ptr);
    m_pRightArea->setObjectName(QStringLiteral("m_pRightArea"));
    m_pRightArea->setStyleSheet(QString::fromLatin1(kAreaStyle));
    m_pRightArea->setFixedSize(500, kBarHeight);
    m_pRightArea->move(500, 0);

    // Right-to-left with left alignment: the stretches that every relayout
    // appends gather on the right, the widgets against the left end with the
    // smallest key rightmost.
    m_pLeftLayout = new QHBoxLayout(m_pLeftArea);
    m_pLeftLayout->setDirection(QBoxLayout::RightToLeft);
    m_pLeftLayout->setSpacing(8);
    m_pLeftLayout->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_pLeftLayout->setContentsMargins(8, 0, 8, 0);

    m_pRightLayout = new QHBoxLayout(m_pRightArea);
    m_pRightLayout->setDirection(QBoxLayout::LeftToRight);
    m_pRightLayout->setSpacing(8);
    m_pRightLayout->setContentsMargins(8, 0, 13, 0);
}

void MainWinTitleBarPrivate::InitUILogo()
{
    QString theme = QStringLiteral("default");
    QString productName;
    int const ret1 = DravoGuiConfig::theme(theme);
    if (ret1 != 0)
        BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[MainWinTitleBarPrivate] get theme failed, ret1 is [%d]", ret1);
    int const ret2 = DravoGuiConfig::productName(productName);
    if (ret2 != 0)
        BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[MainWinTitleBarPrivate] get product name failed, ret2 is [%d]", ret2);

    if (ret1 != 0 || ret2 != 0 || theme == QLatin1String("default"))
        m_pLogoTitle = new CQLogoTitle(29, 29, 0, 0, m_pLogoTitleBackground);
    else
        m_pLogoTitle = new CQLogoTitle(29, 29, 92, 0, productName, m_pLogoTitleBackground);
    m_pLogoTitle->move(11, 7);
}

void MainWinTitleBarPrivate::InitUIControls()
{
    m_pBtnDropDown = new CQDropDownBtn(1, m_pRightArea);
    m_pBtnDropDown->setFixedSize(kButtonSide, kButtonSide);
    m_pBtnMin = new CQMinBtn(1, m_pRightArea);
    m_pBtnMin->setFixedSize(kButtonSide, kButtonSide);
    m_pBtnClose = new CQCloseBtn(1, m_pRightArea);
    m_pBtnClose->setFixedSize(kButtonSide, kButtonSide);
    m_pCloudBrainLabel = new CQCloudBrainLabel(-1, m_pRightArea);
}

bool MainWinTitleBarPrivate::area(eBaseTitleBarDir dir, AreaMap*& map, QMutex*& mutex)
{
    switch (dir) {
    case EBASETITLEBARDIR_LEFT:
        map = &m_mapLeft;
        mutex = &m_mutexLeft;
        return true;
    case EBASETITLEBARDIR_RIGHT:
        map = &m_mapRight;
        mutex = &m_mutexRight;
        return true;
    }
    return false;
}

void MainWinTitleBarPrivate::resetUI()
{
    resetArea(m_pLeftLayout, m_pLeftArea, m_mapLeft, m_mutexLeft);
    resetArea(m_pRightLayout, m_pRightArea, m_mapRight, m_mutexRight);
}

// The stretch appended first is never taken out again, so stretches gather in
// front of the widgets with every relayout; they have no size and no effect
// beyond pushing the widgets to the far end.
void MainWinTitleBarPrivate::resetArea(QHBoxLayout* layout, CQFrame* area, AreaMap& map, QMutex& mutex)
{
    QMutexLocker lock(&mutex);
    layout->addStretch(0);
    for (auto it = map.begin(); it != map.end();) {
        if (it.value().isNull()) {
            it = map.erase(it);
            continue;
        }
        layout->removeWidget(it.value());
        ++it;
    }
    for (auto it = map.cbegin(); it != map.cend(); ++it) {
        layout->addWidget(it.value(), 0);
        it.value()->show();
    }
    area->setLayout(layout);
    area->adjustSize();
}
