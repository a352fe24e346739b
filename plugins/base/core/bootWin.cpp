#include "bootWin.h"

#include "basegui_common.h"
#include "clogdebug.h"
#include "cqbutton.h"
#include "cqframe.h"
#include "cqlabel.h"
#include "cqnoticeicon.h"
#include "prompttitlewin.h"

#include <QKeyEvent>
#include <QUuid>

namespace {

char const* const kModule = "plugins/base/core/bootWin";
// Fixed: the order comes from the administrator of this product, whatever
// the branding says.
char const* const kProductName = "Quorix终端安全管理系统";

struct MethodTexts
{
    char const* title;
    char const* content;
    char const* action;
};

MethodTexts const kShutdownTexts = {
    "管理员已下发关机指令，请及时保存资料",
    "点击“关机”后，计算机将立即关机。若想撤销关机指令，请点击“拒绝指令”，否则倒计时结束后将自动关机。",
    "关机",
};
MethodTexts const kRebootTexts = {
    "管理员已下发重启指令，请及时保存资料",
    "点击“重启”后，将立即重启计算机。若想撤销本次远程重启指令，请点击“拒绝指令”，否则倒计时结束后将自动重启。",
    "重启",
};

} // namespace

BootWin::BootWin(QWidget* parent)
    : MsgMgrWinInterface(parent, QUuid::createUuid().toString())
{
    qRegisterMetaType<eDevMgr>("eDevMgr");
    InitUIWin();
    InitUIBody();
    InitControl();
}

BootWin::~BootWin()
{
    BFLogPrintX(1, kModule, __FUNCTION__, __LINE__, "[BootWin] delete BootWin obj");
}

void BootWin::InitUIWin()
{
    setObjectName(QStringLiteral("BootWin"));
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint);
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(basegui::Common::readQssFile(QStringLiteral(":/qss/bootWin.qss")));
    setFixedSize(380, 260);
    setWindowTitle(QString::fromUtf8(kProductName));
    m_pTitleWin = new PromptTitleWin(this);
    m_pTitleWin->setFixedSize(378, 55);
    m_pTitleWin->move(1, 1);
    m_pTitleWin->setParas(PromptTitleWin::TYPE_URGENT, QString::fromUtf8(kProductName), false, true);
}

void BootWin::InitUIBody()
{
    m_pBodyWin = new CQFrame(this);
    m_pBodyWin->setObjectName(QStringLiteral("m_pBodyWin"));
    m_pBodyWin->setGeometry(1, 56, 378, 203);
    auto* icon = new CQNoticeIcon(CQNoticeIcon::ICON_URGENT, m_pBodyWin);
    icon->setGeometry(24, 24, 24, 24);
    m_pLabTitle = new CQLabel(m_pBodyWin);
    m_pLabTitle->setObjectName(QStringLiteral("m_pLabTitle"));
    m_pLabTitle->setGeometry(64, 24, 312, 24);
    m_pLabContent = new CQLabel(m_pBodyWin);
    m_pLabContent->setObjectName(QStringLiteral("m_pLabContent"));
    m_pLabContent->setTextFormat(Qt::PlainText);
    m_pLabContent->setWordWrap(true);
    m_pLabContent->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_pLabContent->setGeometry(64, 60, 292, 64);
    m_pBtnBoot = new CQButton(CQButton::KIND_PRIMARY, 14, 400, m_pBodyWin);
    m_pBtnBoot->setObjectName(QStringLiteral("m_pBtnBoot"));
    m_pBtnBoot->setGeometry(258, 148, 88, 32);
    m_pBtnReject = new CQButton(QString::fromUtf8("拒绝指令"), CQButton::KIND_SECONDARY, 14, 400, m_pBodyWin);
    m_pBtnReject->setObjectName(QStringLiteral("m_pBtnReject"));
    m_pBtnReject->setGeometry(158, 148, 88, 32);
}

void BootWin::InitControl()
{
    connect(m_pBtnReject, &CQButton::clicked, this, &BootWin::slot_reject);
    connect(m_pTitleWin, &PromptTitleWin::sig_close_btn_clicked, this, &BootWin::slot_reject);
    connect(m_pBtnBoot, &CQButton::clicked, this, &BootWin::slot_boot);
    connect(m_pBtnBoot, &CQButton::sig_time_is_zero, this, &BootWin::slot_boot);
}

void BootWin::setMethod(eDevMgr method)
{
    m_method = method;
    MethodTexts const* texts = nullptr;
    if (method == EDEVMGR_SHUTDOWN || method == EDEVMGR_SHUTDOWN_FORCE)
        texts = &kShutdownTexts;
    else if (method == EDEVMGR_REBOOT)
        texts = &kRebootTexts;
    if (!texts)
        return;
    CQLabel::LabelWidthAdjustText(m_pLabTitle, QString::fromUtf8(texts->title));
    m_pLabContent->setText(QString::fromUtf8(texts->content));
    m_pBtnBoot->setText(QString::fromUtf8(texts->action));
}

eDevMgr BootWin::method() const
{
    return m_method;
}

void BootWin::setTime(int seconds)
{
    m_pBtnBoot->setTime(seconds, true);
}

int BootWin::changUIType(MsgMgrWinInterface::eUIType type)
{
    if (m_method == -1) {
        BFLogPrintX(4, kModule, __FUNCTION__, __LINE__, "[BootWin] m_method [%d] not support", int(m_method));
        return -1;
    }
    if (type == EUITYPE_ALONE) {
        setFixedSize(380, 260);
        m_pTitleWin->show();
        m_pBodyWin->move(1, 56);
    } else if (type == EUITYPE_COMPACT) {
        m_pTitleWin->hide();
        m_pBodyWin->move(1, 1);
        setFixedSize(380, 204);
    } else {
        return 0;
    }
    MsgMgrWinInterface::changUIType(type);
    return 0;
}

void BootWin::setCountdownPaused(bool paused)
{
    Q_UNUSED(paused);
}

void BootWin::slot_reject()
{
    if (m_answered)
        return;
    m_answered = true;
    emit sig_reject();
    close();
}

void BootWin::slot_boot()
{
    if (m_answered)
        return;
    m_answered = true;
    emit sig_boot(m_method);
    close();
}

void BootWin::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        event->accept();
        return;
    }
    MsgMgrWinInterface::keyPressEvent(event);
}
