#include "baseTestPopupPage.h"

#include "basepluginmodeldatainterface.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>

namespace {

constexpr int kMaxLevel = int(ControlRequestCheck::kMaxLevel);
constexpr int kMaxButtonCode = ControlRequestCheck::kMaxButtonCode;
// Not read by the notice window; any value passes through.
constexpr int kMaxNumber3 = 999999;
constexpr int kJumpNone = ControlRequestCheck::kJumpNone;
constexpr int kJumpUrl = ControlRequestCheck::kJumpUrl;
constexpr int kJumpPage = ControlRequestCheck::kJumpPage;

BasePluginModelDataInterface* bridge()
{
    return BasePluginModelDataInterface::singleInstance();
}

} // namespace

BaseTestPopupPage::BaseTestPopupPage(QWidget* parent)
    : BaseTestPage(QStringLiteral("BaseTestPopupPage"), QString::fromUtf8("弹窗通知"), parent)
{
    InitUINotice();
    InitUIDevice();
}

BaseTestPopupPage::~BaseTestPopupPage() = default;

void BaseTestPopupPage::InitUINotice()
{
    __sUniNoticeMsgInfo const defaults;
    QFormLayout* form = addEvent(
        QStringLiteral("m_pBoxNotice"), QString::fromUtf8("统一通知"), [this]() { return checkNotice(); },
        [this]() { emit bridge()->sig_UniNotifyMsg(notice()); });
    m_pEditNoticeId = addLine(form, QStringLiteral("m_pEditNoticeId"), QString::fromUtf8("通知 ID"), QString(), kIdChars);
    m_pEditNoticeId->setPlaceholderText(QString::fromUtf8("留空则每次都是新通知"));
    m_pSpinNoticeLevel = addNumber(form, QStringLiteral("m_pSpinNoticeLevel"), QString::fromUtf8("级别（2 紧急）"), 0,
                                   kMaxLevel, int(defaults.value1));
    m_pEditNoticeHeading = addLine(form, QStringLiteral("m_pEditNoticeHeading"), QString::fromUtf8("正文标题"),
                                   QString(), kLineChars);
    m_pEditNoticeTitle = addLine(form, QStringLiteral("m_pEditNoticeTitle"), QString::fromUtf8("窗口标题"),
                                 QString::fromUtf8("测试通知"), kLineChars);
    m_pSpinNoticeCountDown = addNumber(form, QStringLiteral("m_pSpinNoticeCountDown"), QString::fromUtf8("倒计时（秒）"),
                                       kMinSeconds, kMaxSeconds, defaults.number1);
    m_pSpinNoticeButton = addNumber(form, QStringLiteral("m_pSpinNoticeButton"), QString::fromUtf8("主按钮代码"), 0,
                                    kMaxButtonCode, defaults.number2);
    m_pSpinNoticeButton->setToolTip(QString::fromUtf8("1 停止，2 完成，3 知道了，4 查看详情，5 运行，6 取消，其他 未知"));
    m_pEditNoticeBody = addText(form, QStringLiteral("m_pEditNoticeBody"), QString::fromUtf8("正文"),
                                QString::fromUtf8("这是一条来自开发者测试窗口的通知。"), kTextChars);
    m_pSpinNoticeNumber3 = addNumber(form, QStringLiteral("m_pSpinNoticeNumber3"), QString::fromUtf8("备用数值"), -1,
                                     kMaxNumber3, defaults.number3);
    InitUINoticeJump(form);
}

void BaseTestPopupPage::InitUINoticeJump(QFormLayout* form)
{
    m_pEditNoticeLinkText = addLine(form, QStringLiteral("m_pEditNoticeLinkText"), QString::fromUtf8("链接文字"),
                                    QString(), kLineChars);
    Choices const kinds{{QString::fromUtf8("无"), kJumpNone},
                        {QString::fromUtf8("打开网址"), kJumpUrl},
                        {QString::fromUtf8("打开页面"), kJumpPage}};
    m_pComboNoticeJumpKind = addChoice(form, QStringLiteral("m_pComboNoticeJumpKind"), QString::fromUtf8("跳转方式"),
                                       kinds, kJumpNone);
    m_pEditNoticeTarget = addLine(form, QStringLiteral("m_pEditNoticeTarget"), QString::fromUtf8("跳转目标"), QString(),
                                  kUrlChars);
    m_pEditNoticeTarget->setPlaceholderText(QString::fromUtf8("https://… 或页面对象名，如 SettingCentreWidget"));
}

