#include "ctlClient.h"

#include "quorixControlProtocol.h"

#include <QDBusError>

namespace {

using Command = CtlCommandLine::Command;

QDBusMessage methodCall(char const* method, QVariantList const& arguments = {})
{
    QDBusMessage call = QDBusMessage::createMethodCall(QLatin1String(QuorixControl::kServiceName),
                                                       QLatin1String(QuorixControl::kObjectPath),
                                                       QLatin1String(QuorixControl::kInterface),
                                                       QLatin1String(method));
    call.setArguments(arguments);
    // The tool talks to a client that runs; it never has the bus start one.
    call.setAutoStartService(false);
    return call;
}

QVariantList noticeArguments(__sUniNoticeMsgInfo const& info)
{
    return {info.id,      QVariant::fromValue<qlonglong>(info.value1),
            info.text1,   info.text2,
            info.number1, info.number2,
            info.text3,   info.text4,
            info.text5,   info.number4};
}

QVariantList deviceArguments(__sDeviceMgrPopup const& info)
{
    return {info.winTitle, info.title, info.content, info.btnText, info.time, info.text5};
}

QVariantList promptArguments(_sNoticeWinInfo_ const& info)
{
    return {info.noticeType, info.text1, info.text2, info.text3, info.text4};
}

QString noClientText()
{
    return QStringLiteral("no Quorix client running (%1 is not on the session bus)")
        .arg(QLatin1String(QuorixControl::kServiceName));
}

QString describe(QDBusMessage const& reply)
{
    QDBusError const error(reply);
    // With auto-start off the bus answers NameHasNoOwner, which QDBusError
    // has no enumerator for.
    if (error.name() == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner"))
        return noClientText();
    switch (error.type()) {
    case QDBusError::ServiceUnknown:
        return noClientText();
    case QDBusError::InvalidArgs:
        return QStringLiteral("the client refused the event: %1").arg(error.message());
    case QDBusError::NoReply:
    case QDBusError::Timeout:
        return QStringLiteral("the client did not answer within %1 s").arg(CtlClient::kReplyTimeoutMs / 1000);
    default:
        return QStringLiteral("the event was not delivered: %1 (%2)").arg(error.message(), error.name());
    }
}

} // namespace

CtlClient::CtlClient(QDBusConnection connection)
    : m_connection(std::move(connection))
{
}

QString CtlClient::errorText() const
{
    return m_errorText;
}

QDBusMessage CtlClient::callFor(CtlCommandLine::Request const& request)
{
    switch (request.command) {
    case Command::Notice:
        return methodCall(QuorixControl::kMethodNotice, noticeArguments(request.notice));
    case Command::DevicePopup:
        return methodCall(QuorixControl::kMethodDevicePopup, deviceArguments(request.device));
    case Command::PowerOrder:
        return methodCall(QuorixControl::kMethodPowerOrder, {request.power.method, request.power.countdown});
    case Command::Prompt:
        return methodCall(QuorixControl::kMethodPrompt, promptArguments(request.prompt));
    case Command::GuardDays:
        return methodCall(QuorixControl::kMethodGuardDays, {request.days});
    case Command::Show:
        return methodCall(QuorixControl::kMethodShow);
    case Command::Hide:
        return methodCall(QuorixControl::kMethodHide);
    case Command::Jump:
        return methodCall(QuorixControl::kMethodJump, {request.objectName});
    case Command::Quit:
        return methodCall(QuorixControl::kMethodQuit);
    case Command::Help:
        break;
    }
    return QDBusMessage();
}

bool CtlClient::send(CtlCommandLine::Request const& request)
{
    m_errorText.clear();
    if (!m_connection.isConnected()) {
        QString const why = m_connection.lastError().message();
        m_errorText = QStringLiteral("no Quorix client running: no session bus (%1)")
                          .arg(why.isEmpty() ? QStringLiteral("not connected") : why.simplified());
        return false;
    }
    QDBusMessage const call = callFor(request);
    if (call.type() != QDBusMessage::MethodCallMessage) {
        m_errorText = QStringLiteral("nothing to send");
        return false;
    }
    QDBusMessage const reply = m_connection.call(call, QDBus::Block, kReplyTimeoutMs);
    if (reply.type() == QDBusMessage::ReplyMessage)
        return true;
    // One line on the terminal, whatever the service put in its message.
    m_errorText = describe(reply).simplified();
    return false;
}
