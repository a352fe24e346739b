#include "baseTestStatusPage.h"

#include "basepluginmodeldatainterface.h"
#include "messagecenterpluginmodeldatainterface.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QSpinBox>

namespace {

constexpr int kDefaultGuardDays = 365;
constexpr int kDefaultUnread = 3;

BasePluginModelDataInterface* bridge()
{
    return BasePluginModelDataInterface::singleInstance();
}

} // namespace

BaseTestStatusPage::BaseTestStatusPage(QWidget* parent)
    : BaseTestPage(QStringLiteral("BaseTestStatusPage"), QString::fromUtf8("状态数据"), parent)
{
    InitUIGuardDays();
    InitUIBaseInfo();
    InitUIVersions();
    InitUIMessageCenter();
}

BaseTestStatusPage::~BaseTestStatusPage() = default;

void BaseTestStatusPage::InitUIGuardDays()
{
    QFormLayout* form = addEvent(QStringLiteral("m_pBoxGuardDays"), QString::fromUtf8("保护天数"), Check(), [this]() {
        emit bridge()->sig_CumulativeGuardDays(static_cast<unsigned int>(m_pSpinGuardDays->value()));
    });
    m_pSpinGuardDays = addNumber(form, QStringLiteral("m_pSpinGuardDays"), QString::fromUtf8("天数"), 0, kMaxGuardDays,
                                 kDefaultGuardDays);
    addHint(form, QString::fromUtf8("显示在托盘菜单的“已保护您的电脑 N 天”中。"));
}

void BaseTestStatusPage::InitUIBaseInfo()
{
    QFormLayout* form = addEvent(
        QStringLiteral("m_pBoxBaseInfo"), QString::fromUtf8("基础信息"), [this]() { return checkBaseInfo(); },
        [this]() {
            __sBaseModuleBaseInfo info;
            if (baseInfo(info))
                emit bridge()->sig_base_info(info);
        });
    m_pEditBaseInfo = addLine(form, QStringLiteral("m_pEditBaseInfo"), QString::fromUtf8("信息字"), QStringLiteral("0"),
                              kLineChars);
    m_pEditBaseInfo->setPlaceholderText(QString::fromUtf8("十进制，或以 0x 开头的十六进制"));
    addHint(form, QString::fromUtf8("低 32 位为标题栏的云脑天数，首页显示整个数值。"));
}

void BaseTestStatusPage::InitUIVersions()
{
    QFormLayout* client = addEvent(QStringLiteral("m_pBoxClientVersion"), QString::fromUtf8("客户端版本"), Check(),
                                   [this]() { emit bridge()->sig_setClientVersionInfo(m_pEditClientVersion->text()); });
    m_pEditClientVersion = addLine(client, QStringLiteral("m_pEditClientVersion"), QString::fromUtf8("版本"),
                                   QStringLiteral("10.0.2.7550"), kVersionChars);
    QFormLayout* virus = addEvent(QStringLiteral("m_pBoxVirusVersion"), QString::fromUtf8("病毒库版本"), Check(),
                                  [this]() { emit bridge()->sig_setVirusDataVersionInfo(m_pEditVirusVersion->text()); });
    m_pEditVirusVersion = addLine(virus, QStringLiteral("m_pEditVirusVersion"), QString::fromUtf8("版本"),
                                  QStringLiteral("2026.01.15.001"), kVersionChars);
}

void BaseTestStatusPage::InitUIMessageCenter()
{
    QFormLayout* form = addEvent(QStringLiteral("m_pBoxUnread"), QString::fromUtf8("消息中心"), Check(), [this]() {
        emit MessageCenterPluginModelDataInterface::singleInstance()->sig_unreadMsgCount(m_pSpinUnread->value());
    });
    m_pSpinUnread = addNumber(form, QStringLiteral("m_pSpinUnread"), QString::fromUtf8("未读消息数"), 0, kMaxUnread,
                              kDefaultUnread);
}

bool BaseTestStatusPage::baseInfo(__sBaseModuleBaseInfo& info) const
{
    QString text = m_pEditBaseInfo->text().trimmed();
    // Not base 0: a leading zero would silently make the number octal.
    int base = 10;
    if (text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive)) {
        text = text.mid(2);
        base = 16;
    }
    bool ok = false;
    qulonglong const value = text.toULongLong(&ok, base);
    if (ok)
        info.value = value;
    return ok;
}

QString BaseTestStatusPage::checkBaseInfo() const
{
    __sBaseModuleBaseInfo info;
    return baseInfo(info) ? QString() : QString::fromUtf8("信息字不是 0 到 18446744073709551615 之间的整数");
}
