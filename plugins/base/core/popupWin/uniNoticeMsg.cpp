#include "uniNoticeMsg.h"

#include "basegui_common.h"
#include "clogdebug.h"
#include "cqbutton.h"
#include "cqframe.h"
#include "cqlabel.h"
#include "cqtextbutton.h"
#include "cqtitlebuttons.h"
#include "framelinkproxy.h"
#include "noticeWinParts.h"
#include "prompttitlewin.h"

#include <QDesktopServices>
#include <QHBoxLayout>
#include <QUrl>
#include <QVBoxLayout>

namespace {

char const* const kModule = "plugins/base/core/popupWin/uniNoticeMsg";
int const kWidth = 380;
int const kLevelUrgent = 2;
int const kJumpUrl = 0;
int const kJumpPage = 1;

char const* const kStripUrgent =
    "#m_pTitleWin1{background:qlineargradient(x1:1, y1:0, x2:0, y2:0, stop:0 #f37344, stop:1 #fc2f3d);}";
// The second closing brace makes Qt reject this sheet; the window's own style
// sheet then gives the strip the same blue.
char const* const kStripNormal = "#m_pTitleWin1{background:#356DEE;}}";
char const* const kStripTitleStyle = "#m_pLabelMsgTitle1{font-family:Noto Sans CJK SC;font-size: 16px;color: #333444;}";

// Web pages only: a notice must not make the desktop run a file or a
// handler of some other scheme.
bool openWebUrl(QString const& target)
{
    QUrl const url(target, QUrl::StrictMode);
    QString const scheme = url.scheme().toLower();
    if (!url.isValid() || (scheme != QLatin1String("http") && scheme != QLatin1String("https")) || url.host().isEmpty()) {
        BFLogPrintX(3, kModule, "openWebUrl", __LINE__, "[UniNoticeMsg] url [%s] refused, only http and https are opened",
                    qUtf8Printable(target.left(256)));
        return false;
    }
    return QDesktopServices::openUrl(url);
}

} // namespace

class UniNoticeMsgPrivate
{
public:
    explicit UniNoticeMsgPrivate(UniNoticeMsg* q, __sUniNoticeMsgInfo const& info);
    ~UniNoticeMsgPrivate();

    void InitUIWin();
    void InitUITitle();
    void InitUIBody();
    void InitUIBottom();

    QVBoxLayout* m_pLayout = nullptr;
    PromptTitleWin* m_pTitleWin = nullptr;
    CQLabel* m_pLabMsgTitle = nullptr;
    CQLabel* m_pLabMsgContent = nullptr;
    CQButton* m_pBtnMain = nullptr;
    CQTextButton* m_pBtnText = nullptr;
    CQFrame* m_pWinBottom = nullptr;
    CQFrame* m_pTitleWin1 = nullptr;
    CQLabel* m_pLabelMsgTitle1 = nullptr;
    CQCloseBtn* m_pBtnClose = nullptr;
    __sUniNoticeMsgInfo m_info;
    UniNoticeMsg* q_ptr = nullptr;
};

UniNoticeMsgPrivate::UniNoticeMsgPrivate(UniNoticeMsg* q, __sUniNoticeMsgInfo const& info)
    : m_info(info)
    , q_ptr(q)
{
}

UniNoticeMsgPrivate::~UniNoticeMsgPrivate()
{
    BFLogPrintX(1, kModule, __FUNCTION__, __LINE__, "[UniNoticeMsgPrivate] delete UniNoticeMsgPrivate obj");
}

void UniNoticeMsgPrivate::InitUIWin()
{
    q_ptr->setObjectName(QStringLiteral("UniNoticeMsg"));
    q_ptr->setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    q_ptr->setAttribute(Qt::WA_DeleteOnClose);
    q_ptr->setAttribute(Qt::WA_StyledBackground);
    q_ptr->setStyleSheet(basegui::Common::readQssFile(QStringLiteral(":/qss/uniNoticeMsg.qss")));
    q_ptr->setFixedWidth(kWidth);
    m_pLayout = new QVBoxLayout(q_ptr);
    m_pLayout->setContentsMargins(0, 0, 0, 0);
    m_pLayout->setSpacing(12);
}

void UniNoticeMsgPrivate::InitUITitle()
{
    m_pTitleWin = NoticeWinParts::createTitleWin(q_ptr, PromptTitleWin::TYPE_NORMAL, m_info.text2);
    m_pTitleWin1 = new CQFrame(q_ptr);
    m_pTitleWin1->setObjectName(QStringLiteral("m_pTitleWin1"));
    m_pTitleWin1->setFixedSize(kWidth, 4);
    m_pLabelMsgTitle1 = new CQLabel(q_ptr);
    m_pLabelMsgTitle1->setObjectName(QStringLiteral("m_pLabelMsgTitle1"));
    m_pLabelMsgTitle1->setFixedSize(308, 24);
    m_pLabelMsgTitle1->setStyleSheet(QString::fromLatin1(kStripTitleStyle));
    m_pBtnClose = NoticeWinParts::createCloseBtn(q_ptr);
    m_pLayout->addWidget(m_pTitleWin);
    m_pLayout->addWidget(m_pTitleWin1);
    m_pLayout->addLayout(NoticeWinParts::createStripRow(m_pLabelMsgTitle1, m_pBtnClose));
}