void BaseTestPopupPage::InitUIDevice()
{
    __sDeviceMgrPopup const defaults;
    QFormLayout* form = addEvent(QStringLiteral("m_pBoxDevice"), QString::fromUtf8("设备弹窗"), Check(),
                                 [this]() { emit bridge()->sig_device_mgr_msg(devicePopup()); });
    m_pEditDeviceWinTitle = addLine(form, QStringLiteral("m_pEditDeviceWinTitle"), QString::fromUtf8("窗口标题"),
                                    QString::fromUtf8("设备管控"), kLineChars);
    m_pEditDeviceTitle = addLine(form, QStringLiteral("m_pEditDeviceTitle"), QString::fromUtf8("正文标题"),
                                 QString::fromUtf8("U 盘已被禁用"), kLineChars);
    m_pEditDeviceContent = addText(form, QStringLiteral("m_pEditDeviceContent"), QString::fromUtf8("正文"),
                                   QString::fromUtf8("请联系管理员。"), kTextChars);
    m_pEditDeviceBtnText = addLine(form, QStringLiteral("m_pEditDeviceBtnText"), QString::fromUtf8("按钮文字"),
                                   QString(), kLineChars);
    m_pEditDeviceBtnText->setPlaceholderText(QString::fromUtf8("留空显示“知道了”"));
    m_pSpinDeviceTime = addNumber(form, QStringLiteral("m_pSpinDeviceTime"), QString::fromUtf8("倒计时（秒）"),
                                  kMinSeconds, kMaxSeconds, defaults.time);
    m_pEditDeviceDetails = addText(form, QStringLiteral("m_pEditDeviceDetails"), QString::fromUtf8("设备详情"), QString(),
                                   kTextChars);
}

// The target is read only for the jump kind chosen; without a jump it is
// passed on unread, within its cap.
QString BaseTestPopupPage::checkNotice() const
{
    QString const target = m_pEditNoticeTarget->text();
    QString reason;
    switch (chosenValue(m_pComboNoticeJumpKind)) {
    case kJumpUrl:
        reason = checkWebAddress(target);
        break;
    case kJumpPage:
        reason = checkObjectName(target);
        break;
    default:
        break;
    }
    return reason.isEmpty() ? reason : QString::fromUtf8("跳转目标") + reason;
}

__sUniNoticeMsgInfo BaseTestPopupPage::notice() const
{
    __sUniNoticeMsgInfo info;
    info.id = m_pEditNoticeId->text();
    info.value1 = m_pSpinNoticeLevel->value();
    info.text1 = m_pEditNoticeHeading->text();
    info.text2 = m_pEditNoticeTitle->text();
    info.number1 = m_pSpinNoticeCountDown->value();
    info.number2 = m_pSpinNoticeButton->value();
    info.text3 = m_pEditNoticeBody->toPlainText();
    info.number3 = m_pSpinNoticeNumber3->value();
    info.text4 = m_pEditNoticeLinkText->text();
    info.text5 = m_pEditNoticeTarget->text();
    info.number4 = chosenValue(m_pComboNoticeJumpKind);
    return info;
}

__sDeviceMgrPopup BaseTestPopupPage::devicePopup() const
{
    __sDeviceMgrPopup info;
    info.winTitle = m_pEditDeviceWinTitle->text();
    info.title = m_pEditDeviceTitle->text();
    info.content = m_pEditDeviceContent->toPlainText();
    info.btnText = m_pEditDeviceBtnText->text();
    info.time = m_pSpinDeviceTime->value();
    info.text5 = m_pEditDeviceDetails->toPlainText();
    return info;
}
