#include "baseTestOrderPage.h"

#include "basepluginmodeldatainterface.h"
#include "clogdebug.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>

namespace {

constexpr char kLogModule[] = "plugins/base/core/baseTestWin/baseTestOrderPage";
// The order is carried out when its count-down ends; without one the window
// would wait for ever.
constexpr int kMinOrderSeconds = 1;
constexpr int kDefaultOrderSeconds = 60;

BasePluginModelDataInterface* bridge()
{
    return BasePluginModelDataInterface::singleInstance();
}

} // namespace

BaseTestOrderPage::BaseTestOrderPage(QWidget* parent)
    : BaseTestPage(QStringLiteral("BaseTestOrderPage"), QString::fromUtf8("后台指令"), parent)
{
    InitUIPower();
    InitUIPrompt();
    InitUIJump();
    InitUIWindow();
    InitUIWeakPasswd();
}

BaseTestOrderPage::~BaseTestOrderPage() = default;

void BaseTestOrderPage::InitUIPower()
{
    QFormLayout* form = addEvent(QStringLiteral("m_pBoxPower"), QString::fromUtf8("关机或重启指令"), Check(), [this]() {
        emit bridge()->sig_shutdown_reboot_notice(chosenValue(m_pComboPowerMethod), m_pSpinPowerTime->value());
    });
    Choices const methods{{QString::fromUtf8("关机"), EDEVMGR_SHUTDOWN},
                          {QString::fromUtf8("强制关机"), EDEVMGR_SHUTDOWN_FORCE},
                          {QString::fromUtf8("重启"), EDEVMGR_REBOOT}};
    m_pComboPowerMethod = addChoice(form, QStringLiteral("m_pComboPowerMethod"), QString::fromUtf8("方式"), methods,
                                    EDEVMGR_REBOOT);
    m_pSpinPowerTime = addNumber(form, QStringLiteral("m_pSpinPowerTime"), QString::fromUtf8("倒计时（秒）"),
                                 kMinOrderSeconds, kMaxSeconds, kDefaultOrderSeconds);
    addHint(form, QString::fromUtf8("模拟后台只记录执行结果，不会真的关机或重启。"));
}

void BaseTestOrderPage::InitUIPrompt()
{
    QFormLayout* form = addEvent(QStringLiteral("m_pBoxPrompt"), QString::fromUtf8("后台提示"), Check(),
                                 [this]() { emit bridge()->sig_noticeWin(prompt()); });
    // The kinds the prompt window shows for each type; 1 and 2 swap on purpose.
    Choices const types{{QString::fromUtf8("0 信息"), 0},
                        {QString::fromUtf8("1 警告"), 1},
                        {QString::fromUtf8("2 成功"), 2},
                        {QString::fromUtf8("3 错误"), 3},
                        {QString::fromUtf8("4 紧急"), 4}};
    m_pComboPromptType = addChoice(form, QStringLiteral("m_pComboPromptType"), QString::fromUtf8("类型"), types, 0);
    m_pEditPromptText1 = addLine(form, QStringLiteral("m_pEditPromptText1"), QString::fromUtf8("标题"),
                                 QString::fromUtf8("后台提示"), kTextChars);
    m_pEditPromptText2 = addText(form, QStringLiteral("m_pEditPromptText2"), QString::fromUtf8("正文"),
                                 QString::fromUtf8("这是一条来自开发者测试窗口的提示。"), kTextChars);
    m_pEditPromptText3 = addText(form, QStringLiteral("m_pEditPromptText3"), QString::fromUtf8("补充说明"), QString(),
                                 kTextChars);
    m_pEditPromptText4 = addText(form, QStringLiteral("m_pEditPromptText4"), QString::fromUtf8("详情"), QString(),
                                 kTextChars);
}

void BaseTestOrderPage::InitUIJump()
{
    QFormLayout* form = addEvent(
        QStringLiteral("m_pBoxJump"), QString::fromUtf8("页面跳转"),
        [this]() {
            QString const reason = checkObjectName(m_pEditJumpPage->text());
            return reason.isEmpty() ? reason : QString::fromUtf8("页面对象名") + reason;
        },
        [this]() { emit bridge()->sig_Jump(m_pEditJumpPage->text()); });
    m_pEditJumpPage = addLine(form, QStringLiteral("m_pEditJumpPage"), QString::fromUtf8("页面对象名"),
                              QStringLiteral("SettingCentreWidget"), kObjectNameChars);
}

void BaseTestOrderPage::InitUIWindow()
{
    QFormLayout* form = addEvent(QStringLiteral("m_pBoxWindow"), QString::fromUtf8("主窗口与托盘"), Check(),
                                 [this]() { emitWindowEvent(); });
    Choices const events{{QString::fromUtf8("显示主窗口"), WINDOW_CENTER_SHOW},
                         {QString::fromUtf8("隐藏主窗口"), WINDOW_HIDE},
                         {QString::fromUtf8("托盘菜单弹出"), WINDOW_TRAY_POP_SHOW},
                         {QString::fromUtf8("托盘菜单收起"), WINDOW_TRAY_POP_HIDE},
                         {QString::fromUtf8("退出客户端"), WINDOW_APP_QUIT}};
    m_pComboWindowEvent = addChoice(form, QStringLiteral("m_pComboWindowEvent"), QString::fromUtf8("事件"), events,
                                    WINDOW_CENTER_SHOW);
}

void BaseTestOrderPage::InitUIWeakPasswd()
{
    QFormLayout* form = addEvent(QStringLiteral("m_pBoxWeakPasswd"), QString::fromUtf8("弱口令检查回执"), Check(),
                                 []() { emit bridge()->sig_weakPasswdCheckRecieved(); });
    addHint(form, QString::fromUtf8("后台确认已收到弱口令检查请求，静默启动后的重复请求随之停止。"));
}

void BaseTestOrderPage::emitWindowEvent() const
{
    BasePluginModelDataInterface* const b = bridge();
    switch (chosenValue(m_pComboWindowEvent)) {
    case WINDOW_CENTER_SHOW:
        emit b->sig_centerShow();
        break;
    case WINDOW_HIDE:
        emit b->sig_hide();
        break;
    case WINDOW_TRAY_POP_SHOW:
        emit b->sig_trayPopShow();
        break;
    case WINDOW_TRAY_POP_HIDE:
        emit b->sig_trayPopHide();
        break;
    case WINDOW_APP_QUIT:
        BFLogPrintX(BFLOG_INFO, kLogModule, __FUNCTION__, __LINE__, "[BaseTestOrderPage] quit requested from the test window");
        emit b->sig_appQuit();
        break;
    default:
        break;
    }
}

_sNoticeWinInfo_ BaseTestOrderPage::prompt() const
{
    _sNoticeWinInfo_ info;
    info.noticeType = chosenValue(m_pComboPromptType);
    info.text1 = m_pEditPromptText1->text();
    info.text2 = m_pEditPromptText2->toPlainText();
    info.text3 = m_pEditPromptText3->toPlainText();
    info.text4 = m_pEditPromptText4->toPlainText();
    return info;
}