void UniNoticeMsgPrivate::InitUIBody()
{
    auto* body = new QVBoxLayout;
    body->setContentsMargins(24, 0, 24, 0);
    body->setSpacing(8);
    m_pLabMsgTitle = NoticeWinParts::createHeading(q_ptr);
    m_pLabMsgContent = NoticeWinParts::createBody(q_ptr, 332, Qt::AlignLeft | Qt::AlignVCenter);
    body->addWidget(m_pLabMsgTitle);
    body->addWidget(m_pLabMsgContent);
    m_pLayout->addLayout(body);
}

void UniNoticeMsgPrivate::InitUIBottom()
{
    m_pBtnMain = new CQButton(CQButton::KIND_SECONDARY, 12, 400, q_ptr);
    m_pBtnMain->setObjectName(QStringLiteral("m_pBtnMain"));
    m_pBtnMain->setFixedSize(72, 24);
    m_pBtnText = new CQTextButton(CQTextButton::KIND_LINK, 14, q_ptr);
    m_pBtnText->setObjectName(QStringLiteral("m_pBtnText"));
    m_pWinBottom = new CQFrame(q_ptr);
    m_pWinBottom->setObjectName(QStringLiteral("m_pWinBottom"));
    m_pWinBottom->setFixedSize(kWidth, 60);
    auto* row = new QHBoxLayout(m_pWinBottom);
    row->setContentsMargins(24, 24, 24, 24);
    row->setSpacing(0);
    row->addWidget(m_pBtnText);
    row->addStretch();
    row->addWidget(m_pBtnMain);
    m_pLayout->addWidget(m_pWinBottom);
}

UniNoticeMsg::UniNoticeMsg(__sUniNoticeMsgInfo info, QWidget* parent)
    : MsgMgrWinInterface(parent, info.id)
    , d_ptr(new UniNoticeMsgPrivate(this, info))
{
    Q_D(UniNoticeMsg);
    d->InitUIWin();
    d->InitUITitle();
    d->InitUIBody();
    d->InitUIBottom();
    adjustSize();
    changUIType(EUITYPE_ALONE);
    InitControl();
    updateInfo(info);
}

UniNoticeMsg::~UniNoticeMsg()
{
    delete d_ptr;
    d_ptr = nullptr;
    BFLogPrintX(1, kModule, __FUNCTION__, __LINE__, "[UniNoticeMsg] delete UniNoticeMsg obj");
}

QString UniNoticeMsg::buttonCaption(int code)
{
    switch (code) {
    case 1: return QString::fromUtf8("停止");
    case 2: return QString::fromUtf8("完成");
    case 3: return QString::fromUtf8("知道了");
    case 4: return QString::fromUtf8("查看详情");
    case 5: return QString::fromUtf8("运行");
    case 6: return QString::fromUtf8("取消");
    default: return QString::fromUtf8("未知");
    }
}

int UniNoticeMsg::changUIType(MsgMgrWinInterface::eUIType type)
{
    Q_D(UniNoticeMsg);
    if (type == EUITYPE_ALONE || type == EUITYPE_COMPACT) {
        bool const compact = type == EUITYPE_COMPACT;
        d->m_pLabMsgTitle->setStyleSheet(NoticeWinParts::headingStyle(type));
        d->m_pLabMsgTitle->setFixedSize(332, 24);
        d->m_pTitleWin->setVisible(!compact);
        d->m_pTitleWin1->setVisible(compact);
        d->m_pLabelMsgTitle1->setVisible(compact);
        d->m_pBtnClose->setVisible(compact);
        MsgMgrWinInterface::changUIType(type);
    }
    adjustSize();
    return 0;
}

int UniNoticeMsg::updateInfo(__sUniNoticeMsgInfo info)
{
    Q_D(UniNoticeMsg);
    d->m_info = info;
    bool const urgent = static_cast<qint32>(info.value1) == kLevelUrgent;
    int const titleType = urgent ? PromptTitleWin::TYPE_URGENT : PromptTitleWin::TYPE_NORMAL;
    d->m_pTitleWin1->setStyleSheet(QString::fromLatin1(urgent ? kStripUrgent : kStripNormal));
    d->m_pTitleWin->setParas(titleType, info.text2, false, true);
    if (!info.text1.isEmpty())
        NoticeWinParts::setElided(d->m_pLabMsgTitle, info.text1);
    else
        d->m_pLabMsgTitle->hide();
    NoticeWinParts::setElided(d->m_pLabelMsgTitle1, info.text2);
    d->m_pLabMsgContent->setText(info.text3);
    NoticeWinParts::fitBodyHeight(d->m_pLabMsgContent);
    d->m_pBtnText->setText(info.text4);
    d->m_pBtnMain->setText(buttonCaption(info.number2));
    if (info.number1 > 0)
        d->m_pBtnMain->setTime(info.number1, true);
    if (info.number4 == kJumpPage || info.number4 == kJumpUrl)
        connectJump();
    adjustSize();
    return 0;
}

// Qt cannot tell two function objects apart, so asking for a unique
// connection still adds one per update: a notice updated twice with a jump
// jumps twice per click. Senders rely on that count, so it stays.
void UniNoticeMsg::connectJump()
{
    int const kind = d_ptr->m_info.number4;
    connect(d_ptr->m_pBtnText, &QPushButton::clicked, this, [this, kind]() {
        QString const target = d_ptr->m_info.text5;
        if (kind == kJumpPage)
            FrameLinkProxy::singleInstance()->gotoPageByObjName(target);
        else
            openWebUrl(target);
    }, Qt::UniqueConnection);
}

void UniNoticeMsg::InitControl()
{
    Q_D(UniNoticeMsg);
    NoticeWinParts::connectClosers(this, d->m_pTitleWin, d->m_pBtnMain, d->m_pBtnClose);
}
