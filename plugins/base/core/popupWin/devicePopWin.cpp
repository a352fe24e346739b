#include "devicePopWin.h"

#include "basegui_common.h"
#include "clogdebug.h"
#include "cqbutton.h"
#include "cqframe.h"
#include "cqlabel.h"
#include "cqtextbutton.h"
#include "cqtitlebuttons.h"
#include "devicePopSubWin.h"
#include "noticeWinParts.h"
#include "prompttitlewin.h"

#include <QUuid>
#include <QVBoxLayout>

namespace {

char const* const kModule = "plugins/base/core/popupWin/devicePopWin";
int const kWidth = 380;
// Body margins above and below plus the gap between heading and body.
int const kFixedExtra = 24 + 8 + 24;

// As written, the doubled brace makes Qt reject the sheet; the window's
// style sheet gives the strip its blue.
char const* const kStripStyle = "#m_pTitleWinBackground{background:#356DEE;}}";
char const* const kStripTitleStyle = "#m_pTitleWin1{font-family:Noto Sans CJK SC;font-size: 16px;color: #333444;}";

} // namespace

DevicePopWin::DevicePopWin(__sDeviceMgrPopup const& info, QWidget* parent)
    : MsgMgrWinInterface(parent, QUuid::createUuid().toString())
    , m_info(info)
{
    initWin();
    initTitleWin();
    InitUIBody();
    InitUIBottom();
    initControl();
}

DevicePopWin::~DevicePopWin()
{
    unInitControl();
    BFLogPrintX(1, kModule, __FUNCTION__, __LINE__, "[DevicePopWin] delete DevicePopWin obj");
}

DevicePopSubWin* DevicePopWin::detailsWin() const
{
    return m_pSubWin.data();
}

void DevicePopWin::initWin()
{
    setObjectName(QStringLiteral("DevicePopWin"));
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(basegui::Common::readQssFile(QStringLiteral(":/qss/devicePopWin.qss")));
    setFixedWidth(kWidth);
    m_pLayout = new QVBoxLayout(this);
    m_pLayout->setSpacing(0);
    m_pLayout->setContentsMargins(0, 0, 0, 0);
}

void DevicePopWin::initTitleWin()
{
    m_pTitleWin = NoticeWinParts::createTitleWin(this, PromptTitleWin::TYPE_NORMAL, m_info.winTitle);
    m_pTitleWinBackground = new CQFrame(this);
    m_pTitleWinBackground->setObjectName(QStringLiteral("m_pTitleWinBackground"));
    m_pTitleWinBackground->setFixedSize(kWidth, 4);
    m_pTitleWinBackground->setStyleSheet(QString::fromLatin1(kStripStyle));
    m_pTitleWin1 = new CQLabel(this);
    m_pTitleWin1->setObjectName(QStringLiteral("m_pTitleWin1"));
    m_pTitleWin1->setFixedSize(308, 24);
    m_pTitleWin1->setStyleSheet(QString::fromLatin1(kStripTitleStyle));
    NoticeWinParts::setElided(m_pTitleWin1, m_info.winTitle);
    m_pBtnClose = NoticeWinParts::createCloseBtn(this);
    m_pLayout->addWidget(m_pTitleWin);
    m_pLayout->addWidget(m_pTitleWinBackground);
    m_pLayout->addLayout(NoticeWinParts::createStripRow(m_pTitleWin1, m_pBtnClose));
}

void DevicePopWin::InitUIBody()
{
    auto* body = new QVBoxLayout;
    body->setSpacing(0);
    body->setContentsMargins(24, 24, 24, 24);
    m_pLabMsgTitle = NoticeWinParts::createHeading(this);
    NoticeWinParts::setElided(m_pLabMsgTitle, m_info.title);
    m_pLabMsgContent = NoticeWinParts::createBody(this, 332, Qt::AlignLeft | Qt::AlignVCenter);
    m_pLabMsgContent->setText(m_info.content);
    NoticeWinParts::fitBodyHeight(m_pLabMsgContent);
    body->addWidget(m_pLabMsgTitle);
    body->addSpacing(8);
    body->addWidget(m_pLabMsgContent);
    m_pLayout->addLayout(body);
}

void DevicePopWin::InitUIBottom()
{
    if (!m_info.text5.isEmpty()) {
        m_pBtnText = new CQTextButton(QString::fromUtf8("设备详情"), CQTextButton::KIND_LINK, 14, this);
        m_pBtnText->setObjectName(QStringLiteral("m_pBtnText"));
        m_pBtnText->setFixedHeight(22);
    }
    m_pBtnMain = new CQButton(m_info.btnText, CQButton::KIND_PRIMARY, 12, 400, this);
    m_pBtnMain->setObjectName(QStringLiteral("m_pBtnMain"));
    m_pBtnMain->setFixedSize(104, 32);
    if (m_info.time > 0)
        m_pBtnMain->setTime(m_info.time, true);
    m_pWinBottom = NoticeWinParts::createBottom(this, m_pBtnText, m_pBtnMain);
    m_pWinBottom->setStyleSheet(QStringLiteral("#m_pWinBottom{background:transparent;}"));
    m_pLayout->addWidget(m_pWinBottom);
    adjustSize();
}

void DevicePopWin::initControl()
{
    NoticeWinParts::connectClosers(this, m_pTitleWin, m_pBtnMain, m_pBtnClose);
    if (m_pBtnText)
        connect(m_pBtnText, &QPushButton::clicked, this, &DevicePopWin::slot_textBtnAction);
}

void DevicePopWin::unInitControl()
{
    disconnect(m_pTitleWin, nullptr, this, nullptr);
    disconnect(m_pBtnMain, nullptr, this, nullptr);
    disconnect(m_pBtnClose, nullptr, this, nullptr);
    if (m_pBtnText)
        disconnect(m_pBtnText, nullptr, this, nullptr);
}

int DevicePopWin::changUIType(MsgMgrWinInterface::eUIType type)
{
    if (type != EUITYPE_ALONE && type != EUITYPE_COMPACT) {
        setFixedHeight(0);
        return 0;
    }
    bool const compact = type == EUITYPE_COMPACT;
    m_pLabMsgTitle->setFixedSize(332, 24);
    m_pLabMsgTitle->setStyleSheet(NoticeWinParts::headingStyle(type));
    m_pTitleWin->setVisible(!compact);
    m_pTitleWinBackground->setVisible(compact);
    m_pTitleWin1->setVisible(compact);
    m_pBtnClose->setVisible(compact);
    int const common = m_pLabMsgContent->height() + m_pWinBottom->height() + kFixedExtra;
    // The compact sum counts the hidden title window and not the heading; the
    // message manager's stacking was tuned to these heights.
    if (compact)
        setFixedHeight(m_pTitleWinBackground->height() + m_pTitleWin1->height() + m_pTitleWin->height() + common);
    else
        setFixedHeight(m_pTitleWin->height() + m_pLabMsgTitle->height() + common);
    MsgMgrWinInterface::changUIType(type);
    return 0;
}

void DevicePopWin::slot_textBtnAction()
{
    if (!m_pSubWin) {
        m_pSubWin = new DevicePopSubWin(m_info.winTitle, m_info.text5, nullptr);
        connect(m_pSubWin, &QObject::destroyed, this, [this]() { m_pSubWin = nullptr; });
    }
    m_pSubWin->show();
}
