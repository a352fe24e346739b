#include "backendControlService.h"

#include "bridgerecords.h"
#include "clogdebug.h"
#include "controlrequestcheck.h"
#include "quorixbackend.h"
#include "quorixbackendregistry.h"

#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusReply>

#include <memory>

namespace {

char const* const kModule = "plugins/bridge/backendControlService";

// A caller's unique name, for the log: who raised the event.
QString callerName(QDBusContext const& context)
{
    return context.calledFromDBus() ? context.message().service() : QStringLiteral("in-process");
}

} // namespace

BackendControlService::BackendControlService(QDBusConnection connection, QObject* parent)
    : QObject(parent)
    , m_connection(std::move(connection))
{
}

BackendControlService::~BackendControlService()
{
    stop();
    BFLOG(BFLOG_DEBUG, kModule, "[BackendControlService] delete BackendControlService obj");
}

bool BackendControlService::isRunning() const
{
    return m_running;
}

void BackendControlService::logUnavailable(QString const& reason)
{
    BFLOG(BFLOG_WARN, kModule, "[BackendControlService] control service unavailable: %s", qUtf8Printable(reason));
}

bool BackendControlService::start()
{
    if (m_running)
        return true;
    if (!m_connection.isConnected()) {
        QString const why = m_connection.lastError().message();
        logUnavailable(QStringLiteral("no session bus (%1)").arg(why.isEmpty() ? QStringLiteral("not connected") : why));
        return false;
    }
    QString const name = QLatin1String(QuorixControl::kServiceName);
    QString const path = QLatin1String(QuorixControl::kObjectPath);
    // The object first: whoever sees the name appear can call it at once.
    if (!m_connection.registerObject(path, this, QDBusConnection::ExportScriptableSlots)) {
        logUnavailable(QStringLiteral("object path %1 is already in use in this process").arg(path));
        return false;
    }
    if (!m_connection.registerService(name)) {
        QDBusReply<QString> const owner = m_connection.interface()->serviceOwner(name);
        logUnavailable(owner.isValid()
                           ? QStringLiteral("name %1 is already owned by %2 (another client is running)").arg(name, owner.value())
                           : QStringLiteral("name %1 not granted (%2)").arg(name, m_connection.lastError().message()));
        m_connection.unregisterObject(path);
        return false;
    }
    m_running = true;
    BFLOG(BFLOG_INFO, kModule, "[BackendControlService] control service on [%s] at [%s]", QuorixControl::kServiceName,
          QuorixControl::kObjectPath);
    return true;
}

void BackendControlService::stop()
{
    if (!m_running)
        return;
    m_running = false;
    m_connection.unregisterService(QLatin1String(QuorixControl::kServiceName));
    m_connection.unregisterObject(QLatin1String(QuorixControl::kObjectPath));
    BFLOG(BFLOG_INFO, kModule, "[BackendControlService] control service stopped");
}

bool BackendControlService::accept(char const* method, QString const& reason)
{
    if (reason.isEmpty())
        return true;
    BFLOG(BFLOG_ERROR, kModule, "[BackendControlService] %s from [%s] refused: %s", method,
          qUtf8Printable(callerName(*this)), qUtf8Printable(reason));
    if (calledFromDBus())
        sendErrorReply(QDBusError::InvalidArgs, reason);
    return false;
}

void BackendControlService::logAccepted(char const* method)
{
    BFLOG(BFLOG_INFO, kModule, "[BackendControlService] %s accepted from [%s]", method, qUtf8Printable(callerName(*this)));
}

void BackendControlService::Notice(QString const& id, qlonglong level, QString const& heading, QString const& title,
                                   int countdown, int button, QString const& body, QString const& linkText,
                                   QString const& target, int jumpKind)
{
    __sUniNoticeMsgInfo info;
    info.id = id;
    info.value1 = level;
    info.text1 = heading;
    info.text2 = title;
    info.number1 = countdown;
    info.number2 = button;
    info.text3 = body;
    info.text4 = linkText;
    info.text5 = target;
    info.number4 = jumpKind;
    if (!accept(QuorixControl::kMethodNotice, ControlRequestCheck::notice(info)))
        return;
    emit QuorixBackendRegistry::backend()->sig_UniNotifyMsg(info);
    logAccepted(QuorixControl::kMethodNotice);
}

void BackendControlService::DevicePopup(QString const& winTitle, QString const& title, QString const& content,
                                        QString const& buttonText, int time, QString const& details)
{
    __sDeviceMgrPopup info;
    info.winTitle = winTitle;
    info.title = title;
    info.content = content;
    info.btnText = buttonText;
    info.time = time;
    info.text5 = details;
    if (!accept(QuorixControl::kMethodDevicePopup, ControlRequestCheck::devicePopup(info)))
        return;
    emit QuorixBackendRegistry::backend()->sig_device_mgr_msg(info);
    logAccepted(QuorixControl::kMethodDevicePopup);
}

void BackendControlService::PowerOrder(int method, int countdown)
{
    if (!accept(QuorixControl::kMethodPowerOrder, ControlRequestCheck::powerOrder(method, countdown)))
        return;
    emit QuorixBackendRegistry::backend()->sig_shutdown_reboot_notice(method, countdown);
    logAccepted(QuorixControl::kMethodPowerOrder);
}

void BackendControlService::Prompt(int type, QString const& text1, QString const& text2, QString const& text3,
                                   QString const& text4)
{
    _sNoticeWinInfo_ info;
    info.noticeType = type;
    info.text1 = text1;
    info.text2 = text2;
    info.text3 = text3;
    info.text4 = text4;
    if (!accept(QuorixControl::kMethodPrompt, ControlRequestCheck::prompt(info)))
        return;
    emit QuorixBackendRegistry::backend()->sig_noticeWin(info);
    logAccepted(QuorixControl::kMethodPrompt);
}

void BackendControlService::GuardDays(uint days)
{
    if (!accept(QuorixControl::kMethodGuardDays, ControlRequestCheck::guardDays(days)))
        return;
    emit QuorixBackendRegistry::backend()->sig_guardDays(days);
    logAccepted(QuorixControl::kMethodGuardDays);
}

void BackendControlService::Show()
{
    emit QuorixBackendRegistry::backend()->sig_centerShow();
    logAccepted(QuorixControl::kMethodShow);
}

void BackendControlService::Hide()
{
    emit QuorixBackendRegistry::backend()->sig_hide();
    logAccepted(QuorixControl::kMethodHide);
}

void BackendControlService::Jump(QString const& objectName)
{
    if (!accept(QuorixControl::kMethodJump, ControlRequestCheck::objectName(objectName)))
        return;
    emit QuorixBackendRegistry::backend()->sig_Jump(objectName);
    logAccepted(QuorixControl::kMethodJump);
}

void BackendControlService::Quit()
{
    emit QuorixBackendRegistry::backend()->sig_appQuit();
    logAccepted(QuorixControl::kMethodQuit);
}
