#include "devicePopSubWin.h"

#include "basegui_common.h"
#include "clogdebug.h"
#include "cqbutton.h"
#include "cqlabel.h"
#include "cqnoticeicon.h"
#include "noticeWinParts.h"
#include "prompttitlewin.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace {

char const* const kModule = "plugins/base/core/popupWin/devicePopSubWin";
int const kWidth = 380;
int const kTextWidth = 302;

} // namespace

DevicePopSubWin::DevicePopSubWin(QString const& title, QString const& detail, QWidget* parent)
    : CQFrame(parent)
{
    initWin();
    initTitleWin(title);
    InitUIBody(detail);
    InitUIBottom();
    initControl();
}

DevicePopSubWin::~DevicePopSubWin()
{
    unInitControl();
    BFLogPrintX(1, kModule, __FUNCTION__, __LINE__, "[DevicePopSubWin] delete DevicePopSubWin obj");
}

void DevicePopSubWin::initWin()
{
    setObjectName(QStringLiteral("DevicePopSubWin"));
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_DeleteOnClose);
    setStyleSheet(basegui::Common::readQssFile(QStringLiteral(":/qss/devicePopSubWin.qss")));
    setFixedWidth(kWidth);
    m_pLayout = new QVBoxLayout(this);
    m_pLayout->setSpacing(0);
    m_pLayout->setContentsMargins(0, 0, 0, 0);
}

void DevicePopSubWin::initTitleWin(QString const& title)
{
    m_pTitleWin = NoticeWinParts::createTitleWin(this, PromptTitleWin::TYPE_NORMAL, title);
    setWindowTitle(title);
    m_pLayout->addWidget(m_pTitleWin);
}

void DevicePopSubWin::InitUIBody(QString const& detail)
{
    auto* body = new QVBoxLayout;
    body->setSpacing(0);
    body->setContentsMargins(24, 24, 24, 24);
    auto* headRow = new QHBoxLayout;
    headRow->setSpacing(0);
    headRow->setContentsMargins(0, 0, 0, 0);
    auto* icon = new CQNoticeIcon(CQNoticeIcon::ICON_WARNING, this);
    icon->setFixedSize(24, 24);
    m_pLabMsgTitle = new CQLabel(this);
    m_pLabMsgTitle->setObjectName(QStringLiteral("m_pLabMsgTitle"));
    m_pLabMsgTitle->setFixedSize(kTextWidth, 24);
    NoticeWinParts::setElided(m_pLabMsgTitle, QString::fromUtf8("设备详情"));
    headRow->addWidget(icon);
    headRow->addSpacing(6);
    headRow->addWidget(m_pLabMsgTitle);
    headRow->addStretch();
    m_pLabMsgContent = NoticeWinParts::createBody(this, kTextWidth, Qt::AlignLeft | Qt::AlignTop);
    m_pLabMsgContent->setText(detail);
    body->addLayout(headRow);
    body->addSpacing(8);
    body->addWidget(m_pLabMsgContent);
    m_pLayout->addLayout(body);
}

void DevicePopSubWin::InitUIBottom()
{
    m_pBtnClose = new CQButton(QString::fromUtf8("关闭"), CQButton::KIND_SECONDARY, 12, 400, this);
    m_pBtnClose->setObjectName(QStringLiteral("m_pBtnClose"));
    m_pBtnClose->setFixedSize(104, 32);
    m_pWinBottom = NoticeWinParts::createBottom(this, nullptr, m_pBtnClose);
    m_pLayout->addWidget(m_pWinBottom);
}

void DevicePopSubWin::initControl()
{
    connect(m_pTitleWin, &PromptTitleWin::sig_close_btn_clicked, this, &QWidget::close);
    connect(m_pBtnClose, &CQButton::clicked, this, &QWidget::close);
}

void DevicePopSubWin::unInitControl()
{
    disconnect(m_pTitleWin, nullptr, this, nullptr);
    disconnect(m_pBtnClose, nullptr, this, nullptr);
}

void DevicePopSubWin::showEvent(QShowEvent* event)
{
    NoticeWinParts::fitBodyHeight(m_pLabMsgContent);
    adjustSize();
    basegui::Common::setWidgetMidPos(this, nullptr, QPoint(0, 0));
    CQFrame::showEvent(event);
}
